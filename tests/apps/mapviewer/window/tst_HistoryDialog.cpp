#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/HistoryDialog.h"

#include "colorscheme/manager/VTColorSchemeManager.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

using namespace mapviewer;
using namespace VTObjects;

/// What was saved earlier is shown beside what is there now, and comes back.
class tst_HistoryDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aStoreWithoutHistorySaysSo();
    void eachStateIsListedTheNewestFirst();
    void differencesAreShownByGroupWithBothStrips();
    void anAddedSchemeHasNothingToRestore();
    void aDeletedSchemeComesBackAndIsSaved();
    void aSelectedGroupComesBackWhole();
    void theWholeTeamComesBackAfterAQuestion();
    void theQuestionCanBeAnsweredWithNo();
    void theChosenStateStaysChosen();
    void anotherTeamHasItsOwnStates();
    void aDamagedStateSaysSo();
    void builtInGroupsAreCalledAsInTheManager();
    void aSelectedRowKeepsTheColorsOfItsStrips();
    void theSizeThatTheUserGaveItIsRemembered();

private:
    // The custom team with one group of these schemes, saved.
    void save(const QStringList &schemes);
    void open();
    QListWidget *states() const { return dialog->findChild<QListWidget *>("states"); }
    QTreeWidget *tree() const { return dialog->findChild<QTreeWidget *>("differences"); }
    QString hint() const { return dialog->findChild<QLabel *>("hint")->text(); }
    QPushButton *button(const char *name) const { return dialog->findChild<QPushButton *>(name); }
    // Of every row below the first group: name and difference.
    QStringList rows() const;
    // Clicks a row: of the first group the child, or the group itself for -1.
    void clickRow(int child);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<HistoryDialog> dialog;
};

namespace {

VOColorSchemeTeam &custom()
{
    return VOColorSchemeManager::instance()->customTeam;
}

} // namespace

void tst_HistoryDialog::init()
{
    store = std::make_unique<TestStore>();
}

void tst_HistoryDialog::cleanup()
{
    dialog.reset();
    store.reset();
}

void tst_HistoryDialog::save(const QStringList &schemes)
{
    custom().groups = {makeGroup("Mine", schemes)};
    QVERIFY(VOColorSchemeManager::instance()->save());
}

void tst_HistoryDialog::open()
{
    dialog = std::make_unique<HistoryDialog>(nullptr);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
}

QStringList tst_HistoryDialog::rows() const
{
    QStringList list;
    const QTreeWidgetItem *group = tree()->topLevelItem(0);
    for (int i = 0; group && i < group->childCount(); ++i)
        list << group->child(i)->text(0) + ' ' + group->child(i)->text(3);
    return list;
}

void tst_HistoryDialog::clickRow(int child)
{
    QTreeWidgetItem *row = tree()->topLevelItem(0);
    if (child >= 0)
        row = row->child(child);
    const QRect place = tree()->visualItemRect(row);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, place.center());
}

void tst_HistoryDialog::aStoreWithoutHistorySaysSo()
{
    save({"a"});
    open();
    QCOMPARE(states()->count(), 0);
    QVERIFY(hint().startsWith("Nothing was replaced yet."));
    QVERIFY(!button("restoreSelected")->isEnabled());
    QVERIFY(!button("restoreTeam")->isEnabled());
}

void tst_HistoryDialog::eachStateIsListedTheNewestFirst()
{
    for (const QStringList &schemes : {QStringList{"a"}, QStringList{"a", "b"}, QStringList{"b"}})
        save(schemes);
    open();
    QCOMPARE(states()->count(), 2);
    QCOMPARE(states()->currentRow(), 0);
    QCOMPARE(rows(), QStringList({"a deleted"}));
    QTest::keyClick(states(), Qt::Key_Down);
    QCOMPARE(rows(), QStringList({"a deleted", "b added"}));
    const QDateTime saved = QDateTime::currentDateTime();
    QVERIFY(states()->item(0)->toolTip().contains(QString::number(saved.date().year())));
}

