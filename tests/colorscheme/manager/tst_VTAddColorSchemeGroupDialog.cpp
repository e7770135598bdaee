#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

#include <memory>

using VTObjects::VOColorSchemeManager;

class tst_VTAddColorSchemeGroupDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void itAsksForAGroupOfTheCustomTeam();
    void itsWindowCanOnlyBeClosed();
    void theKeyboardStartsAtTheProposedName();
    void emptyOrTakenNameIsWarnedAbout_data();
    void emptyOrTakenNameIsWarnedAbout();
    void theClearButtonIsTypingToo();
    void theWarningGoesWithTheNextGoodName();
    void aTakenProposalIsAcceptedAsItStands();
    void groupsThatAreNotSavedYetDoNotCountAsTaken();
    void okTakesTheNameAsTyped();
    void cancelLeavesNoName();
    void closingTheWindowKeepsTheProposedName();

private:
    std::unique_ptr<TestStore> store;
};

namespace {

template <typename Widget>
Widget *child(const QWidget &dialog, const char *name)
{
    return dialog.findChild<Widget *>(QLatin1String(name));
}

VTLineEditWidget *nameField(const QWidget &dialog)
{
    return child<VTLineEditWidget>(dialog, "widget_group_name");
}

void typeOver(const QWidget &dialog, const QString &text)
{
    QLineEdit *field = nameField(dialog)->lineEdit();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

QString warningOf(const QWidget &dialog)
{
    const auto *icon = child<QLabel>(*nameField(dialog), "label");
    return icon->isHidden() ? QString() : icon->toolTip();
}

} // namespace

void tst_VTAddColorSchemeGroupDialog::init()
{
    store = std::make_unique<TestStore>();
    VOColorSchemeManager::instance()->customTeam.groups.push_back(makeGroup("Taken", {}));
}

void tst_VTAddColorSchemeGroupDialog::cleanup()
{
    store.reset();
}

void tst_VTAddColorSchemeGroupDialog::itAsksForAGroupOfTheCustomTeam()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    QCOMPARE(dialog.objectName(), QStringLiteral("VTAddColorSchemeGroupDialog"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Add color scheme group"));
    QCOMPARE(dialog.size(), QSize(341, 117));
    QCOMPARE(dialog.groupName(), QStringLiteral("Custom group1"));

    auto *grid = dialog.findChild<QGridLayout *>(QStringLiteral("gridLayout"));
    QVERIFY(grid);
    auto *teamLabel = child<QLabel>(dialog, "label");
    QCOMPARE(grid->itemAtPosition(0, 0)->widget(), teamLabel);
    QCOMPARE(teamLabel->text(), QStringLiteral("Team name:"));
    auto *team = child<QLineEdit>(dialog, "lineEdit_team_name");
    QCOMPARE(grid->itemAtPosition(0, 1)->widget(), team);
    QCOMPARE(team->text(), QStringLiteral("Custom"));
    QVERIFY(team->isReadOnly());
    QCOMPARE(team->minimumHeight(), 22);
    QCOMPARE(team->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(team->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);

    auto *groupLabel = child<QLabel>(dialog, "label_2");
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), groupLabel);
    QCOMPARE(groupLabel->text(), QStringLiteral("Group name:"));
    QCOMPARE(grid->itemAtPosition(1, 1)->widget(), nameField(dialog));
    QCOMPARE(nameField(dialog)->minimumHeight(), 22);
    QCOMPARE(nameField(dialog)->maximumSize(), QSize(16777215, 22));
    QCOMPARE(nameField(dialog)->lineEdit()->text(), QStringLiteral("Custom group1"));
    QCOMPARE(warningOf(dialog), QString());

    auto *buttons = dialog.findChild<QHBoxLayout *>(QStringLiteral("horizontalLayout"));
    auto *ok = child<QPushButton>(dialog, "pushButton_ok");
    auto *cancel = child<QPushButton>(dialog, "pushButton_cancel");
    const QSpacerItem *spacer = buttons->itemAt(0)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    QCOMPARE(buttons->itemAt(1)->widget(), ok);
    QCOMPARE(buttons->itemAt(2)->widget(), cancel);
    QCOMPARE(ok->text(), QStringLiteral("Ok"));
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    QVERIFY(ok->isEnabled());
}

void tst_VTAddColorSchemeGroupDialog::itsWindowCanOnlyBeClosed()
{
    QWidget parent;
    VTAddColorSchemeGroupDialog dialog(QString(), &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    // The toolkit adds the title and its menu to any window with a button in it.
    const Qt::WindowFlags added = Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    QCOMPARE(dialog.windowFlags(), Qt::Dialog | Qt::WindowCloseButtonHint | added);
}

void tst_VTAddColorSchemeGroupDialog::theKeyboardStartsAtTheProposedName()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    ModalDriver driver;
    QString selected;
    driver.next([&](QWidget *window) {
        QVERIFY(QTest::qWaitForWindowActive(window));
        QCOMPARE(QApplication::focusWidget(), nameField(dialog)->lineEdit());
        selected = nameField(dialog)->lineEdit()->selectedText();
        window->close();
    });
    dialog.exec();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(selected, QStringLiteral("Custom group1"));
}

void tst_VTAddColorSchemeGroupDialog::emptyOrTakenNameIsWarnedAbout_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("warning");
    QTest::newRow("nothing left") << QString() << QString("The name cannot be empty!");
    QTest::newRow("taken") << QString("Taken") << QString("The name already exists!");
    QTest::newRow("blanks are a name") << QString("  ") << QString();
    QTest::newRow("taken but for a blank") << QString("Taken ") << QString();
    QTest::newRow("taken but for the case") << QString("taken") << QString();
    QTest::newRow("free") << QString("Free") << QString();
}

