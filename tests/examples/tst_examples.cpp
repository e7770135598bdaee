// The examples as a person runs them, but with a hand that presses their buttons: each is compiled
// into this program under another name than main().
#define main pickExample
#include "examples/pick.cpp"
#undef main
#define main previewExample
#include "examples/preview.cpp"
#undef main
#define main manageExample
#include "examples/manage.cpp"
#undef main
#define main editExample
#include "examples/edit.cpp"
#undef main
#define main rememberExample
#include "examples/remember.cpp"
#undef main
#define main honestExample
#include "examples/honest.cpp"
#undef main
#define main followExample
#include "examples/follow.cpp"
#undef main

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

using Main = int (*)(int, char **);

/// What to do with the first window that an example shows.
ModalDriver::Handler onWindow;
bool wasSeen = false;

/// Each example makes an application of its own; the driver goes with that.
void startDriver()
{
    auto *driver = new ModalDriver(ModalDriver::Unhurried, ModalDriver::AnyWindow, qApp);
    driver->next([](QWidget *window) {
        wasSeen = true;
        onWindow(window);
    });
}

int run(Main example, const ModalDriver::Handler &handler)
{
    onWindow = handler;
    wasSeen = false;
    char name[] = "example";
    char *arguments[] = {name, nullptr};
    const int status = example(1, arguments);
    return wasSeen ? status : -1;
}

void press(QWidget *window, const char *button)
{
    window->findChild<QPushButton *>(QLatin1String(button))->click();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startDriver)

class tst_examples : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void pickTellsWhatIsPicked();
    void previewShowsTheRamp();
    void manageEndsWithTheManager();
    void editKeepsTheResultOnOkOnly();
    void rememberHasTheChoiceAgain();
    void honestTellsAndBringsBack();
    void followShowsInBothWindowsWhatWasSaved();
    void noneIsLongerThanFortyLines();

private:
    std::unique_ptr<TestStore> store;
};

void tst_examples::pickTellsWhatIsPicked()
{
    QString told;
    unsigned int level = 0;
    QCOMPARE(run(&pickExample,
                 [&](QWidget *window) {
                     auto *picker = window->findChild<VTColorSchemeComboBox *>();
                     level = picker->currentColorRamp()->getLevel();
                     Q_EMIT picker->currentRampChanged();
                     for (const QLabel *label : window->findChildren<QLabel *>())
                         told += label->text();
                     window->close();
                 }),
             0);
    QVERIFY(level > 0);
    QVERIFY2(told.contains(QStringLiteral("%1 colors").arg(level)), qPrintable(told));
}

void tst_examples::previewShowsTheRamp()
{
    QImage strip;
    QCOMPARE(run(&previewExample,
                 [&](QWidget *window) {
                     strip = window->grab().toImage();
                     window->close();
                 }),
             0);
    QCOMPARE(strip.pixelColor(2, 20), QColor(0, 60, 48));
    QCOMPARE(strip.pixelColor(strip.width() - 3, 20), QColor(84, 48, 5));
}

void tst_examples::manageEndsWithTheManager()
{
    QCOMPARE(run(&manageExample, [](QWidget *window) { press(window, "pushButton_ok"); }), 0);
    QCOMPARE(run(&manageExample, [](QWidget *window) { press(window, "pushButton_cancel"); }), 1);
}

void tst_examples::editKeepsTheResultOnOkOnly()
{
    const auto &custom = VOColorSchemeManager::instance()->customTeam.groups;
    QCOMPARE(run(&editExample, [](QWidget *window) { press(window, "pushButton_cancel"); }), 1);
    QVERIFY(custom.empty());
    QCOMPARE(run(&editExample, [](QWidget *window) { press(window, "pushButton_ok"); }), 0);
    QCOMPARE(custom.size(), std::size_t(1));
}

