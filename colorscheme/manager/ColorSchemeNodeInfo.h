#pragma once

#include "vobase/VOString.h"

#include <QMetaType>

/// What a node of the manager's tree stands for. The first three are the teams; the scheme table
/// counts them by the same numbers.
enum NodeType {
    DefaultTeamNode = 0,  ///< the root of the built-in team
    CustomTeamNode = 1,   ///< the root of the user's team
    FavoriteTeamNode = 2, ///< the root of the favourites
    GroupNode = 3         ///< a group below any of the three
};

/// Lies in every item of the manager's tree, under the role Qt::UserRole + 1, and in the actions of
/// its copy-to menus.
struct ColorSchemeNodeInfo
{
    ColorSchemeNodeInfo() = default;
    ColorSchemeNodeInfo(const VTObjects::VOString &nodeName, NodeType nodeType)
        : type(nodeType)
        , name(nodeName)
    {
    }

    qint32 type = DefaultTeamNode; ///< one of NodeType
    VTObjects::VOString name = {}; ///< the store's name of the team or group, not the text shown
};

Q_DECLARE_METATYPE(ColorSchemeNodeInfo)
