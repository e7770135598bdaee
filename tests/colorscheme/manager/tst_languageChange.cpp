#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/EditorUnderTest.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/Tagger.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QMovie>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <functional>

using VTObjects::toQString;
using VTObjects::VOColorSchemeManager;

/// Windows that are open while the language changes.
class tst_languageChange : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void anOpenWindowSaysWhatANewOneWould_data();
    void anOpenWindowSaysWhatANewOneWould();
    void theEditorKeepsWhatItsUserMade();
    void warningsAreTranslatedToo();
    void theTableKeepsWhatIsEditedInIt();
    void aHostsOwnTextsStay();
};

namespace {

const char *const nameProblem = "The name cannot be empty!";

void addItems(QStringList &texts, const QAbstractItemModel &model, const QModelIndex &parent)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column)
            texts.append(model.index(row, column, parent).data().toString());
        // The tables answer for every parent alike.
        if (qobject_cast<const QStandardItemModel *>(&model))
            addItems(texts, model, model.index(row, 0, parent));
    }
}

/// Everything that can be read in a window or is told to assistive tools.
QStringList textsOf(QObject *window)
{
    QStringList texts;
    QObjectList parts = window->findChildren<QObject *>();
    parts.prepend(window);
    for (const QObject *part : qAsConst(parts)) {
        for (const char *property : {"windowTitle", "title", "text", "toolTip", "accessibleName",
                                     "accessibleDescription", "placeholderText"}) {
            const QString text = part->property(property).toString();
            if (!text.isEmpty())
                texts.append(QString::fromLatin1(part->metaObject()->className()) + " " +
                             part->objectName() + "." + property + ": " + text);
        }
        if (const auto *box = qobject_cast<const QComboBox *>(part)) {
            for (int i = 0; i < box->count(); ++i)
                texts.append(box->itemText(i));
        }
        const auto *view = qobject_cast<const QAbstractItemView *>(part);
        if (!view || !view->model() || qobject_cast<const QHeaderView *>(view))
            continue;
        for (int i = 0; i < view->model()->columnCount(); ++i)
            texts.append(view->model()->headerData(i, Qt::Horizontal).toString());
        addItems(texts, *view->model(), QModelIndex());
    }
    texts.sort();
    return texts;
}

using Maker = std::function<std::shared_ptr<QWidget>()>;

std::shared_ptr<QWidget> editorOf(RampPointer ramp, EditorUnderTest::Mode mode)
{
    const auto test = std::make_shared<EditorUnderTest>(std::move(ramp), mode);
    return {test, &test->editor()};
}

} // namespace

Q_DECLARE_METATYPE(Maker)

void tst_languageChange::anOpenWindowSaysWhatANewOneWould_data()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("manager") << Maker([] { return std::make_shared<VTColorSchemeManager>(); });
    for (const auto mode : {EditorUnderTest::EditMode, EditorUnderTest::AddMode}) {
        for (int kind = 0; kind < 4; ++kind) {
            QTest::addRow("editor of kind %d%s", kind,
                          mode == EditorUnderTest::AddMode ? ", for a new scheme" : "")
                << Maker([=] {
                       return editorOf(rampOf(VTObjects::VOColorRamp::ColorRampType(kind)), mode);
                   });
        }
    }
    QTest::newRow("picker") << Maker([] {
        auto picker = std::make_shared<VTColorSchemeComboBox>(nullptr);
        picker->setDefaultGroup(QStringLiteral("Default"), QStringLiteral("DEM"), 0);
        return picker;
    });
    QTest::newRow("empty picker") << Maker(
        [] { return std::make_shared<VTColorSchemeComboBox>(nullptr); });
    QTest::newRow("name field") << Maker(
        [] { return std::make_shared<VTLineEditWidget>(nullptr); });
    QTest::newRow("add-group dialog") << Maker([] {
        return std::make_shared<VTAddColorSchemeGroupDialog>(QStringLiteral("Group"), nullptr);
    });
}

void tst_languageChange::anOpenWindowSaysWhatANewOneWould()
{
    QFETCH(Maker, make);
    const std::shared_ptr<QWidget> open = make();
    open->show();
    const QStringList before = textsOf(open.get());
    {
        const Tagger language;
        QCoreApplication::processEvents();
        const std::shared_ptr<QWidget> fresh = make();
        fresh->show();
        QCOMPARE(textsOf(open.get()), textsOf(fresh.get()));
        QVERIFY(textsOf(open.get()) != before);
    }
    QCoreApplication::processEvents();
    QCOMPARE(textsOf(open.get()), before);
}

