#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/model/VTDialogLayout.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include "vomap/VOColorSchemeManager.h"

#include <QComboBox>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QtTest>

#include <limits>
#include <memory>

using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

class tst_VTDialogLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsWrittenOrReadUnlessAHostAsks();
    void theManagerOpensAsItsUserLeftIt();
    void whatNobodyChangedIsNotWritten();
    void theEditorKeepsTheHeightThatItsUserAdded();
    void theAddGroupDialogKeepsItsSize();
    void spoiltValuesCountAsNone_data();
    void spoiltValuesCountAsNone();
    void theScreenBoundsWhatIsRemembered();
    void settingsThatGoEndTheRemembering();

private:
    std::unique_ptr<TestStore> store;
    std::unique_ptr<QSettings> settings;
};

namespace {

/// A manager that somebody makes that large, with columns of that width, and closes.
void leave(const QSize &size, int nameWidth, int authorWidth)
{
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    manager.show();
    manager.resize(size);
    user.table->horizontalHeader()->resizeSection(2, nameWidth);
    user.table->horizontalHeader()->resizeSection(3, authorWidth);
    QTest::mouseClick(user.cancel, Qt::LeftButton);
}

} // namespace

void tst_VTDialogLayout::init()
{
    store = std::make_unique<TestStore>();
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("DEM", {"a", "b"})};
    settings =
        std::make_unique<QSettings>(store->path(QStringLiteral("host.ini")), QSettings::IniFormat);
    VTDialogLayout::rememberIn(settings.get());
}

void tst_VTDialogLayout::cleanup()
{
    settings.reset();
    store.reset();
}

void tst_VTDialogLayout::nothingIsWrittenOrReadUnlessAHostAsks()
{
    leave(QSize(800, 600), 200, 90);
    VTDialogLayout::rememberIn(nullptr);
    const VTColorSchemeManager manager;
    QCOMPARE(manager.size(), QSize(790, 530));
    settings->clear();
    leave(QSize(820, 610), 210, 95);
    QCOMPARE(settings->allKeys(), QStringList());
}

void tst_VTDialogLayout::theManagerOpensAsItsUserLeftIt()
{
    leave(QSize(796, 570), 170, 85);
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    manager.show();
    QCOMPARE(manager.size(), QSize(796, 570));
    QCOMPARE(user.table->columnWidth(0), 25);
    QCOMPARE(user.table->columnWidth(1), 265);
    QCOMPARE(user.table->columnWidth(2), 170);
    QCOMPARE(user.table->columnWidth(3), 85);
    for (const QString &key : settings->allKeys())
        QVERIFY2(key.startsWith(QStringLiteral("vtcontrolcolorscheme/")), qPrintable(key));
}

void tst_VTDialogLayout::whatNobodyChangedIsNotWritten()
{
    {
        VTColorSchemeManager manager;
        manager.show();
        manager.hide();
        manager.resize(700, 600); // by the host
        manager.show();
    }
    QCOMPARE(settings->allKeys(), QStringList());
    leave(QSize(790, 530), 130, 60);
    QCOMPARE(settings->allKeys(),
             QStringList(QStringLiteral("vtcontrolcolorscheme/manager/nameWidth")));
}

void tst_VTDialogLayout::theEditorKeepsTheHeightThatItsUserAdded()
{
    VOColorSchemeGroup group = makeGroup("DEM", {"a"});
    {
        VTColorSchemeEditor editor(0, &group, false);
        QCOMPARE(editor.size(), QSize(555, 450));
        editor.show();
        editor.resize(555, 550);
    }
    VTColorSchemeEditor editor(0, &group, false);
    QCOMPARE(editor.size(), QSize(555, 550));
    editor.show();
    // Another kind brings its own height, which nobody has chosen.
    auto *kinds = editor.findChild<QComboBox *>(QStringLiteral("comboBox_type"));
    kinds->setCurrentIndex(1);
    Q_EMIT kinds->activated(1);
    QCOMPARE(editor.size(), QSize(555, 515));
    editor.hide();
    const VTColorSchemeEditor third(0, &group, false);
    QCOMPARE(third.size(), QSize(555, 550));
}

void tst_VTDialogLayout::theAddGroupDialogKeepsItsSize()
{
    {
        VTAddColorSchemeGroupDialog dialog(QStringLiteral("x"));
        QCOMPARE(dialog.size(), QSize(341, 117));
        dialog.show();
        dialog.resize(500, 140);
    }
    const VTAddColorSchemeGroupDialog dialog(QStringLiteral("x"));
    QCOMPARE(dialog.size(), QSize(500, 140));
}

void tst_VTDialogLayout::spoiltValuesCountAsNone_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("large"));
    QTest::newRow("list") << QVariant(QStringList{"1", "2"});
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("below zero") << QVariant(-2000000000);
}

void tst_VTDialogLayout::spoiltValuesCountAsNone()
{
    QFETCH(QVariant, value);
    for (const char *key : {"enlargedBy", "nameWidth", "authorWidth"})
        settings->setValue(QStringLiteral("vtcontrolcolorscheme/manager/") + QLatin1String(key),
                           value);
    VTColorSchemeManager manager;
    const ManagerUser user(manager);
    QCOMPARE(manager.size(), QSize(790, 530));
    QCOMPARE(user.table->columnWidth(2), 100);
    QCOMPARE(user.table->columnWidth(3), 60);
}

void tst_VTDialogLayout::theScreenBoundsWhatIsRemembered()
{
    const QString manager = QStringLiteral("vtcontrolcolorscheme/manager/");
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    constexpr int most = std::numeric_limits<int>::max();
    settings->setValue(manager + QStringLiteral("enlargedBy"), QSize(most, most));
    settings->setValue(manager + QStringLiteral("nameWidth"), most);
    {
        VTColorSchemeManager large;
        const ManagerUser user(large);
        large.show();
        QVERIFY(large.width() <= qMax(room.width(), 790));
        QVERIFY(large.height() <= qMax(room.height(), 530));
        QVERIFY(user.table->columnWidth(2) <= room.width());
    }
    settings->setValue(manager + QStringLiteral("enlargedBy"), QSize(-most, -most));
    settings->setValue(manager + QStringLiteral("nameWidth"), 1);
    VTColorSchemeManager small;
    const ManagerUser user(small);
    small.show();
    QVERIFY(small.width() >= small.minimumSizeHint().width());
    QVERIFY(small.height() >= small.minimumSizeHint().height());
    QVERIFY(user.table->columnWidth(2) >= 25);
}

void tst_VTDialogLayout::settingsThatGoEndTheRemembering()
{
    leave(QSize(800, 600), 150, 90);
    VTColorSchemeManager manager;
    manager.show();
    settings.reset();
    manager.resize(700, 600);
    manager.hide();
    const VTColorSchemeManager next;
    QCOMPARE(next.size(), QSize(790, 530));
}

VT_TEST_MAIN(tst_VTDialogLayout)
#include "tst_VTDialogLayout.moc"
