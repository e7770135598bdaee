#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/model/colorConversion.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

#include <memory>

using namespace VTObjects;

namespace {

const QString userGroup = QStringLiteral("User define");

enum Answer { Ok, Cancel, Escape, Close };

void answerEditor(QWidget *editor, Answer answer)
{
    switch (answer) {
    case Ok:
        editor->findChild<QPushButton *>(QStringLiteral("pushButton_ok"))->click();
        break;
    case Cancel:
        editor->findChild<QPushButton *>(QStringLiteral("pushButton_cancel"))->click();
        break;
    case Escape:
        QTest::keyClick(editor, Qt::Key_Escape);
        break;
    case Close:
        editor->close();
    }
}

} // namespace

/// "User define" in the drop-down, from the press to the store.
class tst_userDefine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void editorOpensOnAFreshScheme();
    void acceptedSchemeIsCurrentToldAndSaved();
    void hearerIsToldBeforeTheStoreIsSaved();
    void rejectedFirstSchemeLeavesTheTeamAsItWas_data();
    void rejectedFirstSchemeLeavesTheTeamAsItWas();
    void rejectedSchemeOfAnOldGroup_data();
    void rejectedSchemeOfAnOldGroup();
    void nameIsNumberedWithinTheGroup_data();
    void nameIsNumberedWithinTheGroup();
    void changesOfTheHostMeanwhileAreKept();
    void withoutAPickerTheSchemeIsStillSaved();
    void schemeIsSavedThoughThePickerGoesMeanwhile();
    void dropDownOutlivesItsClosing();
    void theStoreTellsItOnce();
    void aFailedSaveIsToldOnceAndTheSchemeKept();

private:
    void userDefine(ModalDriver &driver, const ModalDriver::Handler &edit);
    VOColorSchemeGroup *group();

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QWidget> host;
    VTColorSchemeComboBox *picker = nullptr;
    VOColorSchemeManager *records = nullptr;
};

void tst_userDefine::init()
{
    store = std::make_unique<TestStore>();
    records = VOColorSchemeManager::instance();
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Mine"), {QStringLiteral("a")}));
    QVERIFY(records->saveCustomTeam());
    host = std::make_unique<QWidget>();
    host->setGeometry(200, 50, 400, 300);
    picker = new VTColorSchemeComboBox(host.get());
    picker->setGeometry(40, 60, 150, 24);
    host->show();
}

