// The manager's commands on schemes, and OK.
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/nodeInfo_p.h"
#include "colorscheme/model/filePath_p.h"
#include "colorscheme/model/lastOpenFilePath_p.h"
#include "colorscheme/model/messageBoxes_p.h"
#include "colorscheme/model/newScheme_p.h"
#include "vomap/VOColorSchemeManager.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QFileDialog>
#include <QStandardItemModel>

#include <algorithm>

using vtcontrolcolorscheme::fileProblem;
using vtcontrolcolorscheme::GroupPlace;
using vtcontrolcolorscheme::isConfirmed;
using vtcontrolcolorscheme::lastOpenFilePath;
using vtcontrolcolorscheme::newScheme;
using vtcontrolcolorscheme::nodeInfo;
using vtcontrolcolorscheme::tellFailure;
using vtcontrolcolorscheme::toFilePath;
using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::FavoriteTeam;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

void VTColorSchemeManager::onAddScheme()
{
    const QStandardItem *item = currentItem();
    if (!item || item->parent() == favoriteItem || nodeInfo(item).type != GroupNode)
        return;
    ui->schemeView->finishEditing();
    if (!showsGroup() || copies->isReadOnly(shownPlace()))
        return;
    VTColorSchemeModel *model = ui->schemeView->schemeModel();
    VOColorSchemeGroup &group = model->group();
    group.schemes.push_back(newScheme(group));
    const int row = static_cast<int>(group.schemes.size()) - 1;
    VTColorSchemeEditor editor(row, &group, true, this);
    const bool accepted = editor.exec() == QDialog::Accepted;
    // After Cancel the editor has taken the scheme out again and there is no such row. Escape
    // leaves it in, so it must be seen, but that alone is no reason to save.
    model->insertSchemeRow(row, QModelIndex());
    if (!accepted)
        return;
    ui->schemeView->showRows(row, row);
    WorkingCopies::markModified();
}

void VTColorSchemeManager::onEditScheme()
{
    ui->schemeView->finishEditing();
    const QModelIndex index = ui->schemeView->currentIndex();
    if (!index.isValid() || !showsGroup())
        return;
    ui->schemeView->editScheme(index.row(), this);
}

void VTColorSchemeManager::onDeleteScheme()
{
    VTColorSchemeView *const table = ui->schemeView;
    table->finishEditing();
    QVector<int> rows = table->selectedRowNumbers();
    if (rows.isEmpty() || copies->isReadOnly(shownPlace()))
        return;
    const QString text = tr("The color scheme cannot be restored after deletion.") +
                         QLatin1Char('\n') + tr("Are you sure to delete it?");
    if (!isConfirmed(this, tr("Delete scheme"), text, QMessageBox::Ok, tr("Delete"), tr("Cancel")))
        return;
    // Thousands of selected rows would be gone through at each removal; none of them stays.
    table->clearSelection();
    // From the end, so that no removal shifts the rows still to come.
    for (auto row = rows.crbegin(); row != rows.crend(); ++row)
        table->schemeModel()->removeScheme(*row, QModelIndex());
    // The next command has something to work on: what moved up, or what is the last one now.
    const int next = std::min(rows.first(), table->schemeModel()->rowCount() - 1);
    table->showRows(next, next);
    // A favourites group lives only as long as it has schemes.
    const GroupPlace shown = shownPlace();
    if (shown.teamKind == FavoriteTeam && table->schemeModel()->group().schemes.empty() &&
        showsGroup()) {
        copies->removeGroup(shown);
        favoriteItem->removeRow(shown.groupIndex);
        table->groupIndex = -1;
        onTeamViewClicked(ui->teamView->currentIndex());
    }
    WorkingCopies::markModified();
}

void VTColorSchemeManager::onSelectAll()
{
    ui->schemeView->finishEditing();
    ui->schemeView->setFocus(Qt::OtherFocusReason);
    ui->schemeView->selectAll();
}

