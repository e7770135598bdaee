#include "colorscheme/manager/WorkingCopies_p.h"

#include "colorscheme/model/GeneratedName_p.h"
#include "colorscheme/model/builtInGroupCaptions_p.h"
#include "vomap/VOStringConversion.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>
#include <iterator>

// Shared by the manager and its table; see the class. Nothing outside this file names it.
static bool dataModified = false;

using VTObjects::allTeams;
using VTObjects::builtInGroups;
using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::FavoriteTeam;
using VTObjects::isTeamKind;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeMoves;
using VTObjects::VOColorSchemeTeam;
using VTObjects::VOString;
using VTObjects::VOTeamKind;

namespace vtcontrolcolorscheme {

namespace {

QSet<QString> schemeNamesOf(const VOColorSchemeGroup &group)
{
    QSet<QString> names;
    names.reserve(static_cast<int>(group.schemes.size()));
    for (const VOColorScheme &scheme : group.schemes)
        names.insert(toQString(scheme.name));
    return names;
}

VOColorSchemeMoves::Teams storedTeams()
{
    VOColorSchemeMoves::Teams teams;
    for (const VOTeamKind kind : allTeams)
        teams[kind] = VOColorSchemeManager::instance()->team(kind);
    return teams;
}

} // namespace

WorkingCopies::WorkingCopies()
    : WorkingCopies(VTDiscardedSchemes())
{
}

WorkingCopies::WorkingCopies(const VTDiscardedSchemes &again)
    : teams(storedTeams())
    , moves(std::make_unique<VOColorSchemeMoves>(teams))
{
    if (!again.isEmpty) {
        teams = VOColorSchemeMoves::repeated(again.before, again.edited, teams);
        dataModified = true;
    }
    for (const char *key : builtInGroups)
        addBuiltIn(key);
    for (const VOString &name : VOColorSchemeManager::instance()->hostGroups())
        addBuiltIn(name);
    retranslate();
}

void WorkingCopies::addBuiltIn(const VOString &name)
{
    const int position = teams[DefaultTeam].index(name);
    if (position < 0)
        return;
    builtInPositions[name] = position;
    builtIns.append({name, QString()});
}

void WorkingCopies::retranslate()
{
    const VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    for (std::size_t i = 0; i < builtInGroups.size(); ++i) {
        const QString ofTheHost = store->groupCaption(builtInGroups[i]);
        captions[builtInGroups[i]] =
            ofTheHost.isEmpty() ? QCoreApplication::translate("VTColorSchemeManager",
                                                              builtInGroupCaptions[i].ofManager)
                                : ofTheHost;
    }
    for (const VOString &name : store->hostGroups())
        captions[name] = store->groupCaption(name);
    for (BuiltIn &group : builtIns)
        group.caption = captions.value(group.name);
}

WorkingCopies::~WorkingCopies()
{
    dataModified = false;
}

bool WorkingCopies::isModified()
{
    return dataModified;
}

void WorkingCopies::markModified()
{
    dataModified = true;
}

const VOColorSchemeTeam *WorkingCopies::team(int teamKind) const
{
    return isTeamKind(teamKind) ? &teams[static_cast<std::size_t>(teamKind)] : nullptr;
}

const VOColorSchemeGroup *WorkingCopies::group(GroupPlace place) const
{
    const VOColorSchemeTeam *const found = team(place.teamKind);
    if (!found || place.groupIndex < 0 ||
        static_cast<std::size_t>(place.groupIndex) >= found->groups.size())
        return nullptr;
    return &found->groups[static_cast<std::size_t>(place.groupIndex)];
}

bool WorkingCopies::isReadOnly(GroupPlace place) const
{
    if (isReadOnly(place.teamKind))
        return true;
    const VOColorSchemeGroup *const found = group(place);
    if (!found || place.teamKind != DefaultTeam)
        return false;
    const std::vector<VOString> &ofTheHost = VOColorSchemeManager::instance()->hostGroups();
    return std::find(ofTheHost.begin(), ofTheHost.end(), found->name) != ofTheHost.end();
}

VOColorSchemeGroup *WorkingCopies::groupAt(GroupPlace place)
{
    return const_cast<VOColorSchemeGroup *>(group(place)); // of our own teams, which are not const
}

GroupPlace WorkingCopies::placeOf(int teamKind, int row, const VOString &name) const
{
    return {teamKind, teamKind == DefaultTeam ? builtInPositions.value(name, 0) : row};
}

GroupPlace WorkingCopies::customPlace(const VOString &name) const
{
    return {CustomTeam, teams[CustomTeam].index(name)};
}

void WorkingCopies::addCustomGroup(const VOString &name)
{
    VOColorSchemeGroup group;
    group.name = name;
    teams[CustomTeam].groups.push_back(std::move(group));
}

void WorkingCopies::removeGroup(GroupPlace place)
{
    if (!group(place))
        return;
    auto &groups = teams[static_cast<std::size_t>(place.teamKind)].groups;
    groups.erase(groups.begin() + place.groupIndex);
}

GroupPlace WorkingCopies::placeAfterRemoval(GroupPlace place, GroupPlace removed)
{
    if (place == removed)
        place.groupIndex = -1;
    else if (place.teamKind == removed.teamKind && place.groupIndex > removed.groupIndex)
        --place.groupIndex;
    return place;
}

std::vector<VOColorScheme> WorkingCopies::renamedFor(GroupPlace target,
                                                     std::vector<VOColorScheme> schemes) const
{
    const VOColorSchemeGroup *const found = group(target);
    if (!found)
        return schemes;
    // One scan of the target, kept up to date: thousands of clashing copies do not take long.
    QSet<QString> taken = schemeNamesOf(*found);
    // Deliberate: among the user's own, the new name comes from the built-in group at the same
    // position and not from the target, so all clashing copies of one command get the same name.
    const bool isOwn = target.teamKind == CustomTeam;
    const VOColorSchemeGroup *const source =
        isOwn ? group({DefaultTeam, target.groupIndex}) : found;
    GeneratedName newName(addSchemeBase());
    if (source) {
        for (const VOColorScheme &scheme : source->schemes)
            newName.add(toQString(scheme.name));
    }
    for (VOColorScheme &scheme : schemes) {
        QString name = toQString(scheme.name);
        if (taken.contains(name)) {
            name = newName.next();
            scheme.name = toVOString(name);
        }
        taken.insert(name);
        if (!isOwn)
            newName.add(name);
    }
    return schemes;
}

void WorkingCopies::append(GroupPlace place, std::vector<VOColorScheme> schemes)
{
    VOColorSchemeGroup *const target = groupAt(place);
    if (!target)
        return;
    target->schemes.insert(target->schemes.end(), std::make_move_iterator(schemes.begin()),
                           std::make_move_iterator(schemes.end()));
}

WorkingCopies::Favorites WorkingCopies::favoritesOf(GroupPlace source)
{
    Favorites favorites;
    const VOColorSchemeGroup *const mirrored = group(source);
    // Deliberate: what comes from a favourites group goes to the one without a name.
    if (mirrored && source.teamKind != FavoriteTeam) {
        favorites.name = mirrored->name;
        favorites.caption = source.teamKind == DefaultTeam ? captions.value(favorites.name)
                                                           : toQString(favorites.name);
    }
    VOColorSchemeTeam &all = teams[FavoriteTeam];
    favorites.isNew = !all.contains(favorites.name);
    if (favorites.isNew) {
        VOColorSchemeGroup group;
        group.name = favorites.name;
        all.groups.push_back(std::move(group));
    }
    favorites.place = {FavoriteTeam, all.index(favorites.name)};
    return favorites;
}

void WorkingCopies::write(GroupPlace place, const VOColorSchemeGroup &group)
{
    if (VOColorSchemeGroup *const target = groupAt(place))
        *target = group;
}

VTDiscardedSchemes WorkingCopies::unsaved() const
{
    VTDiscardedSchemes unsaved;
    if (isModified())
        unsaved = {storedTeams(), teams, false};
    return unsaved;
}

bool WorkingCopies::save()
{
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    store->takeEdited(teams, *moves);
    return store->save();
}

} // namespace vtcontrolcolorscheme
