#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTColorSchemeView.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/manager/VtColorSchemeNameDelegate.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/Tagger.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/ViewTest.h"
#include "vomap/VOEvenColorRamp.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using vtcontrolcolorscheme::describeColorRamp;
using VTObjects::rgb_color;
using VTObjects::VOColorRamp;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOEvenColorRamp;

namespace {

/// Remembers which ramps were asked for colours.
class AskedRamp : public VOEvenColorRamp
{
public:
    AskedRamp()
    {
        rgb_color<float> sources[] = {{0, 0, 0}, {255, 255, 255}};
        setSourceColor(2, sources);
        split(5);
    }
    VOColorRamp *clone() override { return new AskedRamp(*this); }
    unsigned int getLevel() override
    {
        asked.insert(this);
        return VOEvenColorRamp::getLevel();
    }
    static QSet<const AskedRamp *> asked;
};

QSet<const AskedRamp *> AskedRamp::asked;

} // namespace

class tst_VTColorSchemeView : public ViewTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void itStartsWithoutAGroup();
    void itsColumnsAndRowsAreOfFixedMeasure();
    void wholeRowsAreSelectedInAnyNumber();
    void namesAloneHaveAnEditorOfTheirOwn();
    void settingAGroupCopiesIt();
    void selectedRowsAreReadAscendingAndOnce();
    void rowsSelectedInPartDoNotCount();
    void aDoubleClickOpensTheEditorOnNumberAndPreviewOnly_data();
    void aDoubleClickOpensTheEditorOnNumberAndPreviewOnly();
    void anAcceptedEditorRepaintsTheWholeTable();
    void aCanceledEditorChangesNothing();
    void withoutAManagerThereIsNoMenu();
    void theDelegateEditsByTheEditRole();
    void keysInAFieldAreNotForItsRow_data();
    void keysInAFieldAreNotForItsRow();
    void onlyVisibleRowsRenderTheirPreviews();
    void assistiveToolsHearOfTheCurrentRow();
    void aRowThatIsGoneIsNotEdited();
    void theDelegateBearsMissingPartners();
    void itsTextsAreTranslatedUnderTheirClass();
    void aNameIsJudgedByTheRowThatItsEditorKeeps_data();
    void aNameIsJudgedByTheRowThatItsEditorKeeps();
};

void tst_VTColorSchemeView::itStartsWithoutAGroup()
{
    QCOMPARE(view->groupIndex, -1);
    QCOMPARE(view->model(), view->schemeModel());
    QCOMPARE(view->schemeModel()->parent(), view.get());
    QCOMPARE(view->schemeModel()->rowCount(), 0);
}

void tst_VTColorSchemeView::itsColumnsAndRowsAreOfFixedMeasure()
{
    QCOMPARE(view->columnWidth(0), 25);
    QCOMPARE(view->columnWidth(1), 265);
    QCOMPARE(view->columnWidth(2), 100);
    QCOMPARE(view->columnWidth(3), 60);
    QCOMPARE(view->iconSize(), QSize(260, 23));
    QCOMPARE(view->horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(view->horizontalHeader()->sectionResizeMode(1), QHeaderView::Fixed);
    for (int column = 2; column < 5; ++column)
        QCOMPARE(view->horizontalHeader()->sectionResizeMode(column), QHeaderView::Interactive);
}

void tst_VTColorSchemeView::wholeRowsAreSelectedInAnyNumber()
{
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(view->editTriggers(), QAbstractItemView::DoubleClicked);
}

void tst_VTColorSchemeView::namesAloneHaveAnEditorOfTheirOwn()
{
    for (int column = 0; column < 5; ++column) {
        const bool own = qobject_cast<VtColorSchemeNameDelegate *>(
                             view->itemDelegateForColumn(column)) != nullptr;
        QCOMPARE(own, column == 2);
    }
}

void tst_VTColorSchemeView::settingAGroupCopiesIt()
{
    const auto group = makeGroup("g", {"a"});
    view->setGroup(1, 7, group);
    QCOMPARE(view->teamKind, 1);
    QCOMPARE(view->groupIndex, 7);
    QCOMPARE(schemeNames(view->schemeModel()->group()), QStringList{"a"});
    view->schemeModel()->group().schemes.clear();
    QCOMPARE(schemeNames(group), QStringList{"a"});
}

void tst_VTColorSchemeView::selectedRowsAreReadAscendingAndOnce()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b", "c", "d", "e"}));
    QVERIFY(view->selectedRowNumbers().isEmpty());
    selectRows(*view, {4, 1, 2, 1});
    QCOMPARE(view->selectedRowNumbers(), (QVector<int>{1, 2, 4}));
    view->selectAll();
    QCOMPARE(view->selectedRowNumbers(), (QVector<int>{0, 1, 2, 3, 4}));
}

