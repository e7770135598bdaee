#include "tests/support/ComboBoxTest.h"

#include "tests/support/TestMain.h"
#include "vomap/VOEvenColorRamp.h"

#include <QtTest>

#include <climits>

using namespace VTObjects;

namespace {

void addGroupColumns(bool byName)
{
    QTest::addColumn<QString>("team");
    if (byName)
        QTest::addColumn<QString>("group");
    else
        QTest::addColumn<int>("group");
    QTest::addColumn<int>("schemeIndex");
    QTest::addColumn<QColor>("color"); // of the scheme that is current then
    QTest::addColumn<QString>("firstListed");
}

/// The colour of the scheme that is current before each call.
const QColor former(90, 91, 92);

void setFormer(VTColorSchemeComboBox &box)
{
    VOEvenColorRamp ramp;
    ramp.addColor(rgb_color<float>(90, 91, 92));
    box.setColorRamp(&ramp);
}

} // namespace

class tst_VTColorSchemeComboBox_groups : public ComboBoxTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aTeamIsChosenByItsName_data();
    void aTeamIsChosenByItsName();
    void aGroupIsChosenByName_data();
    void aGroupIsChosenByName();
    void aGroupIsChosenByIndex_data();
    void aGroupIsChosenByIndex();
    void anEmptyDefaultTeamHasNoStandIn();
    void ofEqualNamesTheFirstGroupIsChosen();
    void aFailureChangesNothing_data();
    void aFailureChangesNothing();
    void theStoreIsNotTouched();
    void laterChangesOfTheStoreDoNotShow();
};

void tst_VTColorSchemeComboBox_groups::aTeamIsChosenByItsName_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<int>("blue"); // of the team's first group
    QTest::newRow("Default") << "Default" << 1;
    QTest::newRow("default") << "default" << 1;
    QTest::newRow("DEFAULT") << "DEFAULT" << 1;
    QTest::newRow("Custom") << "Custom" << 11;
    QTest::newRow("cUSTOM") << "cUSTOM" << 11;
    QTest::newRow("Favorite") << "Favorite" << 21;
    QTest::newRow("favorite") << "favorite" << 21;
    QTest::newRow("nothing") << "" << 21;
    QTest::newRow("anything else") << "Defaults" << 21;
    QTest::newRow("a blank behind it") << "Custom " << 21;
}

void tst_VTColorSchemeComboBox_groups::aTeamIsChosenByItsName()
{
    QFETCH(QString, team);
    QFETCH(int, blue);
    VTColorSchemeComboBox byIndex;
    QVERIFY(byIndex.setDefaultGroup(team, 0, 0));
    QCOMPARE(firstColor(byIndex), QColor(200, 0, blue));
    VTColorSchemeComboBox byName;
    QVERIFY(byName.setDefaultGroup(team, blue == 11 ? "Mine" : "DEM", 0));
    QCOMPARE(firstColor(byName), QColor(200, 0, blue));
    // The drop-down takes the same team.
    QCOMPARE(listed(byIndex).last(),
             blue == 11 ? QStringLiteral("Mine green") : QStringLiteral("DEM green"));
    QCOMPARE(listed(byIndex).first(), blue == 1    ? QStringLiteral("For DEM")
                                      : blue == 11 ? QStringLiteral("Mine")
                                                   : QStringLiteral("DEM"));
}

void tst_VTColorSchemeComboBox_groups::aGroupIsChosenByName_data()
{
    addGroupColumns(true);
    QTest::newRow("default") << "Default"
                             << "Range" << 1 << QColor(0, 200, 3) << "Range red";
    QTest::newRow("default, an unknown name") << "Default"
                                              << "none" << 0 << QColor(200, 0, 1) << "DEM red";
    QTest::newRow("default, no name") << "Default"
                                      << "" << 1 << QColor(0, 200, 1) << "DEM red";
    QTest::newRow("default, another letter case") << "Default"
                                                  << "range" << 0 << QColor(200, 0, 1) << "DEM red";
    QTest::newRow("custom") << "Custom"
                            << "Yours" << 0 << QColor(200, 0, 12) << "Yours red";
    QTest::newRow("favorites") << "Favorite"
                               << "Mine" << 1 << QColor(0, 200, 22) << "Mine red";
    QTest::newRow("scheme -1") << "Custom"
                               << "Yours" << -1 << former << "Yours red";
    QTest::newRow("the lowest scheme index") << "Custom"
                                             << "Yours" << INT_MIN << former << "Yours red";
    QTest::newRow("one behind the last scheme") << "Custom"
                                                << "Yours" << 2 << former << "Yours red";
    QTest::newRow("unknown default, scheme -1") << "Default"
                                                << "none" << -1 << former << "DEM red";
}

void tst_VTColorSchemeComboBox_groups::aGroupIsChosenByName()
{
    QFETCH(QString, team);
    QFETCH(QString, group);
    QFETCH(int, schemeIndex);
    QFETCH(QColor, color);
    QFETCH(QString, firstListed);
    VTColorSchemeComboBox box;
    setFormer(box);
    QVERIFY(box.setDefaultGroup(team, group, schemeIndex));
    QCOMPARE(firstColor(box), color);
    QCOMPARE(faceColor(box), color);
    QCOMPARE(listed(box).value(1), firstListed);
}

