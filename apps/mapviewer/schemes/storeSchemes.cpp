#include "apps/mapviewer/schemes/storeSchemes.h"

#include "apps/mapviewer/layers/RampColors.h"

#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QCoreApplication>

namespace mapviewer {

using namespace VTObjects;

namespace {

// At the positions of builtInGroups; translated with the library.
constexpr std::array<const char *, builtInGroups.size()> captions = {
    "For DEM", "For unique", "For unique range", "For graph", "Even scheme", "Random scheme"};

bool sameRamp(VOColorRamp *one, VOColorRamp *other)
{
    if (!one || !other)
        return one == other;
    return one->category() == other->category() && rampColors(one) == rampColors(other);
}

} // namespace

VOColorSchemeId builtInScheme(const QString &group, const QStringList &names)
{
    const VOColorSchemeManager *store = VOColorSchemeManager::instance();
    const VOString team = toVOString(teamKey(DefaultTeam));
    for (const QString &name : names) {
        VOColorSchemeId id{team, toVOString(group), toVOString(name)};
        if (store->find(id))
            return id;
    }
    const int index = store->defaultTeam.index(toVOString(group));
    if (index < 0 || store->defaultTeam.groups[std::size_t(index)].schemes.empty())
        return {};
    const VOColorSchemeGroup &records = store->defaultTeam.groups[std::size_t(index)];
    return {team, records.name, records.schemes.front().name};
}

QString groupCaption(VOTeamKind team, const VOString &group)
{
    QString name = toQString(group);
    if (team != DefaultTeam)
        return name;
    QString ofTheHost = VOColorSchemeManager::instance()->groupCaption(group);
    if (!ofTheHost.isEmpty())
        return ofTheHost;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        if (name == QLatin1String(builtInGroups[i]))
            return QCoreApplication::translate("QObject", captions[i]);
    }
    return name;
}

SchemePlace placeOf(const VOColorSchemeId &id, const VOColorScheme &picked)
{
    if (id.isNull())
        return {};
    const VOColorSchemeTeam &team =
        VOColorSchemeManager::instance()->team(teamKindOf(toQString(id.team)));
    const int group = team.index(id.group);
    SchemePlace first;
    if (group < 0)
        return first;
    const std::vector<VOColorScheme> &schemes = team.groups[std::size_t(group)].schemes;
    for (std::size_t i = 0; i < schemes.size(); ++i) {
        if (schemes[i].name != id.scheme)
            continue;
        const SchemePlace place{group, int(i)};
        if (sameRamp(schemes[i].colorRamp, picked.colorRamp))
            return place;
        if (first.isNull())
            first = place;
    }
    return first;
}

} // namespace mapviewer
