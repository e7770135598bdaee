#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/toString.h"

#include "apps/mapviewer/schemes/SchemeCopy.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"

#include <QtTest>

#include <memory>

using namespace mapviewer;
using namespace VTObjects;

class tst_SchemeCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { store.reset(); }

    void theUsersOwnSchemeIsEditedInPlace();
    void ofABuiltInSchemeACopyIsMade();
    void copiesHaveNamesOfTheirOwn();
    void withoutASchemeTheRampBecomesOne();
    void discardTakesTheCopyOutAgain();
    void discardAfterTheEditorHasRemovedTheCopy();
    void discardLeavesWhatWasThere();

private:
    VOColorSchemeTeam &custom() { return VOColorSchemeManager::instance()->customTeam; }

    std::unique_ptr<TestStore> store;
    VOColorSchemeId builtIn;
    VOEvenColorRamp ramp;
};

void tst_SchemeCopy::init()
{
    store = std::make_unique<TestStore>();
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("DEM", {"a", "b"})};
    builtIn = {"Default", "DEM", "b"};
}

void tst_SchemeCopy::theUsersOwnSchemeIsEditedInPlace()
{
    custom().groups = {makeGroup("x", {"a"}), makeGroup("y", {"a", "b"})};
    SchemeCopy copy(VOColorSchemeId{"Custom", "y", "b"}, {}, &ramp);
    QVERIFY(!copy.isNew());
    QCOMPARE(copy.group(), &custom().groups[1]);
    QCOMPARE(copy.schemeIndex(), 1);
    QCOMPARE(copy.groupIndex(), 1);
}

void tst_SchemeCopy::ofABuiltInSchemeACopyIsMade()
{
    const SchemeCopy copy(builtIn, {}, &ramp);
    QVERIFY(copy.isNew());
    QCOMPARE(custom().groups.size(), std::size_t(1));
    QCOMPARE(custom().groups[0].name, "My schemes");
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"b"}));
    QCOMPARE(copy.groupIndex(), 0);
    QCOMPARE(copy.schemeIndex(), 0);
    // The copy has a ramp of its own.
    custom().groups[0].schemes[0].colorRamp->setColor(0, rgb_color<float>(1.0F, 1.0F, 1.0F));
    const VOColorScheme &original =
        VOColorSchemeManager::instance()->defaultTeam.groups[0].schemes[1];
    QVERIFY(original.colorRamp->getColor(0).red > 1.0F);
}

void tst_SchemeCopy::copiesHaveNamesOfTheirOwn()
{
    const SchemeCopy first(builtIn, {}, &ramp);
    const SchemeCopy second(builtIn, {}, &ramp);
    const SchemeCopy third(builtIn, {}, &ramp);
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"b", "b 2", "b 3"}));
    QCOMPARE(third.schemeIndex(), 2);
}

void tst_SchemeCopy::withoutASchemeTheRampBecomesOne()
{
    ramp.deleteAll();
    ramp.addColor(rgb_color<float>(1.0F, 2.0F, 3.0F));
    for (const VOColorSchemeId &id :
         {VOColorSchemeId(), VOColorSchemeId{"Default", "DEM", "gone"}}) {
        const SchemeCopy copy(id, {}, &ramp);
        QVERIFY(copy.isNew());
        const VOColorScheme &made = copy.group()->schemes[std::size_t(copy.schemeIndex())];
        QCOMPARE(made.colorRamp->getLevel(), 1U);
        QCOMPARE(made.colorRamp->getColor(0).blue, 3.0F);
    }
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"My scheme", "My scheme 2"}));
}

void tst_SchemeCopy::discardTakesTheCopyOutAgain()
{
    SchemeCopy first(builtIn, {}, &ramp);
    SchemeCopy second(builtIn, {}, &ramp);
    second.discard();
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"b"}));
    // The first one made the group, which goes with it.
    first.discard();
    QVERIFY(custom().groups.empty());
}

void tst_SchemeCopy::discardAfterTheEditorHasRemovedTheCopy()
{
    custom().groups = {makeGroup("My schemes", {"x"})};
    SchemeCopy copy(builtIn, {}, &ramp);
    copy.group()->schemes.pop_back();
    copy.discard();
    QCOMPARE(custom().groups.size(), std::size_t(1));
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"x"}));
}

void tst_SchemeCopy::discardLeavesWhatWasThere()
{
    custom().groups = {makeGroup("x", {"a"})};
    SchemeCopy copy(VOColorSchemeId{"Custom", "x", "a"}, {}, &ramp);
    copy.discard();
    QCOMPARE(schemeNames(custom().groups[0]), QStringList({"a"}));
}

VT_TEST_GUILESS_MAIN(tst_SchemeCopy)
#include "tst_SchemeCopy.moc"
