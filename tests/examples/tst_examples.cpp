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

VT_TEST_APPLESS_MAIN(tst_examples)
#include "tst_examples.moc"
