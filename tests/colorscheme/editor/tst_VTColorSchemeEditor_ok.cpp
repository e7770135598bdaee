#include "tests/support/EditorUnderTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QtTest>

#include <functional>

using namespace EditorColors;
using namespace VTObjects;

namespace {

void type(QLineEdit *field, const QString &text)
{
    const bool onKeyboard = std::all_of(text.cbegin(), text.cend(),
                                        [](QChar letter) { return letter.unicode() < 128; });
    if (onKeyboard) {
        QTest::keyClicks(field, text);
        return;
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(field, &event);
}

} // namespace

class tst_VTColorSchemeEditor_ok : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void anUnusableNameIsWarnedAbout_data();
    void anUnusableNameIsWarnedAbout();
    void theNewSchemesOwnNameCountsAsTaken();
    void theWarningGoesWithTheReason();
    void theNameIsNotCheckedBeforeItIsEdited();

    void okWritesTheScheme();
    void okStoresTheNameUntrimmed();
    void okReplacesTheRampAndLeavesTheOtherSchemes();
    void theOldRampGoesOnceTheNewOneStandsInItsPlace();
    void cancelLeavesAnEditedScheme();
    void cancelRemovesANewScheme();
    void cancelRemovesANewSchemeWhereverItStands();
    void escapeAndTheTitleBarLeaveANewScheme_data();
    void escapeAndTheTitleBarLeaveANewScheme();
    void escapeLeavesAnEditedScheme();
    void savingIsNotItsBusiness();

private:
    std::unique_ptr<TestStore> store;
};

void tst_VTColorSchemeEditor_ok::anUnusableNameIsWarnedAbout_data()
{
    QTest::addColumn<bool>("added");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("warning");
    const QString empty = QStringLiteral("The name cannot be empty!");
    const QString taken = QStringLiteral("The name already exists!");
    for (const bool added : {false, true}) {
        const char *mode = added ? "adding" : "editing";
        QTest::addRow("%s: nothing left", mode) << added << QString() << empty;
        QTest::addRow("%s: blanks only", mode) << added << QString("   ") << empty;
        QTest::addRow("%s: a new name", mode) << added << QString("Fresh") << QString();
        QTest::addRow("%s: another scheme's name", mode) << added << QString("After") << taken;
        QTest::addRow("%s: another scheme's name in blanks", mode)
            << added << QString("  Before ") << taken;
        QTest::addRow("%s: another letter case", mode) << added << QString("AFTER") << QString();
        QTest::addRow("%s: blanks around a new name", mode)
            << added << QString(" Fresh ") << QString();
        QTest::addRow("%s: a name of many scripts", mode)
            << added << QString::fromUtf8("Höhe 高度 \U0001F30D") << QString();
    }
    QTest::newRow("editing: its own name") << false << QString("Mine") << QString();
    QTest::newRow("editing: its own name in blanks") << false << QString(" Mine ") << QString();
    QTest::newRow("adding: its own first name") << true << QString("add_scheme1") << taken;
}

void tst_VTColorSchemeEditor_ok::anUnusableNameIsWarnedAbout()
{
    QFETCH(bool, added);
    QFETCH(QString, typed);
    QFETCH(QString, warning);
    EditorUnderTest test(evenRamp(someColors, 6),
                         added ? EditorUnderTest::AddMode : EditorUnderTest::EditMode);
    test.nameField()->selectAll();
    QTest::keyClick(test.nameField(), Qt::Key_Delete);
    QCOMPARE(test.warning(), QStringLiteral("The name cannot be empty!"));
    type(test.nameField(), typed);
    QCOMPARE(test.nameField()->text(), typed);
    QCOMPARE(test.warning(), warning);
    QCOMPARE(test.ok()->isEnabled(), warning.isEmpty());
}