void tst_VTColorSchemeView::rowsSelectedInPartDoNotCount()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b", "c"}));
    QItemSelectionModel *selection = view->selectionModel();
    selection->select(view->schemeModel()->index(0, 1), QItemSelectionModel::Select);
    QVERIFY(view->selectedRowNumbers().isEmpty());
    for (int column = 0; column < 5; ++column)
        selection->select(view->schemeModel()->index(2, column), QItemSelectionModel::Select);
    QCOMPARE(view->selectedRowNumbers(), QVector<int>{2});
}

void tst_VTColorSchemeView::aDoubleClickOpensTheEditorOnNumberAndPreviewOnly_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("opens");
    QTest::newRow("number") << 0 << true;
    QTest::newRow("preview") << 1 << true;
    QTest::newRow("name") << 2 << false;
    QTest::newRow("author") << 3 << false;
    QTest::newRow("description") << 4 << false;
    QTest::newRow("nothing") << -1 << false;
}

void tst_VTColorSchemeView::aDoubleClickOpensTheEditorOnNumberAndPreviewOnly()
{
    QFETCH(int, column);
    QFETCH(bool, opens);
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    QString shown;
    ModalDriver driver;
    if (opens)
        driver.next([&](QWidget *editor) {
            shown = editor->findChild<VTLineEditWidget *>(QStringLiteral("nameWidget"))
                        ->lineEdit()
                        ->text();
            editor->close();
        });
    Q_EMIT view->doubleClicked(view->schemeModel()->index(1, column));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(shown, opens ? QStringLiteral("b") : QString());
}

void tst_VTColorSchemeView::anAcceptedEditorRepaintsTheWholeTable()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    QSignalSpy changed(view->schemeModel(), &QAbstractItemModel::dataChanged);
    ModalDriver driver;
    driver.next([](QWidget *editor) {
        editor->findChild<VTLineEditWidget *>(QStringLiteral("nameWidget"))
            ->lineEdit()
            ->setText(QStringLiteral("edited"));
        pressNamed(QStringLiteral("pushButton_ok"))(editor);
    });
    view->onDoubleClicked(view->schemeModel()->index(1, 1));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(view->schemeModel()->group()), (QStringList{"a", "edited"}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), view->schemeModel()->index(1, 0));
    QVERIFY(!changed[0][1].toModelIndex().isValid());
}

void tst_VTColorSchemeView::aCanceledEditorChangesNothing()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    QSignalSpy changed(view->schemeModel(), &QAbstractItemModel::dataChanged);
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_cancel")));
    view->onDoubleClicked(view->schemeModel()->index(1, 0));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(schemeNames(view->schemeModel()->group()), (QStringList{"a", "b"}));
}

void tst_VTColorSchemeView::withoutAManagerThereIsNoMenu()
{
    view->setGroup(1, 0, makeGroup("g", {"a"}));
    view->show();
    view->selectRow(0);
    const QPoint place = view->visualRect(view->schemeModel()->index(0, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place);
    QCoreApplication::sendEvent(view->viewport(), &event);
    QVERIFY(!QApplication::activePopupWidget());
    view->onFavorite();
    QCOMPARE(view->schemeModel()->rowCount(), 1);
}

void tst_VTColorSchemeView::theDelegateEditsByTheEditRole()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    const QModelIndex index = view->schemeModel()->index(1, 2);
    QAbstractItemDelegate *delegate = view->itemDelegateForColumn(2);
    QWidget parent;
    QStyleOptionViewItem option;
    option.rect = QRect(3, 4, 100, 24);
    auto *editor = qobject_cast<VTLineEditWidget *>(delegate->createEditor(&parent, option, index));
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    QCOMPARE(editor->data(), QVariant(1));
    delegate->setEditorData(editor, index);
    QCOMPARE(editor->lineEdit()->text(), QStringLiteral("b"));
    delegate->updateEditorGeometry(editor, option, index);
    QCOMPARE(editor->geometry(), option.rect);

    QSignalSpy information(view.get(), &VTColorSchemeView::information);
    editor->lineEdit()->selectAll();
    QTest::keyClicks(editor->lineEdit(), QStringLiteral(" a"));
    QCOMPARE(information.last().first(), QVariant(false));
    QCOMPARE(editor->findChild<QLabel *>(QStringLiteral("label"))->toolTip(),
             QStringLiteral("The name already exists!"));
    QTest::keyClicks(editor->lineEdit(), QStringLiteral("c "));
    QCOMPARE(information.last().first(), QVariant(true));
    // What is typed is stored with its blanks.
    delegate->setModelData(editor, view->schemeModel(), index);
    QCOMPARE(schemeNames(view->schemeModel()->group()), (QStringList{"a", " ac "}));
}