void tst_VTAddColorSchemeGroupDialog::emptyOrTakenNameIsWarnedAbout()
{
    QFETCH(QString, typed);
    QFETCH(QString, warning);
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    typeOver(dialog, typed);
    QCOMPARE(warningOf(dialog), warning);
    QCOMPARE(child<QPushButton>(dialog, "pushButton_ok")->isEnabled(), warning.isEmpty());
}

void tst_VTAddColorSchemeGroupDialog::theClearButtonIsTypingToo()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    dialog.show();
    auto *clear = nameField(dialog)->lineEdit()->findChild<QToolButton *>();
    QVERIFY(clear);
    QTest::mouseClick(clear, Qt::LeftButton);
    QCOMPARE(warningOf(dialog), QStringLiteral("The name cannot be empty!"));
    QVERIFY(!child<QPushButton>(dialog, "pushButton_ok")->isEnabled());
    // Nor does Return get past it.
    QTest::keyClick(nameField(dialog)->lineEdit(), Qt::Key_Return);
    QVERIFY(dialog.isVisible());
}

void tst_VTAddColorSchemeGroupDialog::theWarningGoesWithTheNextGoodName()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    typeOver(dialog, QStringLiteral("Taken"));
    QTest::keyClicks(nameField(dialog)->lineEdit(), QStringLiteral("2"));
    QCOMPARE(warningOf(dialog), QString());
    QVERIFY(child<QPushButton>(dialog, "pushButton_ok")->isEnabled());
    QTest::keyClick(nameField(dialog)->lineEdit(), Qt::Key_Backspace);
    QCOMPARE(warningOf(dialog), QStringLiteral("The name already exists!"));
    QVERIFY(!child<QPushButton>(dialog, "pushButton_ok")->isEnabled());
}

void tst_VTAddColorSchemeGroupDialog::aTakenProposalIsAcceptedAsItStands()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Taken"), nullptr);
    QCOMPARE(warningOf(dialog), QString());
    QTest::mouseClick(child<QPushButton>(dialog, "pushButton_ok"), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.groupName(), QStringLiteral("Taken"));
}

void tst_VTAddColorSchemeGroupDialog::groupsThatAreNotSavedYetDoNotCountAsTaken()
{
    // The manager holds its new groups back until OK; the check is against the store.
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    typeOver(dialog, QStringLiteral("Later"));
    QCOMPARE(warningOf(dialog), QString());
    VOColorSchemeManager::instance()->customTeam.groups.push_back(makeGroup("Later", {}));
    typeOver(dialog, QStringLiteral("Later"));
    QCOMPARE(warningOf(dialog), QStringLiteral("The name already exists!"));
}

void tst_VTAddColorSchemeGroupDialog::okTakesTheNameAsTyped()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    typeOver(dialog, QStringLiteral(" Rivers "));
    QCOMPARE(dialog.groupName(), QStringLiteral("Custom group1"));
    QTest::mouseClick(child<QPushButton>(dialog, "pushButton_ok"), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.groupName(), QStringLiteral(" Rivers "));
}

void tst_VTAddColorSchemeGroupDialog::cancelLeavesNoName()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    dialog.setResult(QDialog::Accepted);
    QTest::mouseClick(child<QPushButton>(dialog, "pushButton_cancel"), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(dialog.groupName(), QString());
}

void tst_VTAddColorSchemeGroupDialog::closingTheWindowKeepsTheProposedName()
{
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    ModalDriver driver;
    driver.next([](QWidget *window) { window->close(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(dialog.groupName(), QStringLiteral("Custom group1"));
}

VT_TEST_MAIN(tst_VTAddColorSchemeGroupDialog)
#include "tst_VTAddColorSchemeGroupDialog.moc"