void VTColorSchemeManager::onInvertSelect()
{
    VTColorSchemeView *const table = ui->schemeView;
    table->finishEditing();
    const QVector<int> selected = table->selectedRowNumbers();
    const int rowCount = table->schemeModel()->rowCount();
    const int lastColumn = table->schemeModel()->columnCount() - 1;
    // The gaps between the selected rows.
    QItemSelection others;
    int last = -1;
    const auto appendGap = [&](int from, int to) {
        if (from > to)
            return;
        others.append(QItemSelectionRange(table->schemeModel()->index(from, 0),
                                          table->schemeModel()->index(to, lastColumn)));
        last = to;
    };
    int from = 0;
    for (const int row : selected) {
        appendGap(from, row - 1);
        from = row + 1;
    }
    appendGap(from, rowCount - 1);

    table->clearSelection();
    // Selecting row by row takes half a minute in a long list. The last one is selected by the
    // view, so that it becomes current and the anchor of what the user selects next; all in one.
    table->setSelectionMode(QAbstractItemView::MultiSelection);
    table->selectRow(last);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->selectionModel()->select(others, QItemSelectionModel::Select);
}

void VTColorSchemeManager::onImportScheme()
{
    const QStandardItem *item = currentItem();
    if (!item)
        return;
    const int type = nodeInfo(item).type;
    if ((type == CustomTeamNode || type == FavoriteTeamNode) && !item->hasChildren())
        return;
    ui->schemeView->finishEditing();
    if (!showsGroup() || copies->isReadOnly(shownPlace()))
        return;
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Open color scheme file"), lastOpenFilePath(), QStringLiteral("*.vcs"), nullptr,
        QFileDialog::DontUseNativeDialog);
    if (paths.isEmpty())
        return;
    VTColorSchemeModel *model = ui->schemeView->schemeModel();
    const int firstNew = model->rowCount();
    for (const QString &path : paths) {
        VOColorScheme scheme;
        QString problem;
        if (!VOColorSchemeManager::readFile(scheme, toFilePath(path), problem)) {
            tellFailure(this, tr("Open color scheme file"), tr("Failed to open file!"),
                        fileProblem(path, problem));
            continue;
        }
        // Deliberate: once, without asking whether that name is free.
        if (model->group().contains(scheme.name))
            scheme.name += L"_1";
        model->appendSchemes({scheme});
    }
    ui->schemeView->showRows(firstNew, model->rowCount() - 1);
    WorkingCopies::markModified();
}

void VTColorSchemeManager::onExportScheme()
{
    ui->schemeView->onExportScheme();
}

void VTColorSchemeManager::onFavorite(const QSet<int> &rows)
{
    ui->schemeView->finishEditing();
    if (!showsGroup() || copies->isReadOnly(FavoriteTeam))
        return;
    const WorkingCopies::Favorites favorites = copies->favoritesOf(shownPlace());
    if (favorites.isNew)
        appendGroup(favoriteItem, favorites.caption, favorites.name);
    QVector<int> sorted(rows.cbegin(), rows.cend());
    std::sort(sorted.begin(), sorted.end());
    appendSchemes(favorites.place, shownSchemes(sorted));
}

void VTColorSchemeManager::onInformation(bool isOk)
{
    ui->pushButton_ok->setEnabled(isOk);
}

void VTColorSchemeManager::onOk()
{
    ui->schemeView->finishEditing();
    m_outcome = WorkingCopies::isModified() ? Discarded : NothingChanged;
    const QString text = tr("The color schemes have been modified.") + QLatin1Char('\n') +
                         tr("Do you need to save them?");
    if (WorkingCopies::isModified() &&
        isConfirmed(this, tr("Color schemes"), text, QMessageBox::Yes, tr("Yes"), tr("Cancel"))) {
        updateData();
        m_outcome = copies->save() ? Saved : SaveFailed;
    }
    // Deliberate: Cancel in that box means not to save, and not to stay.
    accept();
}

VTDiscardedSchemes VTColorSchemeManager::discarded()
{
    if (outcome() != Discarded)
        return VTDiscardedSchemes();
    updateData(); // what was edited in the table is part of it
    return copies->unsaved();
}