void tst_VTColorSchemeView::keysInAFieldAreNotForItsRow_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << int(key);
}

// Of a field that the view has not opened itself, and therefore does not know of.
void tst_VTColorSchemeView::keysInAFieldAreNotForItsRow()
{
    QFETCH(int, key);
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    const QModelIndex name = view->schemeModel()->index(1, 2);
    view->setCurrentIndex(name);
    auto *field = qobject_cast<VTLineEditWidget *>(
        view->itemDelegateForColumn(2)->createEditor(view->viewport(), {}, name));
    QVERIFY(field);
    ModalDriver driver;
    QTest::keyClick(field->lineEdit(), Qt::Key(key));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(view->viewport()->findChildren<VTLineEditWidget *>().size(), 1);
    // The next one is.
    if (key != Qt::Key_F2)
        driver.next([](QWidget *editor) { editor->close(); });
    QTest::keyClick(view.get(), Qt::Key(key));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(view->viewport()->findChildren<VTLineEditWidget *>().size(),
             key == Qt::Key_F2 ? 2 : 1);
}

void tst_VTColorSchemeView::onlyVisibleRowsRenderTheirPreviews()
{
    VOColorSchemeGroup group;
    group.schemes.resize(10000);
    for (VOColorScheme &scheme : group.schemes)
        scheme.colorRamp = new AskedRamp;
    view->setGroup(1, 0, group);
    view->resize(600, 400);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    AskedRamp::asked.clear();
    QVERIFY(!view->grab().isNull());
    const int visible = view->viewport()->height() / view->rowHeight(0) + 1;
    QVERIFY(!AskedRamp::asked.isEmpty());
    QVERIFY2(AskedRamp::asked.size() <= visible, qPrintable(QString::number(visible)));
    // Nor does selecting, scrolling or leaving the selection ask the others.
    AskedRamp::asked.clear();
    view->selectAll();
    view->scrollToBottom();
    view->clearSelection();
    QVERIFY(!view->grab().isNull());
    QVERIFY(AskedRamp::asked.size() <= 2 * visible);
}

void tst_VTColorSchemeView::assistiveToolsHearOfTheCurrentRow()
{
    auto group = makeGroup("g", {"a", "b"});
    delete group.schemes[1].colorRamp;
    group.schemes[1].colorRamp = nullptr;
    view->setGroup(1, 0, group);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(view.get());
    QVERIFY(interface);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Color schemes"));
    view->selectRow(0);
    QCOMPARE(interface->text(QAccessible::Description),
             describeColorRamp(group.schemes[0].colorRamp));
    view->selectRow(1);
    QCOMPARE(interface->text(QAccessible::Description), describeColorRamp(nullptr));
    view->setGroup(1, 0, makeGroup("g", {"a", "b", "c"}));
    QCOMPARE(interface->text(QAccessible::Description), QString());
    auto *ramp = view->schemeModel()->group().schemes[1].colorRamp;
    ramp->setColor(0, {0, 0, 0});
    view->selectRow(0);
    view->schemeModel()->removeScheme(0, QModelIndex());
    QCOMPARE(interface->text(QAccessible::Description), describeColorRamp(ramp));
    view->schemeModel()->group().schemes[0].colorRamp->deleteAll();
    Q_EMIT view->schemeModel()->dataChanged(view->currentIndex(), QModelIndex());
    QCOMPARE(interface->text(QAccessible::Description), describeColorRamp(nullptr));
    view->setGroup(1, 1, makeGroup("empty", {}));
    QCOMPARE(interface->text(QAccessible::Description), QString());
}

void tst_VTColorSchemeView::aRowThatIsGoneIsNotEdited()
{
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    const QModelIndex lost = view->schemeModel()->index(1, 1);
    view->schemeModel()->group().schemes.pop_back();
    ModalDriver driver;
    driver.next(pressNamed(QStringLiteral("pushButton_ok")));
    view->onDoubleClicked(lost);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(view->schemeModel()->group()), QStringList{"a"});
}