void tst_userDefine::cleanup()
{
    host.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

/// Opens the drop-down and presses its button; the editor is left to `edit`.
void tst_userDefine::userDefine(ModalDriver &driver, const ModalDriver::Handler &edit)
{
    driver.next(
        [](QWidget *opened) { QTest::mouseClick(DropDown(opened).userDefine, Qt::LeftButton); });
    driver.next(edit);
    picker->click();
}

VOColorSchemeGroup *tst_userDefine::group()
{
    const int index = records->customTeam.index(toVOString(userGroup));
    return index < 0 ? nullptr : &records->customTeam.groups[static_cast<std::size_t>(index)];
}

void tst_userDefine::editorOpensOnAFreshScheme()
{
    ModalDriver driver;
    userDefine(driver, [this](QWidget *editor) {
        QVERIFY(qobject_cast<VTColorSchemeEditor *>(editor));
        QVERIFY(editor->isModal());
        // A window of the desktop, and none of the picker: the toolkit keeps no parent then.
        QVERIFY(!editor->parentWidget());
        QCOMPARE(editor->findChild<QSpinBox *>(QStringLiteral("spinBox_level"))->value(), 10);
        QVERIFY(group());
        QCOMPARE(schemeNames(*group()), QStringList(QStringLiteral("add_scheme1")));
        const VOColorScheme &scheme = group()->schemes[0];
        QCOMPARE(toQString(scheme.author), QStringLiteral("Admin"));
        QCOMPARE(toQString(scheme.describe), QStringLiteral("Even"));
        QCOMPARE(scheme.colorRamp->category(), VOColorRamp::EvenRamp);
        QCOMPARE(scheme.colorRamp->getLevel(), 10U);
        auto *ramp = dynamic_cast<VOEvenColorRamp *>(scheme.colorRamp);
        QVERIFY(ramp);
        QCOMPARE(ramp->getSourceColorCount(), 3U);
        QCOMPARE(toQColor(ramp->getSourceColor(0)), QColor(196, 69, 57));
        QCOMPARE(toQColor(ramp->getSourceColor(1)), QColor(255, 255, 191));
        QCOMPARE(toQColor(ramp->getSourceColor(2)), QColor(48, 95, 207));
        answerEditor(editor, Cancel);
    });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_userDefine::acceptedSchemeIsCurrentToldAndSaved()
{
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    ModalDriver driver;
    for (int round = 1; round <= 2; ++round) {
        userDefine(driver, [round](QWidget *editor) {
            editor->findChild<QSpinBox *>(QStringLiteral("spinBox_level"))->setValue(round + 2);
            answerEditor(editor, Ok);
        });
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QCOMPARE(changed.count(), round);
        QCOMPARE(picker->currentColorRamp()->getLevel(), static_cast<unsigned int>(round) + 2);
        QVERIFY(picker->currentColorRamp() != group()->schemes.back().colorRamp);
    }
    const QStringList names{QStringLiteral("add_scheme1"), QStringLiteral("add_scheme2")};
    QCOMPARE(schemeNames(*group()), names);
    // The picker's drop-down now lists that group
    driver.next([&names](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), userGroup);
        QCOMPARE(DropDown(opened).names(), names);
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    // and the disk has it
    QVERIFY(records->load());
    QVERIFY(group());
    QCOMPARE(schemeNames(*group()), names);
    QCOMPARE(records->customTeam.groups.size(), std::size_t(2));
}

void tst_userDefine::hearerIsToldBeforeTheStoreIsSaved()
{
    // What the hearer does to the custom team is saved along.
    connect(picker, &VTColorSchemeComboBox::currentRampChanged, this,
            [this] { records->customTeam.groups[0].name = L"renamed"; });
    ModalDriver driver;
    userDefine(driver, [](QWidget *editor) { answerEditor(editor, Ok); });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(records->load());
    QCOMPARE(toQString(records->customTeam.groups[0].name), QStringLiteral("renamed"));
}

void tst_userDefine::rejectedFirstSchemeLeavesTheTeamAsItWas_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("Cancel") << int(Cancel);
    QTest::newRow("Escape") << int(Escape);
    QTest::newRow("title bar") << int(Close);
}

void tst_userDefine::rejectedFirstSchemeLeavesTheTeamAsItWas()
{
    QFETCH(int, answer);
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    VOColorRamp *const ramp = picker->currentColorRamp();
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    ModalDriver driver;
    userDefine(driver,
               [answer](QWidget *editor) { answerEditor(editor, static_cast<Answer>(answer)); });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(records->customTeam.groups.size(), std::size_t(1));
    QCOMPARE(schemeNames(records->customTeam.groups[0]), QStringList(QStringLiteral("a")));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(picker->currentColorRamp(), ramp);
}

void tst_userDefine::rejectedSchemeOfAnOldGroup_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("left");
    const QString old = QStringLiteral("add_scheme4");
    const QString fresh = QStringLiteral("add_scheme5");
    QTest::newRow("Cancel removes it") << int(Cancel) << QStringList{old};
    // Deliberate: leaving the editor by the keyboard or its title bar keeps the new scheme.
    QTest::newRow("Escape leaves it") << int(Escape) << QStringList{old, fresh};
    QTest::newRow("the title bar leaves it") << int(Close) << QStringList{old, fresh};
}

void tst_userDefine::rejectedSchemeOfAnOldGroup()
{
    QFETCH(int, answer);
    QFETCH(QStringList, left);
    records->customTeam.groups.push_back(makeGroup(userGroup, {QStringLiteral("add_scheme4")}));
    QVERIFY(records->saveCustomTeam());
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    ModalDriver driver;
    userDefine(driver,
               [answer](QWidget *editor) { answerEditor(editor, static_cast<Answer>(answer)); });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(group());
    QCOMPARE(schemeNames(*group()), left);
    QCOMPARE(changed.count(), 0);
    // Nothing was saved
    QVERIFY(records->load());
    QCOMPARE(schemeNames(*group()), QStringList(QStringLiteral("add_scheme4")));
}

void tst_userDefine::nameIsNumberedWithinTheGroup_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("next");
    const auto row = [](const char *name, const QStringList &names, const char *next) {
        QTest::newRow(name) << names << QString::fromLatin1(next);
    };
    row("empty group", {}, "add_scheme1");
    row("one", {QStringLiteral("add_scheme1")}, "add_scheme2");
    row("the greatest counts", {QStringLiteral("add_scheme7"), QStringLiteral("add_scheme3")},
        "add_scheme8");
    row("zero", {QStringLiteral("add_scheme0")}, "add_scheme1");
    row("bare", {QStringLiteral("add_scheme")}, "add_scheme1");
    row("no number", {QStringLiteral("add_scheme1x")}, "add_scheme1");
}

