// The manager's commands on groups.
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/confirmation_p.h"
#include "colorscheme/manager/dataModified_p.h"
#include "colorscheme/manager/nodeInfo_p.h"
#include "colorscheme/model/GeneratedName_p.h"
#include "vomap/VOStringConversion.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QMessageBox>
#include <QStandardItemModel>

using vtcontrolcolorscheme::addSchemeBase;
using vtcontrolcolorscheme::GeneratedName;
using vtcontrolcolorscheme::isConfirmed;
using vtcontrolcolorscheme::makeAddSchemeName;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;

namespace {

/// The info of the group that a copy-to action names; the type of a root if it names none.
ColorSchemeNodeInfo targetOf(const QObject *sender)
{
    const auto *action = qobject_cast<const QAction *>(sender);
    return action ? action->data().value<ColorSchemeNodeInfo>() : ColorSchemeNodeInfo();
}

QSet<QString> schemeNamesOf(const VOColorSchemeGroup &group)
{
    QSet<QString> names;
    names.reserve(static_cast<int>(group.schemes.size()));
    for (const VOColorScheme &scheme : group.schemes)
        names.insert(toQString(scheme.name));
    return names;
}

} // namespace

void VTColorSchemeManager::onAddGroup()
{
    GeneratedName proposal(QStringLiteral("Custom group"));
    for (int row = 0; row < customItem->rowCount(); ++row)
        proposal.add(customItem->child(row)->text());
    VTAddColorSchemeGroupDialog dialog(proposal.next(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    VOColorSchemeGroup group;
    group.name = toVOString(dialog.groupName());
    appendGroup(customItem, dialog.groupName(), group.name);
    customTeam.groups.push_back(std::move(group));
    dataModified = true;
}

void VTColorSchemeManager::onDeleteGroup()
{
    const QStandardItem *item = currentItem();
    if (!item || item->parent() != customItem)
        return;
    ui->schemeView->finishEditing();
    const QString text = tr("The group(%1) cannot be restored after deletion.").arg(item->text()) +
                         QLatin1Char('\n') + tr("Are you sure to delete it?");
    if (!isConfirmed(this, tr("Delete group"), text, QMessageBox::Ok, tr("Delete"), tr("Cancel")))
        return;
    const int row = item->row();
    VTColorSchemeView *const table = ui->schemeView;
    customItem->removeRow(row);
    if (groupOf(CustomTeamNode, row))
        customTeam.groups.erase(customTeam.groups.begin() + row);
    // The tree's current node can be another group than the shown one, so the shown one may have
    // moved up. It must not be written back into its neighbour.
    if (table->teamKind == CustomTeamNode) {
        if (table->groupIndex == row)
            table->groupIndex = -1;
        else if (table->groupIndex > row)
            --table->groupIndex;
    }
    onTeamViewClicked(ui->teamView->currentIndex());
    dataModified = true;
}

void VTColorSchemeManager::onCopyDefaultGroup(bool /*checked*/)
{
    const ColorSchemeNodeInfo info = targetOf(sender());
    if (info.type != GroupNode)
        return;
    const int position = defaultGroupPosition(info.name);
    const VOColorSchemeGroup *target = groupOf(DefaultTeamNode, position);
    if (!target)
        return;
    ui->schemeView->finishEditing();
    // One scan of the target, kept up to date: thousands of clashing copies do not take long.
    QSet<QString> taken = schemeNamesOf(*target);
    GeneratedName newName(addSchemeBase());
    for (const QString &name : qAsConst(taken))
        newName.add(name);
    std::vector<VOColorScheme> copies = shownSchemes(ui->schemeView->selectedRowNumbers());
    for (VOColorScheme &copy : copies) {
        QString name = toQString(copy.name);
        if (taken.contains(name)) {
            name = newName.next();
            copy.name = toVOString(name);
        }
        taken.insert(name);
        newName.add(name);
    }
    appendSchemes(DefaultTeamNode, position, copies);
    dataModified = true;
}

void VTColorSchemeManager::onCopyCustomGroup(bool /*checked*/)
{
    const ColorSchemeNodeInfo info = targetOf(sender());
    if (info.type != GroupNode)
        return;
    const int position = customTeam.index(info.name);
    const VOColorSchemeGroup *target = groupOf(CustomTeamNode, position);
    if (!target)
        return;
    ui->schemeView->finishEditing();
    QSet<QString> taken = schemeNamesOf(*target);
    // Deliberate: the new name comes from the built-in group at the same position and not from the
    // target, so all clashing copies of one command get the same name.
    const VOColorSchemeGroup *source = groupOf(DefaultTeamNode, position);
    const QString newName = makeAddSchemeName(source ? *source : VOColorSchemeGroup());
    std::vector<VOColorScheme> copies = shownSchemes(ui->schemeView->selectedRowNumbers());
    for (VOColorScheme &copy : copies) {
        QString name = toQString(copy.name);
        if (taken.contains(name)) {
            name = newName;
            copy.name = toVOString(name);
        }
        taken.insert(name);
    }
    appendSchemes(CustomTeamNode, position, copies);
    dataModified = true;
}

std::vector<VOColorScheme> VTColorSchemeManager::shownSchemes(const QVector<int> &rows) const
{
    const std::vector<VOColorScheme> &shown = ui->schemeView->schemeModel()->group().schemes;
    std::vector<VOColorScheme> schemes;
    for (const int row : rows) {
        if (row >= 0 && static_cast<std::size_t>(row) < shown.size())
            schemes.push_back(shown[static_cast<std::size_t>(row)]);
    }
    return schemes;
}

void VTColorSchemeManager::appendSchemes(int teamKind, int groupIndex,
                                         const std::vector<VOColorScheme> &schemes)
{
    VOColorSchemeGroup *group = groupOf(teamKind, groupIndex);
    if (!group)
        return;
    group->schemes.insert(group->schemes.end(), schemes.cbegin(), schemes.cend());
    // Groups can share a name, so the one that was meant can turn out to be the shown one. The
    // table is written back over it later and needs the copies too.
    if (ui->schemeView->teamKind != teamKind || ui->schemeView->groupIndex != groupIndex)
        return;
    VTColorSchemeModel *model = ui->schemeView->schemeModel();
    for (const VOColorScheme &scheme : schemes) {
        model->group().schemes.push_back(scheme);
        model->insertSchemeRow(static_cast<int>(model->group().schemes.size()) - 1, QModelIndex());
    }
}