void tst_languageChange::theEditorKeepsWhatItsUserMade()
{
    EditorUnderTest test(hsvRamp(7, EditorColors::someBounds, 12), EditorUnderTest::AddMode);
    test.editor().show();
    test.nameField()->setText(QStringLiteral("typed"));
    test.select({1});
    test.model()->colors[1] = Qt::red; // not previewed yet
    const QImage preview = test.preview();
    const QSize size = test.editor().size();
    const QVector<int> bounds = test.hsvValues();
    const Tagger language;
    QCoreApplication::processEvents();
    QCOMPARE(test.nameField()->text(), QStringLiteral("typed"));
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    QCOMPARE(test.preview(), preview);
    QCOMPARE(test.editor().size(), size);
    QCOMPARE(test.hsvValues(), bounds);
    QCOMPARE(test.part<QComboBox>("comboBox_type")->currentIndex(), 1);
    QCOMPARE(test.editor().windowTitle(), QStringLiteral("VTColorSchemeEditor:Add color scheme"));
    QCOMPARE(test.part<QAction>("actionAdd_color")->shortcut(), QKeySequence(Qt::Key_Insert));
}

void tst_languageChange::warningsAreTranslatedToo()
{
    EditorUnderTest test(evenRamp(EditorColors::someColors, 5));
    test.editor().show();
    test.nameField()->clear();
    QTest::keyClick(test.nameField(), Qt::Key_Space);
    QCOMPARE(test.warning(), QString::fromLatin1(nameProblem));
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("G"), nullptr);
    dialog.show();
    auto *field = dialog.findChild<VTLineEditWidget *>();
    QTest::keyClick(field->lineEdit(), Qt::Key_End);
    QTest::keyClick(field->lineEdit(), Qt::Key_Backspace);
    auto *icon = field->findChild<QLabel *>(QStringLiteral("label"));
    QCOMPARE(icon->toolTip(), QString::fromLatin1(nameProblem));
    const Tagger language;
    QCoreApplication::processEvents();
    QCOMPARE(test.warning(), QStringLiteral("VTColorSchemeEditor:") + nameProblem);
    QVERIFY(!test.ok()->isEnabled());
    QVERIFY(!icon->isHidden());
    QVERIFY(icon->movie());
    QCOMPARE(icon->movie()->state(), QMovie::Running);
    QCOMPARE(icon->toolTip(), QStringLiteral("VTAddColorSchemeGroupDialog:") + nameProblem);
    QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("pushButton_ok"))->isEnabled());
}

void tst_languageChange::theTableKeepsWhatIsEditedInIt()
{
    open();
    user->click(1, 0);
    manager->show();
    user->table->edit(user->model->index(0, 2));
    auto *field = user->table->findChild<VTLineEditWidget *>();
    QVERIFY(field);
    field->lineEdit()->selectAll();
    QTest::keyClick(field->lineEdit(), Qt::Key_Backspace);
    auto *icon = field->findChild<QLabel *>(QStringLiteral("label"));
    QCOMPARE(icon->toolTip(), QString::fromLatin1(nameProblem));
    QSignalSpy information(user->table, &VTColorSchemeView::information);
    const QModelIndex current = user->tree->currentIndex();
    const Tagger language;
    QCoreApplication::processEvents();
    QCOMPARE(user->table->findChild<VTLineEditWidget *>(), field);
    QCOMPARE(field->lineEdit()->text(), QString());
    QCOMPARE(icon->toolTip(), QStringLiteral("VTColorSchemeView:") + nameProblem);
    QVERIFY(information.isEmpty());
    QVERIFY(!user->ok->isEnabled());
    QCOMPARE(user->tree->currentIndex(), current);
}

void tst_languageChange::aHostsOwnTextsStay()
{
    VTColorSchemeComboBox picker(nullptr);
    picker.setAccessibleName(QStringLiteral("Colors of the lakes"));
    open();
    user->click(0, 0);
    const auto *model = qobject_cast<const QStandardItemModel *>(user->tree->model());
    model->item(0)->child(0)->setText(QStringLiteral("Lakes"));
    const Tagger language;
    QCoreApplication::processEvents();
    QCOMPARE(picker.accessibleName(), QStringLiteral("Colors of the lakes"));
    QCOMPARE(user->groups(0).at(0), QStringLiteral("Lakes"));
    QVERIFY(user->groups(0).at(1).startsWith(QLatin1String("VTColorSchemeManager:")));
    QCOMPARE(user->groups(1).at(0),
             toQString(VOColorSchemeManager::instance()->customTeam.groups[0].name));
}

VT_TEST_MAIN(tst_languageChange)
#include "tst_languageChange.moc"
