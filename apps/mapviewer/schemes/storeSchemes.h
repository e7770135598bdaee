#pragma once

#include "vomap/VOColorSchemeId.h"
#include "vomap/VOTeamKind.h"

#include <QString>
#include <QStringList>

namespace VTObjects {
class VOColorScheme;
}

namespace mapviewer {

/// The first of the named schemes that the built-in group has, else its first scheme. Null when
/// there is no such group, or it is empty.
VTObjects::VOColorSchemeId builtInScheme(const QString &group, const QStringList &names);

/// What the picker and the manager call a group: the built-in ones have captions.
QString groupCaption(VTObjects::VOTeamKind team, const VTObjects::VOString &group);

/// Where a scheme stands in its team, by positions that hold until somebody changes the team.
struct SchemePlace
{
    int group = -1;
    int scheme = -1;

    bool isNull() const { return scheme < 0; }
};

/// Names may occur twice in a group: the place is that of the scheme with this id which also has
/// the ramp of `picked`, else of the first. Null when there is none with this id.
SchemePlace placeOf(const VTObjects::VOColorSchemeId &id, const VTObjects::VOColorScheme &picked);

} // namespace mapviewer