void tst_HistoryDialog::differencesAreShownByGroupWithBothStrips()
{
    save({"gone", "edited", "same"});
    custom().groups[0].schemes[1].author = VOString(L"somebody");
    custom().groups[0].schemes.erase(custom().groups[0].schemes.begin());
    custom().groups[0].schemes.push_back(makeScheme("new"));
    QVERIFY(VOColorSchemeManager::instance()->save());
    open();
    QCOMPARE(tree()->topLevelItemCount(), 1);
    QCOMPARE(tree()->topLevelItem(0)->text(0), QString("Mine"));
    QCOMPARE(rows(), QStringList({"gone deleted", "edited changed", "new added"}));
    QCOMPARE(hint(), QString("Since then: 1 deleted, 1 changed, 1 added."));
    const auto hasStrip = [&](int row, int column) {
        return !tree()->topLevelItem(0)->child(row)->data(column, Qt::DecorationRole).isNull();
    };
    QVERIFY(hasStrip(0, 1) && !hasStrip(0, 2));
    QVERIFY(hasStrip(1, 1) && hasStrip(1, 2));
    QVERIFY(!hasStrip(2, 1) && hasStrip(2, 2));
}

void tst_HistoryDialog::anAddedSchemeHasNothingToRestore()
{
    save({"a"});
    save({"a", "b"});
    open();
    QCOMPARE(rows(), QStringList({"b added"}));
    clickRow(0);
    QVERIFY(!button("restoreSelected")->isEnabled());
    clickRow(-1);
    QVERIFY(!button("restoreSelected")->isEnabled());
    QVERIFY(button("restoreTeam")->isEnabled());
}

void tst_HistoryDialog::aDeletedSchemeComesBackAndIsSaved()
{
    save({"a", "b", "c"});
    save({"c"});
    open();
    QVERIFY(!button("restoreSelected")->isEnabled());
    clickRow(1);
    QVERIFY(button("restoreSelected")->isEnabled());
    QSignalSpy restored(dialog.get(), &HistoryDialog::restored);
    QTest::mouseClick(button("restoreSelected"), Qt::LeftButton);
    QCOMPARE(restored.count(), 1);
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList({"c", "b"}));
    QVERIFY(VOColorSchemeManager::instance()->load());
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList({"c", "b"}));
    QCOMPARE(states()->count(), 2);
}

void tst_HistoryDialog::aSelectedGroupComesBackWhole()
{
    save({"a", "b"});
    save({"c"});
    open();
    clickRow(-1);
    QTest::keyClick(tree(), Qt::Key_Down, Qt::ShiftModifier); // and a scheme of it besides
    QTest::mouseClick(button("restoreSelected"), Qt::LeftButton);
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList({"a", "b"}));
}

