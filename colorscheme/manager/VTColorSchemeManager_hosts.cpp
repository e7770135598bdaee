// What a host makes the manager do.
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/nodeInfo_p.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include "ui_VTColorSchemeManagerBase.h"

#include <QStandardItemModel>

#include <algorithm>

using vtcontrolcolorscheme::nodeInfo;
using VTObjects::isTeamKind;
using VTObjects::teamKindOf;
using VTObjects::toQString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeId;
using VTObjects::VOTeamKind;

namespace {

constexpr int readOnlyRole = Qt::UserRole + 2; // of the nodes that showReadOnly() has marked

} // namespace

bool VTColorSchemeManager::showScheme(const VOColorSchemeId &id)
{
    if (id.isNull())
        return false;
    // What the table holds is what its group is.
    ui->schemeView->finishEditing();
    updateData();
    const QStandardItem *const team = teamModel->item(teamKindOf(toQString(id.team)));
    for (int row = 0; row < team->rowCount(); ++row) {
        const QStandardItem *const item = team->child(row);
        const VOColorSchemeGroup *const group = copies->group(placeOf(item));
        if (!group || group->name != id.group)
            continue;
        const auto found =
            std::find_if(group->schemes.begin(), group->schemes.end(),
                         [&id](const VOColorScheme &scheme) { return scheme.name == id.scheme; });
        if (found == group->schemes.end())
            continue;
        const auto position = static_cast<int>(found - group->schemes.begin());
        ui->teamView->setCurrentIndex(item->index());
        onTeamViewClicked(item->index());
        ui->schemeView->showRows(position, position);
        return true;
    }
    return false;
}

void VTColorSchemeManager::setTeamReadOnly(NodeType team, bool readOnly)
{
    if (!isTeamKind(team))
        return;
    ui->schemeView->finishEditing();
    copies->setReadOnly(static_cast<VOTeamKind>(team), readOnly);
    showReadOnly();
}

void VTColorSchemeManager::showReadOnly()
{
    const QString note = tr("These color schemes cannot be changed here.");
    const auto mark = [&note](QStandardItem *item, bool isReadOnly) {
        // What a host wrote on a node stays.
        if (!isReadOnly && !item->data(readOnlyRole).toBool())
            return;
        item->setData(isReadOnly, readOnlyRole);
        item->setData(isReadOnly ? QVariant(note) : QVariant(), Qt::ToolTipRole);
    };
    for (QStandardItem *team : {defaultItem, customItem, favoriteItem}) {
        mark(team, copies->isReadOnly(nodeInfo(team).type));
        for (int row = 0; row < team->rowCount(); ++row)
            mark(team->child(row), copies->isReadOnly(placeOf(team->child(row))));
    }
    ui->schemeView->setReadOnly(copies->isReadOnly(shownPlace()));
}
