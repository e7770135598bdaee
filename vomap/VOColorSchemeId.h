#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

#include <QHash>
#include <QMetaType>
#include <QString>

namespace VTObjects {

/// Which scheme of the store: by the names of its team, its group and itself. For settings and
/// project files, in which positions would not last. A plain value; nothing says that the store has
/// such a scheme, VOColorSchemeManager::find() tells.
///
/// Names may occur twice. An id stands for the first scheme that bears them.
struct VOMAP_EXPORT VOColorSchemeId
{
    VOString team{}; ///< the team's key: "Default", "Custom" or "Favorite", exactly so
    VOString group{};
    VOString scheme{};

    /// True for what names no scheme, because it names none of the three teams.
    bool isNull() const;

    /// The id as one line of ASCII: "Default/DEM/Green%20to%20brown". In the names, all but
    /// letters, digits and "-._~" is written as the bytes of its UTF-8, each as "%" and two
    /// hexadecimal digits; a wide character that is none of Unicode as "%{", its value and "}". So
    /// every name comes back, a "/" or a line break in it included. Empty for a null id.
    QString toText() const;
    /// The id of such a text. Characters that toText() would encode may also stand for themselves,
    /// but for "/" and "%". Null for any text that does not name a scheme of one of the three
    /// teams.
    static VOColorSchemeId fromText(const QString &text);
};

inline bool operator==(const VOColorSchemeId &left, const VOColorSchemeId &right)
{
    return left.team == right.team && left.group == right.group && left.scheme == right.scheme;
}
inline bool operator!=(const VOColorSchemeId &left, const VOColorSchemeId &right)
{
    return !(left == right);
}
/// For QHash and QSet.
VOMAP_EXPORT uint qHash(const VOColorSchemeId &id, uint seed = 0);

} // namespace VTObjects

Q_DECLARE_METATYPE(VTObjects::VOColorSchemeId)