void tst_VTColorSchemeEditor_ok::theNewSchemesOwnNameCountsAsTaken()
{
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    QVERIFY(test.ok()->isEnabled());
    QTest::keyClicks(test.nameField(), QStringLiteral("x"));
    QVERIFY(test.ok()->isEnabled());
    QTest::keyClick(test.nameField(), Qt::Key_Backspace);
    QCOMPARE(test.nameField()->text(), QStringLiteral("add_scheme1"));
    QCOMPARE(test.warning(), QStringLiteral("The name already exists!"));
    QVERIFY(!test.ok()->isEnabled());
}

void tst_VTColorSchemeEditor_ok::theWarningGoesWithTheReason()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->selectAll();
    QTest::keyClicks(test.nameField(), QStringLiteral("After"));
    QVERIFY(!test.ok()->isEnabled());
    QTest::keyClicks(test.nameField(), QStringLiteral("wards"));
    QCOMPARE(test.warning(), QString());
    QVERIFY(test.ok()->isEnabled());
}

void tst_VTColorSchemeEditor_ok::theNameIsNotCheckedBeforeItIsEdited()
{
    VOColorSchemeGroup group =
        makeGroup(QStringLiteral("Group"), {QStringLiteral("Same"), QStringLiteral("Same")});
    VTColorSchemeEditor editor(1, &group, false, nullptr);
    QVERIFY(editor.findChild<QPushButton *>(QStringLiteral("pushButton_ok"))->isEnabled());
}

void tst_VTColorSchemeEditor_ok::okWritesTheScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->setText(QString::fromUtf8("Höhe \U0001F30D"));
    test.part<QLineEdit>("lineEdit_author")->setText(QStringLiteral("An author"));
    test.part<QLineEdit>("lineEdit_describe")->setText(QStringLiteral("A description"));
    test.box("spinBox_level")->setValue(77);
    QSignalSpy accepted(&test.editor(), &QDialog::accepted);
    QTest::mouseClick(test.ok(), Qt::LeftButton);
    QCOMPARE(accepted.size(), 1);
    QCOMPARE(test.editor().result(), int(QDialog::Accepted));
    QCOMPARE(toQString(test.scheme().name), QString::fromUtf8("Höhe \U0001F30D"));
    QCOMPARE(toQString(test.scheme().author), QStringLiteral("An author"));
    QCOMPARE(toQString(test.scheme().describe), QStringLiteral("A description"));
    QCOMPARE(outputColors(test.scheme().colorRamp), outputColors(evenRamp(someColors, 77).get()));
}

void tst_VTColorSchemeEditor_ok::okStoresTheNameUntrimmed()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->selectAll();
    QTest::keyClicks(test.nameField(), QStringLiteral(" Fresh "));
    QTest::mouseClick(test.ok(), Qt::LeftButton);
    QCOMPARE(toQString(test.scheme().name), QStringLiteral(" Fresh "));
}