void tst_VTColorSchemeView::theDelegateBearsMissingPartners()
{
    VtColorSchemeNameDelegate delegate(nullptr);
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    const QModelIndex index = view->schemeModel()->index(1, 2);
    const QStyleOptionViewItem option;
    QWidget parent;
    QPointer<QWidget> editor = delegate.createEditor(&parent, option, index);
    QVERIFY(editor);
    delegate.setEditorData(editor, QModelIndex());
    QCOMPARE(qobject_cast<VTLineEditWidget *>(editor)->lineEdit()->text(), QString());
    delegate.setEditorData(nullptr, index);
    delegate.setModelData(editor, nullptr, index);
    delegate.setModelData(nullptr, view->schemeModel(), index);
    QCOMPARE(schemeNames(view->schemeModel()->group()), (QStringList{"a", "b"}));
    delegate.updateEditorGeometry(nullptr, option, index);
    delegate.destroyEditor(editor, index);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
}

void tst_VTColorSchemeView::itsTextsAreTranslatedUnderTheirClass()
{
    const Tagger tagger;
    VTColorSchemeView other(nullptr);
    const QStringList titles{QString(), "VTColorSchemeModel:ColorRamp", "VTColorSchemeModel:Name",
                             "VTColorSchemeModel:Author", "VTColorSchemeModel:Describe"};
    for (int column = 0; column < titles.size(); ++column)
        QCOMPARE(other.schemeModel()->headerData(column, Qt::Horizontal).toString(),
                 titles[column]);
    auto *menu = other.findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(menu);
    QStringList texts;
    for (const QAction *action : menu->actions()) {
        texts.append(action->text());
        for (const QAction *below : action->menu() ? action->menu()->actions() : QList<QAction *>())
            texts.append(below->text());
    }
    QCOMPARE(texts, (QStringList{"VTColorSchemeView:Copy to", "VTColorSchemeView:Default",
                                 "VTColorSchemeView:Custom", "VTColorSchemeView:Export",
                                 "VTColorSchemeView:Favorite"}));
    QCOMPARE(menu->actions().first()->menu()->parent(), menu);
    ModalDriver driver;
    driver.next(expectBox(QStringLiteral("VTColorSchemeView:Export color scheme"),
                          QStringLiteral("VTColorSchemeView:No color scheme selected!"),
                          QMessageBox::Close));
    other.onExportScheme();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeView::aNameIsJudgedByTheRowThatItsEditorKeeps_data()
{
    QTest::addColumn<QVariant>("row");
    QTest::addColumn<bool>("ok");
    QTest::newRow("its own") << QVariant(0) << true;
    QTest::newRow("another's") << QVariant(1) << false;
    QTest::newRow("negative") << QVariant(-1) << false;
    QTest::newRow("gone") << QVariant(1000000) << false;
    QTest::newRow("none means the first") << QVariant() << true;
}

void tst_VTColorSchemeView::aNameIsJudgedByTheRowThatItsEditorKeeps()
{
    QFETCH(QVariant, row);
    QFETCH(bool, ok);
    view->setGroup(1, 0, makeGroup("g", {"a", "b"}));
    VTLineEditWidget field(nullptr);
    field.setData(row);
    connect(&field, SIGNAL(textEdited(QString)), view.get(), SLOT(onNameEdited(QString)));
    connect(&field, SIGNAL(editingFinished()), view.get(), SLOT(onNameEditingFinished()));
    QSignalSpy information(view.get(), &VTColorSchemeView::information);
    QTest::keyClick(field.lineEdit(), Qt::Key_A);
    QCOMPARE(information.count(), 1);
    QCOMPARE(information.last().first(), QVariant(ok));
    QTest::keyClick(field.lineEdit(), Qt::Key_Return);
    QCOMPARE(information.count(), 2);
    QCOMPARE(information.last().first(), QVariant(true));
    QCOMPARE(field.lineEdit()->text(), ok ? QStringLiteral("a") : QStringLiteral("rename_1"));
    // The reason stays to be read.
    QCOMPARE(field.findChild<QLabel *>(QStringLiteral("label"))->isHidden(), ok);
}

VT_TEST_MAIN(tst_VTColorSchemeView)
#include "tst_VTColorSchemeView.moc"