void tst_VTColorSchemeComboBox_groups::aGroupIsChosenByIndex_data()
{
    addGroupColumns(false);
    QTest::newRow("default") << "Default" << 2 << 1 << QColor(0, 200, 3) << "Range red";
    QTest::newRow("default, the last") << "Default" << 4 << 0 << QColor(200, 0, 5) << "Even red";
    QTest::newRow("custom") << "Custom" << 1 << 0 << QColor(200, 0, 12) << "Yours red";
    QTest::newRow("favorites") << "Favorite" << 1 << 1 << QColor(0, 200, 22) << "Mine red";
    QTest::newRow("scheme -1") << "Favorite" << 0 << -1 << former << "DEM red";
    QTest::newRow("one behind the last scheme") << "Default" << 0 << 2 << former << "DEM red";
}

void tst_VTColorSchemeComboBox_groups::aGroupIsChosenByIndex()
{
    QFETCH(QString, team);
    QFETCH(int, group);
    QFETCH(int, schemeIndex);
    QFETCH(QColor, color);
    QFETCH(QString, firstListed);
    VTColorSchemeComboBox box;
    setFormer(box);
    QVERIFY(box.setDefaultGroup(team, group, schemeIndex));
    QCOMPARE(firstColor(box), color);
    QCOMPARE(faceColor(box), color);
    QCOMPARE(listed(box).value(1), firstListed);
}

void tst_VTColorSchemeComboBox_groups::anEmptyDefaultTeamHasNoStandIn()
{
    store()->defaultTeam.groups.clear();
    VTColorSchemeComboBox box;
    QVERIFY(!box.setDefaultGroup("Default", "DEM", 0));
    QVERIFY(!box.setDefaultGroup("Default", 0, 0));
}

void tst_VTColorSchemeComboBox_groups::ofEqualNamesTheFirstGroupIsChosen()
{
    store()->customTeam.groups.push_back(redAndGreen("Mine", 13));
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Custom", "Mine", 0));
    QCOMPARE(firstColor(box), QColor(200, 0, 11));
}

void tst_VTColorSchemeComboBox_groups::aFailureChangesNothing_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<QVariant>("group");
    QTest::newRow("custom, an unknown name") << "Custom" << QVariant("none");
    QTest::newRow("custom, another letter case") << "Custom" << QVariant("mine");
    QTest::newRow("custom, no name") << "Custom" << QVariant("");
    QTest::newRow("favorites, an unknown name") << "Favorite" << QVariant("Yours");
    QTest::newRow("default, one behind the last") << "Default" << QVariant(5);
    QTest::newRow("default, -1") << "Default" << QVariant(-1);
    QTest::newRow("custom, one behind the last") << "Custom" << QVariant(2);
    QTest::newRow("custom, -1") << "Custom" << QVariant(-1);
    QTest::newRow("favorites, one behind the last") << "Favorite" << QVariant(2);
    QTest::newRow("favorites, the lowest") << "Favorite" << QVariant(INT_MIN);
    QTest::newRow("favorites, the highest") << "Favorite" << QVariant(INT_MAX);
}

void tst_VTColorSchemeComboBox_groups::aFailureChangesNothing()
{
    QFETCH(QString, team);
    QFETCH(QVariant, group);
    // Given a picker of one group with a ramp of its own
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Default", "Graph", 0));
    setFormer(box);
    const VOColorRamp *const ramp = box.currentColorRamp();
    const QImage before = face(box);
    const QStringList listedBefore = listed(box);
    QCOMPARE(listedBefore, QStringList({"For graph", "Graph red", "Graph green"}));
    // When another one is chosen that is not there
    const bool chosen = group.type() == QVariant::Int
                            ? box.setDefaultGroup(team, group.toInt(), 0)
                            : box.setDefaultGroup(team, group.toString(), 0);
    // Then all is as it was
    QVERIFY(!chosen);
    QCOMPARE(box.currentColorRamp(), ramp);
    QCOMPARE(face(box), before);
    QCOMPARE(listed(box), listedBefore);
}

void tst_VTColorSchemeComboBox_groups::theStoreIsNotTouched()
{
    VTColorSchemeComboBox box;
    const VOColorScheme &scheme = store()->defaultTeam.groups[0].schemes[0];
    const VOColorRamp *const storesRamp = scheme.colorRamp;
    QVERIFY(box.setDefaultGroup("Default", 0, 0));
    QVERIFY(box.currentColorRamp() != storesRamp);
    box.currentColorRamp()->deleteAll();
    setFormer(box);
    QCOMPARE(scheme.colorRamp, storesRamp);
    QCOMPARE(scheme.colorRamp->getLevel(), 1U);
}

void tst_VTColorSchemeComboBox_groups::laterChangesOfTheStoreDoNotShow()
{
    VTColorSchemeComboBox box;
    QVERIFY(box.setDefaultGroup("Custom", 0, 0));
    store()->customTeam.groups.clear();
    QCOMPARE(firstColor(box), QColor(200, 0, 11));
    QCOMPARE(faceColor(box), QColor(200, 0, 11));
    QCOMPARE(listed(box), QStringList(QString()));
}

VT_TEST_MAIN(tst_VTColorSchemeComboBox_groups)
#include "tst_VTColorSchemeComboBox_groups.moc"