void tst_userDefine::nameIsNumberedWithinTheGroup()
{
    QFETCH(QStringList, names);
    QFETCH(QString, next);
    records->customTeam.groups[0] =
        makeGroup(QStringLiteral("Mine"), {QStringLiteral("add_scheme50")}); // does not count
    records->customTeam.groups.push_back(makeGroup(userGroup, names));
    ModalDriver driver;
    userDefine(driver, [](QWidget *editor) { answerEditor(editor, Ok); });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(*group()), names + QStringList(next));
}

void tst_userDefine::changesOfTheHostMeanwhileAreKept()
{
    // Given a host that changes the custom team while the editor is open
    ModalDriver driver;
    userDefine(driver, [this](QWidget *editor) {
        answerEditor(editor, Cancel);
        // the editor is closed, but the drop-down has not gone on yet
        records->customTeam.groups.pop_back();
        records->customTeam.groups.push_back(makeGroup(QStringLiteral("Host"), {}));
    });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    // Then only the group that was made for the new scheme may go
    QCOMPARE(records->customTeam.groups.size(), std::size_t(2));
    QCOMPARE(toQString(records->customTeam.groups[1].name), QStringLiteral("Host"));

    userDefine(driver, [this](QWidget *editor) {
        answerEditor(editor, Cancel);
        records->customTeam.groups.clear();
    });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(records->customTeam.groups.size(), std::size_t(0));
}

void tst_userDefine::withoutAPickerTheSchemeIsStillSaved()
{
    VTColorSchemeMenu menu(QString(), VOColorSchemeGroup(), nullptr);
    ModalDriver driver;
    driver.next([](QWidget *editor) { answerEditor(editor, Ok); });
    QVERIFY(QMetaObject::invokeMethod(&menu, "onCustomButtonClicked", Q_ARG(bool, false)));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(records->load());
    QVERIFY(group());
}

void tst_userDefine::schemeIsSavedThoughThePickerGoesMeanwhile()
{
    ModalDriver driver;
    userDefine(driver, [this](QWidget *editor) {
        delete picker;
        answerEditor(editor, Ok);
    });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(records->load());
    QVERIFY(group());
}

void tst_userDefine::dropDownOutlivesItsClosing()
{
    QPointer<QWidget> dropDown;
    ModalDriver driver;
    driver.next([&dropDown](QWidget *opened) {
        dropDown = opened;
        QTest::mouseClick(DropDown(opened).userDefine, Qt::LeftButton);
    });
    driver.next([&dropDown](QWidget *editor) {
        // The modal editor has closed it, but the press is still being handled
        QVERIFY(dropDown);
        QVERIFY(!dropDown->isVisible());
        answerEditor(editor, Ok);
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!dropDown);
}

void tst_userDefine::theStoreTellsItOnce()
{
    const QSignalSpy changed(VOColorSchemeNotifier::instance(),
                             &VOColorSchemeNotifier::storeChanged);
    for (const Answer answer : {Ok, Cancel}) {
        ModalDriver driver;
        userDefine(driver, [&](QWidget *editor) {
            // The editor has a pointer into the store.
            QVERIFY(QFile::remove(store->storeDirectory() + "/custom.team"));
            QVERIFY(!records->reloadIfChanged());
            answerEditor(editor, answer);
        });
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QCOMPARE(changed.count(), 1);
        QVERIFY(records->saveCustomTeam());
        QCOMPARE(changed.count(), 1);
    }
    QCOMPARE(picker->currentSchemeId().toText(), QString("Custom/User%20define/add_scheme1"));
}

void tst_userDefine::aFailedSaveIsToldOnceAndTheSchemeKept()
{
    const QString folder = store->storeDirectory();
    QVERIFY(QDir().rename(folder, folder + "-away"));
    QFile inTheWay(folder);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const QSignalSpy failed(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed);
    records->clearProblems();
    ModalDriver driver;
    userDefine(driver, [](QWidget *editor) { answerEditor(editor, Ok); });
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed[0][0].toString(), folder);
    QCOMPARE(records->problems().size(), std::size_t(1));
    QCOMPARE(records->problems()[0].kind, VOStoreProblem::NotSaved);
    QCOMPARE(records->problems()[0].schemes, 2);
    QVERIFY(records->find(picker->currentSchemeId()));
    QVERIFY(inTheWay.remove());
    QVERIFY(QDir().rename(folder + "-away", folder));
    QVERIFY(records->saveCustomTeam());
    QVERIFY(records->problems().empty());
}

VT_TEST_MAIN(tst_userDefine)
#include "tst_userDefine.moc"
