#include "colorscheme/manager/VTColorSchemeView.h"

#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "colorscheme/manager/OneLineDelegate_p.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/manager/VtColorSchemeNameDelegate.h"
#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/exportSchemes_p.h"
#include "colorscheme/manager/tableColumns_p.h"
#include "colorscheme/model/GeneratedName_p.h"
#include "colorscheme/model/cellText_p.h"
#include "colorscheme/model/lastOpenFilePath_p.h"
#include "colorscheme/model/messageBoxes_p.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>
#include <utility>

using vtcontrolcolorscheme::AuthorColumn;
using vtcontrolcolorscheme::describeColorRamp;
using vtcontrolcolorscheme::exportSchemes;
using vtcontrolcolorscheme::GeneratedName;
using vtcontrolcolorscheme::holdsTextOf;
using vtcontrolcolorscheme::lastOpenFilePath;
using vtcontrolcolorscheme::NameColumn;
using vtcontrolcolorscheme::NumberColumn;
using vtcontrolcolorscheme::OneLineDelegate;
using vtcontrolcolorscheme::RampColumn;
using vtcontrolcolorscheme::tablePreviewSize;
using vtcontrolcolorscheme::tellFailure;
using vtcontrolcolorscheme::tellSuccess;
using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;

namespace {

// Of a name's editor: whether the last word of it was told, and whether it is being closed.
constexpr char toldProperty[] = "told";
constexpr char endedProperty[] = "ended";

} // namespace

