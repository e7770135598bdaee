#include "tests/support/HueClaims.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeTeam.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QtTest>

#include <utility>

using namespace VTObjects;

namespace {

VOColorScheme schemeOf(VOColorRamp *ramp, const wchar_t *name, const wchar_t *description)
{
    VOColorScheme scheme;
    scheme.name = name;
    scheme.describe = description;
    scheme.colorRamp = ramp;
    return scheme;
}

VOColorScheme whiteToGreen(const wchar_t *name, const wchar_t *text)
{
    auto *ramp = new VOEvenColorRamp;
    rgb_color<float> sources[] = {{255, 255, 255}, {0, 110, 50}};
    ramp->setSourceColor(2, sources);
    ramp->split(10);
    const std::wstring claims = L"Sequential, 3 to 6 classes, color-blind safe. ";
    return schemeOf(ramp, name, (claims + text).c_str());
}

VOColorScheme random(int minH, int maxH, const wchar_t *text)
{
    auto *ramp = new VORandomColorRampForHsv;
    ramp->paramsChanged = true;
    ramp->minH = minH;
    ramp->maxH = maxH;
    ramp->minS = 40;
    ramp->minV = 40;
    ramp->setSeed(15);
    ramp->split(10);
    const std::wstring claims = L"Qualitative, 10 classes, color-blind safe. ";
    return schemeOf(ramp, L"Any", (claims + text).c_str());
}

} // namespace

Q_DECLARE_METATYPE(VTObjects::VOColorScheme)

class tst_hueClaims : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyWordHoldsItsReferences();
    void theHuesAreThoseOfThePaper();
    void everyBuiltInSchemeShowsTheHuesItNames();
    void aWrongClaimIsFound_data();
    void aWrongClaimIsFound();
};

void tst_hueClaims::everyWordHoldsItsReferences()
{
    QCOMPARE(HueClaims::strayReference(), QString());
    QVERIFY(HueClaims::wordOf(QStringLiteral("Blues")));
    QVERIFY(!HueClaims::wordOf(QStringLiteral("shore")));
}

void tst_hueClaims::theHuesAreThoseOfThePaper()
{
    // Pure red, as published with the color space: L 0.628, C 0.258, h 29.23.
    const HueClaims::Lch red = HueClaims::lchOf({255, 0, 0});
    QVERIFY(qAbs(red.lightness - 0.628) < 0.001);
    QVERIFY(qAbs(red.chroma - 0.258) < 0.001);
    QVERIFY(qAbs(red.hue - 29.23) < 0.01);
}

void tst_hueClaims::everyBuiltInSchemeShowsTheHuesItNames()
{
    QStringList wrong;
    for (const VOColorSchemeGroup &group : readBuiltInTeam().groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const QString found = HueClaims::wrongHue(scheme);
            if (!found.isEmpty())
                wrong << toQString(scheme.name) + QLatin1Char(' ') + found;
        }
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

void tst_hueClaims::aWrongClaimIsFound_data()
{
    QTest::addColumn<VOColorScheme>("scheme");
    QTest::addColumn<QString>("wrong");
    QTest::newRow("a right name") << whiteToGreen(L"White to green", L"Two colors.") << QString();
    QTest::newRow("a right text") << whiteToGreen(L"Any", L"White to dark green.") << QString();
    QTest::newRow("a wrong name") << whiteToGreen(L"White to red", L"Two colors.")
                                  << QStringLiteral("shows no red");
    QTest::newRow("a wrong text") << whiteToGreen(L"Any", L"White over blue to green.")
                                  << QStringLiteral("shows no blue");
    QTest::newRow("the wrong way")
        << whiteToGreen(L"Any", L"Green to white.") << QStringLiteral("does not end with white");
    QTest::newRow("half way") << whiteToGreen(L"Any", L"White over green to far shores.")
                              << QString();
    QTest::newRow("right greens") << random(100, 140, L"Greens.") << QString();
    QTest::newRow("greens that are not")
        << random(80, 220, L"Greens.") << QStringLiteral("has a hue of");
    QTest::newRow("a right span") << random(0, 60, L"Red to yellow.") << QString();
    QTest::newRow("a span that is left")
        << random(0, 160, L"Red to yellow.") << QStringLiteral("has a hue of");
    // 390 wraps to 30 and changes places with 330: all but what was meant.
    QTest::newRow("a range past 360")
        << random(330, 390, L"Pink over red to orange.") << QStringLiteral("shows no red");
}

void tst_hueClaims::aWrongClaimIsFound()
{
    QFETCH(VOColorScheme, scheme);
    QFETCH(QString, wrong);
    const QString found = HueClaims::wrongHue(scheme);
    QVERIFY2(wrong.isEmpty() ? found.isEmpty() : found.startsWith(wrong), qPrintable(found));
}

VT_TEST_GUILESS_MAIN(tst_hueClaims)
#include "tst_hueClaims.moc"
