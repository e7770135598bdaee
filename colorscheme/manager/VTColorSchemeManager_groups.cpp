// The manager's commands on groups.
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/nodeInfo_p.h"
#include "colorscheme/model/GeneratedName_p.h"
#include "colorscheme/model/messageBoxes_p.h"
#include "vomap/VOStringConversion.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QMenu>
#include <QStandardItemModel>

using vtcontrolcolorscheme::GeneratedName;
using vtcontrolcolorscheme::GroupPlace;
using vtcontrolcolorscheme::isConfirmed;
using vtcontrolcolorscheme::nodeInfoRole;
using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOString;

namespace {

/// Where an action of a copy-to menu keeps its group's node of the tree.
constexpr const char *nodeProperty = "node";

/// A menu takes a single one for the mark of a key.
QString withAmpersands(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

void VTColorSchemeManager::onAddGroup()
{
    if (copies->isReadOnly(CustomTeam))
        return;
    GeneratedName proposal(QStringLiteral("Custom group"));
    for (int row = 0; row < customItem->rowCount(); ++row)
        proposal.add(customItem->child(row)->text());
    VTAddColorSchemeGroupDialog dialog(proposal.next(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const VOString name = toVOString(dialog.groupName());
    copies->addCustomGroup(name);
    appendGroup(customItem, dialog.groupName(), name);
    WorkingCopies::markModified();
}

void VTColorSchemeManager::onDeleteGroup()
{
    const QStandardItem *item = currentItem();
    if (!item || item->parent() != customItem || copies->isReadOnly(CustomTeam))
        return;
    ui->schemeView->finishEditing();
    const QString text = tr("The group(%1) cannot be restored after deletion.").arg(item->text()) +
                         QLatin1Char('\n') + tr("Are you sure to delete it?");
    if (!isConfirmed(this, tr("Delete group"), text, QMessageBox::Ok, tr("Delete"), tr("Cancel")))
        return;
    const GroupPlace place = placeOf(item);
    customItem->removeRow(place.groupIndex);
    copies->removeGroup(place);
    // The tree's current node can be another group than the shown one, so the shown one may have
    // moved up. It must not be written back into its neighbour.
    ui->schemeView->groupIndex = WorkingCopies::placeAfterRemoval(shownPlace(), place).groupIndex;
    onTeamViewClicked(ui->teamView->currentIndex());
    WorkingCopies::markModified();
}

QMenu *VTColorSchemeManager::defaultMenu()
{
    return copyMenu(defaultItem, &VTColorSchemeManager::onCopyDefaultGroup);
}

QMenu *VTColorSchemeManager::customMenu()
{
    return copyMenu(customItem, &VTColorSchemeManager::onCopyCustomGroup);
}

QMenu *VTColorSchemeManager::copyMenu(const QStandardItem *team,
                                      void (VTColorSchemeManager::*slot)(bool))
{
    auto menu = std::make_unique<QMenu>();
    for (int row = 0; row < team->rowCount(); ++row) {
        const QStandardItem *item = team->child(row);
        if (placeOf(item) == shownPlace() || copies->isReadOnly(placeOf(item)))
            continue;
        auto *action = new QAction(withAmpersands(item->text()), menu.get());
        action->setData(item->data(nodeInfoRole));
        // Groups can share a name, so the name alone does not tell which one is meant.
        action->setProperty(nodeProperty, QPersistentModelIndex(item->index()));
        connect(action, &QAction::triggered, this, slot);
        menu->addAction(action);
    }
    return menu.release();
}

void VTColorSchemeManager::onCopyDefaultGroup(bool /*checked*/)
{
    copySelected(targetOf(sender(), DefaultTeam));
}

void VTColorSchemeManager::onCopyCustomGroup(bool /*checked*/)
{
    copySelected(targetOf(sender(), CustomTeam));
}

GroupPlace VTColorSchemeManager::targetOf(const QObject *action, int teamKind) const
{
    const auto *copyAction = qobject_cast<const QAction *>(action);
    if (!copyAction)
        return {};
    const QVariant node = copyAction->property(nodeProperty);
    if (node.isValid()) {
        const QStandardItem *item = teamModel->itemFromIndex(node.toPersistentModelIndex());
        return item && item->parent() ? placeOf(item) : GroupPlace();
    }
    // An action that somebody else made goes by the name that it bears.
    const auto info = copyAction->data().value<ColorSchemeNodeInfo>();
    if (info.type != GroupNode)
        return {};
    return teamKind == CustomTeam ? copies->customPlace(info.name)
                                  : copies->placeOf(teamKind, -1, info.name);
}

void VTColorSchemeManager::copySelected(GroupPlace target)
{
    if (!copies->group(target) || copies->isReadOnly(target))
        return;
    ui->schemeView->finishEditing();
    appendSchemes(target,
                  copies->renamedFor(target, shownSchemes(ui->schemeView->selectedRowNumbers())));
}

std::vector<VOColorScheme> VTColorSchemeManager::shownSchemes(const QVector<int> &rows) const
{
    const std::vector<VOColorScheme> &shown = ui->schemeView->schemeModel()->group().schemes;
    std::vector<VOColorScheme> schemes;
    for (const int row : rows) {
        if (row < 0 || static_cast<std::size_t>(row) >= shown.size())
            continue;
        schemes.push_back(shown[static_cast<std::size_t>(row)]);
        schemes.back().origin = 0; // a copy is a scheme of its own
    }
    return schemes;
}

void VTColorSchemeManager::appendSchemes(GroupPlace place,
                                         const std::vector<VOColorScheme> &schemes)
{
    copies->append(place, schemes);
    // Who keeps a copy-to menu can go on to its group, which then is the shown one. What the table
    // holds is written back over it later and needs the schemes too; until then the working
    // copy is what the next command looks into, and what a call from code goes back to.
    if (place == shownPlace())
        ui->schemeView->schemeModel()->appendSchemes(schemes);
    WorkingCopies::markModified();
}
