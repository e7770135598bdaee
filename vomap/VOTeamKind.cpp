#include "vomap/VOTeamKind.h"

namespace VTObjects {

QString teamKey(VOTeamKind kind)
{
    static const QString keys[] = {QStringLiteral("Default"), QStringLiteral("Custom"),
                                   QStringLiteral("Favorite")};
    return keys[kind];
}

VOTeamKind teamKindOf(const QString &key)
{
    for (const VOTeamKind kind : {DefaultTeam, CustomTeam}) {
        if (key.compare(teamKey(kind), Qt::CaseInsensitive) == 0)
            return kind;
    }
    return FavoriteTeam;
}

} // namespace VTObjects