VTColorSchemeView::VTColorSchemeView(QWidget *parent)
    : QTableView(parent)
    , manager(qobject_cast<VTColorSchemeManager *>(parent))
{
    tableModel = new VTColorSchemeModel(this);
    setModel(tableModel);
    setItemDelegate(new OneLineDelegate(this));
    setItemDelegateForColumn(NameColumn, new VtColorSchemeNameDelegate(this));
    // Of a second line the rows have room for no more than a half.
    setWordWrap(false);

    // First of all: the style's minimum is wider than the first column.
    horizontalHeader()->setMinimumSectionSize(25);
    horizontalHeader()->setTextElideMode(Qt::ElideRight);
    setColumnWidth(NumberColumn, 25);
    setColumnWidth(RampColumn, 265);
    setColumnWidth(NameColumn, 100);
    setColumnWidth(AuthorColumn, 60);
    setIconSize(tablePreviewSize);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    horizontalHeader()->setSectionResizeMode(NumberColumn, QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(RampColumn, QHeaderView::Fixed);
    setEditTriggers(QAbstractItemView::DoubleClicked);
    setTabKeyNavigation(false);
    connect(this, &QTableView::doubleClicked, this, &VTColorSchemeView::onDoubleClicked);
    connect(tableModel, &QAbstractItemModel::dataChanged, this,
            &VTColorSchemeView::describeCurrentRow);
    connect(tableModel, &QAbstractItemModel::rowsRemoved, this,
            &VTColorSchemeView::describeCurrentRow);

    contextMenu = new QMenu(this);
    copyAction = new QAction(contextMenu);
    auto *copyMenu = new QMenu(contextMenu);
    defaultAction = new QAction(copyMenu);
    customAction = new QAction(copyMenu);
    copyMenu->addAction(defaultAction);
    copyMenu->addAction(customAction);
    copyAction->setMenu(copyMenu);
    exportAction = new QAction(contextMenu);
    connect(exportAction, &QAction::triggered, this, &VTColorSchemeView::onExportScheme);
    favoriteAction = new QAction(contextMenu);
    connect(favoriteAction, &QAction::triggered, this, &VTColorSchemeView::onFavorite);
    contextMenu->addActions({copyAction, exportAction, favoriteAction});
    setTexts();
}

VTColorSchemeView::~VTColorSchemeView()
{
    // An open editor talks to this view when it loses the keyboard.
    qDeleteAll(viewport()->findChildren<VTLineEditWidget *>());
    delete contextMenu;
}

void VTColorSchemeView::setGroup(int teamKind, const int &groupIndex,
                                 const VOColorSchemeGroup &group)
{
    this->teamKind = teamKind;
    this->groupIndex = groupIndex;
    tableModel->setGroup(group);
}

void VTColorSchemeView::reset()
{
    // The base drops an open editor without telling its delegate.
    const auto editors = viewport()->findChildren<VTLineEditWidget *>();
    for (VTLineEditWidget *editor : editors)
        endNaming(editor);
    QTableView::reset();
    describeCurrentRow();
}

QVector<int> VTColorSchemeView::selectedRowNumbers() const
{
    // The ranges and not selectedRows(), which takes a minute for some thousands of them.
    const int lastColumn = tableModel->columnCount() - 1;
    QVector<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        // Parts of rows come from code alone; telling which add up to whole ones is the model's.
        if (range.left() > 0 || range.right() < lastColumn) {
            rows.clear();
            for (const QModelIndex &index : selectionModel()->selectedRows())
                rows.append(index.row());
            break;
        }
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void VTColorSchemeView::showRows(int first, int last)
{
    const QModelIndex from = tableModel->index(first, 0);
    const QModelIndex to = tableModel->index(last, tableModel->columnCount() - 1);
    if (!from.isValid() || !to.isValid())
        return;
    selectRow(first); // so that it is the anchor of what the user selects next
    selectionModel()->select(QItemSelection(from, to), QItemSelectionModel::ClearAndSelect);
    scrollTo(tableModel->index(last, 0));
    scrollTo(from);
}

void VTColorSchemeView::onDoubleClicked(const QModelIndex &index)
{
    // The other columns are edited in place.
    if (!index.isValid() || index.column() > RampColumn)
        return;
    editScheme(index.row(), this);
}

bool VTColorSchemeView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (readOnly)
        return false;
    const bool isEdited = QTableView::edit(index, trigger, event);
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    if (field && viewport()->isAncestorOf(field) && !field->isModified()) {
        // The whole text stays selected, but what can be seen of a long one is its beginning.
        field->end(false);
        field->home(true);
    }
    return isEdited;
}

void VTColorSchemeView::editScheme(int row, QWidget *parent)
{
    if (readOnly)
        return;
    VTColorSchemeEditor editor(row, &tableModel->group(), false, parent);
    if (editor.exec() != QDialog::Accepted)
        return;
    WorkingCopies::markModified();
    // Deliberate: one column past the last, hence no index; the view then repaints everything.
    Q_EMIT tableModel->dataChanged(tableModel->index(row, 0),
                                   tableModel->index(row, tableModel->columnCount()));
}

void VTColorSchemeView::onExportScheme()
{
    finishEditing();
    const QVector<int> rows = selectedRowNumbers();
    if (rows.isEmpty()) {
        tellFailure(this, tr("Export color scheme"), tr("No color scheme selected!"));
        return;
    }
    const QString chosen = QFileDialog::getExistingDirectory(
        this, tr("Export color scheme"), lastOpenFilePath(),
        QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
    if (chosen.isEmpty())
        return;
    // Deliberate: the box does not say which files failed.
    if (exportSchemes(tableModel->group().schemes, rows, chosen))
        tellSuccess(this, tr("Export color scheme"), tr("Export color scheme successfully!"));
    else
        tellFailure(this, tr("Export color scheme"), tr("Failed to export color scheme!"));
}

void VTColorSchemeView::onFavorite()
{
    if (!manager)
        return;
    const QVector<int> rows = selectedRowNumbers();
    manager->onFavorite(QSet<int>(rows.cbegin(), rows.cend()));
}

bool VTColorSchemeView::viewportEvent(QEvent *event)
{
    // The keyboard is never there, but in this view or in a field on it.
    if (event->type() == QEvent::KeyPress)
        keyCameThroughViewport = true;
    return QTableView::viewportEvent(event);
}

void VTColorSchemeView::keyPressEvent(QKeyEvent *event)
{
    // What a field does not want comes here too, and is not meant for the row.
    const bool isFromField = std::exchange(keyCameThroughViewport, false);
    const bool isForTable = !isFromField && (state() != EditingState || hasFocus()) &&
                            !(event->modifiers() & ~Qt::KeypadModifier);
    const bool isForRow = isForTable && currentIndex().isValid();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Held since it answered another window or node: it is not for the dialog's default button
    // either.
    if (isForTable && isReturn && event->isAutoRepeat())
        return;
    if (isForRow && event->key() == Qt::Key_F2) {
        const QModelIndex name = currentIndex().siblingAtColumn(NameColumn);
        selectionModel()->setCurrentIndex(name, QItemSelectionModel::NoUpdate);
        if (!readOnly) // of which the base would complain
            edit(name);
        return;
    }
    QTableView::keyPressEvent(event);
    if (isForRow && isReturn) {
        event->accept(); // or the default button of the dialog would take it
        onDoubleClicked(currentIndex().siblingAtColumn(NumberColumn));
    }
}

void VTColorSchemeView::setTexts()
{
    setAccessibleName(tr("Color schemes"));
    copyAction->setText(tr("Copy to"));
    defaultAction->setText(tr("Default"));
    customAction->setText(tr("Custom"));
    exportAction->setText(tr("Export"));
    favoriteAction->setText(tr("Favorite"));
}

void VTColorSchemeView::changeEvent(QEvent *event)
{
    // Also asked for while the base is made or taken down.
    if (event->type() == QEvent::LanguageChange && favoriteAction) {
        setTexts();
        tableModel->retranslate();
        describeCurrentRow();
        const auto editors = viewport()->findChildren<VTLineEditWidget *>();
        for (VTLineEditWidget *editor : editors) {
            if (editor->hasWarning())
                judgeName(editor, editor->lineEdit()->text());
        }
    }
    QTableView::changeEvent(event);
}

void VTColorSchemeView::contextMenuEvent(QContextMenuEvent *event)
{
    if (!contextMenu || !manager || selectedRowNumbers().isEmpty())
        return;
    favoriteAction->setVisible(teamKind != FavoriteTeamNode);
    // Made afresh, since the groups may have changed. Those of the last time go now and not when
    // the menu is hidden: the command that an action of theirs runs starts after that.
    std::unique_ptr<QMenu> defaults(manager->defaultMenu());
    std::unique_ptr<QMenu> customs(manager->customMenu());
    defaultAction->setMenu(defaults.get());
    customAction->setMenu(customs.get());
    defaultGroups = std::move(defaults);
    customGroups = std::move(customs);
    if (!contextMenu->isEmpty())
        contextMenu->popup(event->globalPos());
}

void VTColorSchemeView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    describeCurrentRow();
}

void VTColorSchemeView::describeCurrentRow()
{
    const int row = currentIndex().row();
    const std::vector<VOColorScheme> &schemes = tableModel->group().schemes;
    const bool exists = row >= 0 && static_cast<std::size_t>(row) < schemes.size();
    setAccessibleDescription(
        exists ? describeColorRamp(schemes[static_cast<std::size_t>(row)].colorRamp) : QString());
}

void VTColorSchemeView::onNameEdited(const QString &name)
{
    auto *editor = qobject_cast<VTLineEditWidget *>(sender());
    if (!editor)
        return;
    editor->setProperty(toldProperty, false);
    Q_EMIT information(judgeName(editor, name));
}

bool VTColorSchemeView::judgeName(VTLineEditWidget *editor, const QString &name)
{
    if (name.isEmpty()) {
        editor->showWarning(tr("The name cannot be empty!"));
        return false;
    }
    const bool ok = tableModel->group().schemeNameChangeCheck(editor->data().toInt(),
                                                              toVOString(name.trimmed()));
    if (ok)
        editor->hideWarning();
    else
        editor->showWarning(tr("The name already exists!"));
    return ok;
}

void VTColorSchemeView::onNameEditingFinished()
{
    auto *editor = qobject_cast<VTLineEditWidget *>(sender());
    // A field that is taken down loses the keyboard, and would end once more.
    if (!editor || editor->property(endedProperty).toBool())
        return;
    makeNameUsable(editor);
    editor->setProperty(toldProperty, false);
    tellUsable(editor);
}

void VTColorSchemeView::makeNameUsable(VTLineEditWidget *editor)
{
    // A name that the scheme had before is no new one, whatever others are called.
    if (!editor || isUnchanged(*editor))
        return;
    const int row = editor->data().toInt();
    const QString name = editor->lineEdit()->text().trimmed();
    if (name.isEmpty() || !tableModel->group().schemeNameChangeCheck(row, toVOString(name)))
        editor->lineEdit()->setText(makeRenameName(row));
}

bool VTColorSchemeView::isUnchanged(const VTLineEditWidget &editor) const
{
    return holdsTextOf(*editor.lineEdit(), tableModel->index(editor.data().toInt(), NameColumn));
}

void VTColorSchemeView::tellUsable(VTLineEditWidget *editor)
{
    if (editor->property(toldProperty).toBool())
        return;
    editor->setProperty(toldProperty, true);
    Q_EMIT information(true);
}

void VTColorSchemeView::endNaming(VTLineEditWidget *editor)
{
    tellUsable(editor);
    editor->setProperty(endedProperty, true);
}

QString VTColorSchemeView::makeRenameName(int row) const
{
    GeneratedName name(QStringLiteral("rename_"));
    const std::vector<VOColorScheme> &schemes = tableModel->group().schemes;
    for (std::size_t i = 0; i < schemes.size(); ++i) {
        if (static_cast<int>(i) != row)
            name.add(toQString(schemes[i].name));
    }
    return name.next();
}

void VTColorSchemeView::finishEditing()
{
    // Whatever is visible on the viewport is an editor.
    for (QWidget *editor :
         viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (editor->isHidden())
            continue;
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void VTColorSchemeView::commitData(QWidget *editor)
{
    // The view commits also when nothing has told it that the editing is over, for example when
    // another row becomes the current one. A bad name must not get through then either.
    if (auto *nameEditor = qobject_cast<VTLineEditWidget *>(editor)) {
        if (nameEditor->property(endedProperty).toBool())
            return;
        makeNameUsable(nameEditor);
        tellUsable(nameEditor);
        // What is not changed must not make the data modified.
        if (isUnchanged(*nameEditor))
            return;
    }
    QTableView::commitData(editor);
}

void VTColorSchemeView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (auto *nameEditor = qobject_cast<VTLineEditWidget *>(editor)) {
        // One that the base leaves open has more to say.
        if (isPersistentEditorOpen(tableModel->index(nameEditor->data().toInt(), NameColumn)))
            tellUsable(nameEditor);
        else
            endNaming(nameEditor);
    }
    QTableView::closeEditor(editor, hint);
}