void tst_examples::rememberHasTheChoiceAgain()
{
    auto &custom = VOColorSchemeManager::instance()->customTeam.groups;
    custom = {makeGroup("mine", {"a/b", "a/b"})};
    QStringList picked;
    const auto look = [&](QWidget *window) {
        auto *picker = window->findChild<VTColorSchemeComboBox *>();
        picked.append(picker->currentSchemeId().toText());
        picker->setCurrentScheme({L"Custom", L"mine", L"a/b"});
        window->close();
    };
    for (int start = 0; start < 2; ++start)
        QCOMPARE(run(&rememberExample, look), 0);
    QVERIFY(picked[0].startsWith("Default/DEM/"));
    QCOMPARE(picked[1], QString("Custom/mine/a%2Fb"));
    // Gone by the third start.
    custom.clear();
    QCOMPARE(run(&rememberExample, look), 0);
    QCOMPARE(picked[2], picked[0]);
}

void tst_examples::honestTellsAndBringsBack()
{
    VOColorSchemeManager &records = *VOColorSchemeManager::instance();
    const QString folder = store->storeDirectory();
    for (const char *name : {"first", "second"}) {
        records.customTeam.groups = {makeGroup("mine", {name})};
        QVERIFY(records.save());
    }
    QFile file(folder + "/favorite.team");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(!records.load());
    QStringList told;
    QCOMPARE(run(&honestExample,
                 [&](QWidget *window) {
                     const auto buttons = window->findChildren<QPushButton *>();
                     auto *list = window->findChild<QListWidget *>();
                     QVERIFY(QDir().rename(folder, folder + "-away"));
                     QFile inTheWay(folder);
                     QVERIFY(inTheWay.open(QIODevice::WriteOnly));
                     buttons[0]->click();
                     QVERIFY(inTheWay.remove());
                     QVERIFY(QDir().rename(folder + "-away", folder));
                     buttons[0]->click();
                     buttons[1]->click();
                     for (int row = 0; row < list->count(); ++row)
                         told.append(list->item(row)->text());
                     window->close();
                 }),
             0);
    QCOMPARE(told.size(), 3);
    QVERIFY2(told[0].contains(folder + "/damaged/favorite.team.1"), qPrintable(told[0]));
    QVERIFY2(told[1].startsWith("Not saved in " + folder), qPrintable(told[1]));
    QVERIFY2(told[2].startsWith("Brought back"), qPrintable(told[2]));
    QVERIFY(records.load());
    QVERIFY(records.find({L"Custom", L"mine", L"first"}));
    records.clearProblems();
}

void tst_examples::followShowsInBothWindowsWhatWasSaved()
{
    VOColorSchemeManager &records = *VOColorSchemeManager::instance();
    int windows = 0;
    int following = 0;
    QCOMPARE(run(&followExample,
                 [&](QWidget *) {
                     VOColorScheme &first =
                         records.defaultTeam.groups[std::size_t(records.defaultTeam.index("DEM"))]
                             .schemes[0];
                     first.describe = L"edited";
                     records.save();
                     for (QWidget *window : QApplication::topLevelWidgets()) {
                         auto *picker = window->findChild<VTColorSchemeComboBox *>();
                         if (!picker || !window->isVisible())
                             continue;
                         ++windows;
                         following += picker->currentScheme().describe == L"edited" ? 1 : 0;
                         window->close();
                     }
                 }),
             0);
    QCOMPARE(windows, 2);
    QCOMPARE(following, 2);
}

void tst_examples::noneIsLongerThanFortyLines()
{
    int examples = 0;
    const QDir folder(QFINDTESTDATA("../../examples"));
    for (const QFileInfo &file : folder.entryInfoList({"*.cpp"}, QDir::Files)) {
        QFile source(file.filePath());
        QVERIFY(source.open(QIODevice::ReadOnly));
        QVERIFY2(source.readAll().count('\n') < 40, qPrintable(file.fileName()));
        ++examples;
    }
    QCOMPARE(examples, 7);
}

VT_TEST_APPLESS_MAIN(tst_examples)
#include "tst_examples.moc"
