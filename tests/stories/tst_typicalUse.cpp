#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/ManagerAtWork.h"
#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QTableView>
#include <QToolBar>
#include <QtTest>

#include <memory>

using namespace VTObjects;

/// What most people open the manager for.
class tst_typicalUse : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aSchemeIsMadeInTheEditorSavedAndPicked();
};

namespace {

/// Works an editor by mouse and keyboard: other colours, kind, level and name, then OK.
void makeScheme(VTColorSchemeEditor &editor)
{
    const auto clickCommand = [&editor](const char *name) {
        auto *action = editor.findChild<QAction *>(QLatin1String(name));
        QVERIFY(action);
        QTest::mouseClick(editor.findChild<QToolBar *>()->widgetForAction(action), Qt::LeftButton);
    };
    // A fourth colour, which a double click changes from the default
    clickCommand("actionAdd_color");
    auto *view = editor.findChild<QTableView *>(QStringLiteral("colorView"));
    auto *model = qobject_cast<VTColorModel *>(view->model());
    QVERIFY(model);
    QCOMPARE(model->rowCount(), 4);
    view->scrollTo(model->index(3, 1));
    const QPoint swatch = view->visualRect(model->index(3, 1)).center();
    ModalDriver driver;
    driver.next([](QWidget *menu) {
        QVERIFY(qobject_cast<VTColorMenu *>(menu));
        auto *field = menu->findChild<QLineEdit *>();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("#204080"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, swatch);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(model->colors.at(3), QColor(0x20, 0x40, 0x80));
    // All in reverse order
    clickCommand("actionColor_antitone");
    QCOMPARE(model->colors.first(), QColor(0x20, 0x40, 0x80));

    auto *kind = editor.findChild<QComboBox *>(QStringLiteral("comboBox_type"));
    kind->setFocus();
    QTest::keyClick(kind, Qt::Key_Down);
    QCOMPARE(kind->currentText(), QStringLiteral("Predefine"));
    auto *level = editor.findChild<QSpinBox *>(QStringLiteral("spinBox_level"));
    level->setFocus();
    level->selectAll();
    QTest::keyClicks(level, QStringLiteral("6"));
    QTest::keyClick(level, Qt::Key_Tab);
    enterName(QStringLiteral("Reef"))(&editor);
}

/// What makeScheme() is meant to make.
VOColorScheme reef()
{
    rgb_color<float> sources[] = {{32, 64, 128}, {48, 95, 207}, {255, 255, 191}, {196, 69, 57}};
    auto ramp = std::make_unique<VOPredefineColorRamp>();
    ramp->setSourceColor(4, sources);
    ramp->split(6);
    VOColorScheme scheme;
    scheme.name = L"Reef";
    scheme.author = L"Admin";
    scheme.describe = L"Even";
    scheme.colorRamp = ramp.release();
    return scheme;
}

} // namespace

void tst_typicalUse::aSchemeIsMadeInTheEditorSavedAndPicked()
{
    // Given a store with a custom group, on the disk
    const TestStore store;
    auto *records = VOColorSchemeManager::instance();
    records->customTeam.groups = {makeGroup("Mine", {"a", "add_scheme4"})};
    QVERIFY(records->save());
    VOColorSchemeTeam expected = records->customTeam;
    const QByteArray before = dumpOfRecords();
    const auto filesBefore = filesBelow(store.storeDirectory());
    QCOMPARE(dumpByAnotherProcess(store.storeDirectory()), before);
    {
        // When the user picks the group
        ManagerAtWork work;
        work.show(1, 0);
        QCOMPARE(work.user.names(), (QStringList{"a", "add_scheme4"}));
        // and adds a scheme, named by number and with the default ramp at first
        work.command(
            "actionAdd_scheme", {[](QWidget *window) {
                auto *editor = qobject_cast<VTColorSchemeEditor *>(window);
                QVERIFY(editor);
                QCOMPARE(editor->windowTitle(), QStringLiteral("Add color scheme"));
                QCOMPARE(editor->findChild<VTLineEditWidget *>()->lineEdit()->text(),
                         QStringLiteral("add_scheme5"));
                QCOMPARE(
                    editor->findChild<QComboBox *>(QStringLiteral("comboBox_type"))->currentText(),
                    QStringLiteral("Even"));
                QCOMPARE(editor->findChild<QSpinBox *>(QStringLiteral("spinBox_level"))->value(),
                         10);
                makeScheme(*editor);
            }});
        QCOMPARE(work.user.names(), (QStringList{"a", "add_scheme4", "Reef"}));
        // then the manager has it, once another group is shown,
        work.show(0, 0);
        expected.groups[0].schemes.push_back(reef());
        QCOMPARE(dump(workingCopy(work.manager, 1)), dump(expected));
        // and neither the store nor the disk before OK
        QCOMPARE(dumpOfRecords(), before);
        QCOMPARE(filesBelow(store.storeDirectory()), filesBefore);
        work.finish(work.user.ok, {pressText(QStringLiteral("Yes"))});
        QCOMPARE(work.manager.result(), int(QDialog::Accepted));
    }
    // Then the store has it, and so has every other process,
    QCOMPARE(dump(records->customTeam), dump(expected));
    const QByteArray after = dumpOfRecords(records->defaultTeam, expected, records->favoriteTeam);
    QCOMPARE(dumpByAnotherProcess(store.storeDirectory()), after);
    // and a picker offers it.
    VTColorSchemeComboBox picker;
    QVERIFY(picker.setDefaultGroup("Custom", "Mine", 2));
    VOColorScheme picked = reef();
    delete picked.colorRamp;
    picked.colorRamp = picker.currentColorRamp()->clone();
    QCOMPARE(dump(picked), dump(reef()));
}

VT_TEST_MAIN(tst_typicalUse)
#include "tst_typicalUse.moc"