void tst_VTColorSchemeEditor_ok::okReplacesTheRampAndLeavesTheOtherSchemes()
{
    bool gone = false;
    class WatchedRamp : public VOEvenColorRamp
    {
    public:
        explicit WatchedRamp(bool &goneFlag)
            : gone(goneFlag)
        {
        }
        ~WatchedRamp() override { gone = true; }

    private:
        bool &gone;
    };
    auto ramp = std::make_unique<WatchedRamp>(gone);
    ramp->split(3);
    EditorUnderTest test(std::move(ramp));
    const VOColorRamp *other = test.group.schemes[0].colorRamp;
    test.run("onPreview");
    QVERIFY(!gone);
    QVERIFY(test.storedByOk());
    QVERIFY(gone);
    QCOMPARE(test.group.schemes.size(), std::size_t(3));
    QCOMPARE(test.group.schemes[0].colorRamp, other);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ok::theOldRampGoesOnceTheNewOneStandsInItsPlace()
{
    class AskingRamp : public VOEvenColorRamp
    {
    public:
        explicit AskingRamp(std::function<void()> onGoing)
            : going(std::move(onGoing))
        {
        }
        ~AskingRamp() override { going(); }

    private:
        std::function<void()> going;
    };
    const VOColorScheme *scheme = nullptr;
    QString seen;
    auto ramp = std::make_unique<AskingRamp>([&] {
        if (scheme->colorRamp->category() == VOColorRamp::RandomRamp)
            seen = toQString(scheme->name);
    });
    ramp->split(3);
    EditorUnderTest test(std::move(ramp));
    scheme = &test.scheme();
    test.nameField()->setText(QStringLiteral("Other"));
    test.chooseType(VOColorRamp::RandomRamp);
    test.run("onOk");
    QCOMPARE(seen, QStringLiteral("Other"));
}

void tst_VTColorSchemeEditor_ok::cancelLeavesAnEditedScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    const VOColorRamp *ramp = test.scheme().colorRamp;
    test.nameField()->setText(QStringLiteral("Other"));
    test.chooseType(VOColorRamp::RandomRamp);
    test.run("onAddColor");
    QSignalSpy rejected(&test.editor(), &QDialog::rejected);
    QTest::mouseClick(test.part<QPushButton>("pushButton_cancel"), Qt::LeftButton);
    QCOMPARE(rejected.size(), 1);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
    QCOMPARE(test.scheme().colorRamp, ramp);
    QCOMPARE(outputColors(test.scheme().colorRamp), outputColors(evenRamp(someColors, 6).get()));
}

void tst_VTColorSchemeEditor_ok::cancelRemovesANewScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    QSignalSpy rejected(&test.editor(), &QDialog::rejected);
    QTest::mouseClick(test.part<QPushButton>("pushButton_cancel"), Qt::LeftButton);
    QCOMPARE(rejected.size(), 1);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ok::cancelRemovesANewSchemeWhereverItStands()
{
    VOColorSchemeGroup group = makeGroup(
        QStringLiteral("Group"), {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    VTColorSchemeEditor editor(1, &group, true, nullptr);
    QVERIFY(QMetaObject::invokeMethod(&editor, "onClose"));
    QCOMPARE(schemeNames(group), QStringList({"A", "C"}));
}

void tst_VTColorSchemeEditor_ok::escapeAndTheTitleBarLeaveANewScheme_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Escape") << true;
    QTest::newRow("the title bar's button") << false;
}

void tst_VTColorSchemeEditor_ok::escapeAndTheTitleBarLeaveANewScheme()
{
    QFETCH(bool, escape);
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    const VOColorRamp *ramp = test.scheme().colorRamp;
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        test.run("onAddColor");
        if (escape)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            window->close();
    });
    QCOMPARE(test.editor().exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After", "add_scheme1"}));
    QCOMPARE(test.scheme().colorRamp, ramp);
}

void tst_VTColorSchemeEditor_ok::escapeLeavesAnEditedScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        test.nameField()->setText(QStringLiteral("Other"));
        QTest::keyClick(window, Qt::Key_Escape);
    });
    QCOMPARE(test.editor().exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ok::savingIsNotItsBusiness()
{
    VOColorSchemeManager *records = VOColorSchemeManager::instance();
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Own"), {QStringLiteral("A")}));
    QVERIFY(records->save());
    {
        VTColorSchemeEditor editor(0, &records->customTeam.groups.back(), false, nullptr);
        editor.findChild<QLineEdit *>(QStringLiteral("lineEdit"))->setText(QStringLiteral("B"));
        QVERIFY(QMetaObject::invokeMethod(&editor, "onOk"));
        QCOMPARE(schemeNames(records->customTeam.groups.back()), QStringList({"B"}));
    }
    QVERIFY(records->load());
    QCOMPARE(schemeNames(records->customTeam.groups.back()), QStringList({"A"}));
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_ok)
#include "tst_VTColorSchemeEditor_ok.moc"
