#include "colorscheme/model/defaultColorRamp_p.h"
#include "colorscheme/model/newScheme_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::newScheme;
using VTObjects::toQString;
using VTObjects::VOColorRamp;
using VTObjects::VOColorScheme;

class tst_newScheme : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewSchemeHasItsFirstValues();
    void aNewSchemeIsNumberedInItsGroupAndNotInItYet();
};

void tst_newScheme::aNewSchemeHasItsFirstValues()
{
    const VOColorScheme scheme = newScheme(makeGroup("empty", {}));
    QCOMPARE(toQString(scheme.name), QStringLiteral("add_scheme1"));
    QCOMPARE(toQString(scheme.author), QStringLiteral("Admin"));
    QCOMPARE(toQString(scheme.describe), QStringLiteral("Even"));
    QVERIFY(scheme.colorRamp);
    QCOMPARE(scheme.colorRamp->category(), VOColorRamp::EvenRamp);
    const auto expected = defaultColorRamp();
    QCOMPARE(scheme.colorRamp->getLevel(), 10U);
    for (unsigned int i = 0; i < 10; ++i) {
        const auto color = scheme.colorRamp->getColor(i);
        const auto wanted = expected->getColor(i);
        QCOMPARE(color.red, wanted.red);
        QCOMPARE(color.green, wanted.green);
        QCOMPARE(color.blue, wanted.blue);
    }
}

void tst_newScheme::aNewSchemeIsNumberedInItsGroupAndNotInItYet()
{
    const auto group = makeGroup("g", {"add_scheme1", "add_scheme7"});
    QCOMPARE(toQString(newScheme(group).name), QStringLiteral("add_scheme8"));
    QCOMPARE(group.schemes.size(), std::size_t(2));
}

VT_TEST_MAIN(tst_newScheme)
#include "tst_newScheme.moc"