void tst_HistoryDialog::theWholeTeamComesBackAfterAQuestion()
{
    save({"a"});
    custom().groups = {makeGroup("Other", {"x"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    open();
    ModalDriver driver;
    driver.next([](QWidget *box) {
        QTest::mouseClick(box->findChild<QPushButton *>("restore"), Qt::LeftButton);
    });
    QTest::mouseClick(button("restoreTeam"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(int(custom().groups.size()), 1);
    QVERIFY(custom().groups[0].name == L"Mine");
    QCOMPARE(states()->count(), 2);
    QVERIFY(VOColorSchemeManager::instance()->load());
    QVERIFY(custom().groups[0].name == L"Mine");
}

void tst_HistoryDialog::theQuestionCanBeAnsweredWithNo()
{
    save({"a"});
    save({"b"});
    open();
    QSignalSpy restored(dialog.get(), &HistoryDialog::restored);
    ModalDriver driver;
    driver.next([](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QTest::mouseClick(button("restoreTeam"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(restored.count(), 0);
    QCOMPARE(schemeNames(custom().groups.at(0)), QStringList("b"));
}

void tst_HistoryDialog::theChosenStateStaysChosen()
{
    save({"a"});
    save({"b"});
    save({"c"});
    open();
    QTest::keyClick(states(), Qt::Key_Down);
    QCOMPARE(rows(), QStringList({"a deleted", "c added"}));
    clickRow(0);
    QTest::mouseClick(button("restoreSelected"), Qt::LeftButton);
    QCOMPARE(states()->count(), 3);
    QCOMPARE(states()->currentRow(), 2); // a newer one came in front
    QCOMPARE(rows(), QStringList({"c added"}));
}

void tst_HistoryDialog::anotherTeamHasItsOwnStates()
{
    save({"a"});
    save({"b"});
    open();
    QCOMPARE(states()->count(), 1);
    auto *team = dialog->findChild<QComboBox *>("team");
    QTest::keyClick(team, Qt::Key_Down);
    QCOMPARE(team->currentData().toInt(), int(FavoriteTeam));
    QCOMPARE(states()->count(), 0);
    QCOMPARE(tree()->topLevelItemCount(), 0);
    QTest::keyClick(team, Qt::Key_Up);
    QCOMPARE(states()->count(), 1);
}

void tst_HistoryDialog::aDamagedStateSaysSo()
{
    save({"a"});
    save({"b"});
    const VOStoreHistory history(*VOColorSchemeManager::instance());
    QFile file(toQString(history.states(CustomTeam).at(0).path));
    QVERIFY(file.resize(file.size() / 2));
    open();
    QCOMPARE(states()->count(), 1);
    QCOMPARE(hint(), QString("This state cannot be read any more."));
    QVERIFY(!button("restoreSelected")->isEnabled());
    QVERIFY(!button("restoreTeam")->isEnabled());
}

// By their captions, and yet what is chosen comes back.
void tst_HistoryDialog::builtInGroupsAreCalledAsInTheManager()
{
    VOColorSchemeManager *manager = VOColorSchemeManager::instance();
    manager->resetDefaultTeam();
    QVERIFY(manager->save());
    std::vector<VOColorSchemeGroup> &groups = manager->defaultTeam.groups;
    QStringList before;
    for (VOColorSchemeGroup &group : groups) {
        before << schemeNames(group);
        group.schemes.erase(group.schemes.begin());
    }
    QVERIFY(manager->save());
    open();
    auto *team = dialog->findChild<QComboBox *>("team");
    team->setCurrentIndex(team->findData(int(DefaultTeam)));
    VTColorSchemeManager shown;
    const QAbstractItemModel *const called = shown.findChild<QTreeView *>("teamView")->model();
    const QModelIndex builtIn = called->index(0, 0);
    QCOMPARE(tree()->topLevelItemCount(), called->rowCount(builtIn));
    for (int i = 0; i < called->rowCount(builtIn); ++i)
        QCOMPARE(tree()->topLevelItem(i)->text(0), called->index(i, 0, builtIn).data().toString());

    clickRow(-1);
    QTest::mouseClick(button("restoreSelected"), Qt::LeftButton);
    QCOMPARE(tree()->topLevelItemCount(), called->rowCount(builtIn) - 1);
    clickRow(0);
    QTest::mouseClick(button("restoreSelected"), Qt::LeftButton);
    QCOMPARE(tree()->topLevelItemCount(), called->rowCount(builtIn) - 2);
    QStringList after;
    for (const VOColorSchemeGroup &group : {groups[0], groups[1]})
        after << schemeNames(group);
    after.sort();
    QStringList expected = before.mid(0, after.size());
    expected.sort();
    QCOMPARE(after, expected);
}

void tst_HistoryDialog::aSelectedRowKeepsTheColorsOfItsStrips()
{
    save({"a", "b"});
    save({});
    open();
    const QModelIndex strip = tree()->model()->index(0, 1, tree()->model()->index(0, 0));
    const auto middle = [&] {
        const QImage seen = tree()->viewport()->grab().toImage();
        return seen.pixelColor(tree()->visualRect(strip).center()).name();
    };
    const QString before = middle();
    clickRow(0);
    QVERIFY(tree()->selectionModel()->isSelected(strip));
    QCOMPARE(middle(), before);
}

void tst_HistoryDialog::theSizeThatTheUserGaveItIsRemembered()
{
    open();
    const QSize first = dialog->size();
    dialog->resize(first - QSize(40, 30));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    open();
    QCOMPARE(dialog->size(), first - QSize(40, 30));
    // No more than the screen has; and what is no size is none.
    dialog.reset();
    appSettings().setValue("mapviewer/historySize", QSize(30000, 20000));
    open();
    QVERIFY(dialog->width() <= dialog->screen()->availableGeometry().width());
    QVERIFY(dialog->height() <= dialog->screen()->availableGeometry().height());
    dialog.reset();
    appSettings().setValue("mapviewer/historySize", "?");
    open();
    QCOMPARE(dialog->size(), first);
}

VT_TEST_MAIN(tst_HistoryDialog)
#include "tst_HistoryDialog.moc"
