#pragma once

#include "colorscheme/manager/VTDiscardedSchemes.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOTeamKind.h"

#include <QMap>
#include <QVector>

#include <memory>

namespace vtcontrolcolorscheme {

/// Where a group stands: the kind of its team (a VOTeamKind, or none of them) and its position
/// there, or -1.
struct GroupPlace
{
    int teamKind = -1;
    int groupIndex = -1;
};
constexpr bool operator==(GroupPlace left, GroupPlace right)
{
    return left.teamKind == right.teamKind && left.groupIndex == right.groupIndex;
}

/// The manager's copies of the store's three teams: what its commands change, and what reaches the
/// store with save() only. No widget is needed for it.
///
/// Whether anything was modified is one flag for the process, because the scheme table, which can
/// do without a manager, sets it too. A command sets it when it has done its work. So one manager
/// at a time is assumed; its copies reset the flag when they go.
class WorkingCopies
{
public:
    /// Copies of the store as it is now.
    WorkingCopies();
    /// The same, with the discarded changes made again. Modified from the start, unless there are
    /// none.
    explicit WorkingCopies(const VTDiscardedSchemes &again);
    ~WorkingCopies();
    WorkingCopies(const WorkingCopies &) = delete;
    WorkingCopies &operator=(const WorkingCopies &) = delete;

    static bool isModified();
    static void markModified();

    /// Null for a kind that is no team's.
    const VTObjects::VOColorSchemeTeam *team(int teamKind) const;
    /// Null where there is no group.
    const VTObjects::VOColorSchemeGroup *group(GroupPlace place) const;

    /// A built-in group as the tree shows it.
    struct BuiltIn
    {
        VTObjects::VOString name;
        QString caption; ///< in the manager's language
    };
    /// Those of the six known built-in groups that the store has, in their fixed order, and then
    /// those of the host. Deliberate: a built-in group of any other name is never shown.
    const QVector<BuiltIn> &shownBuiltIns() const { return builtIns; }
    /// The caption of a built-in group, in the manager's language; null for any other name.
    QString captionOf(const VTObjects::VOString &name) const { return captions.value(name); }
    /// Fetches the captions anew, after the language has changed.
    void retranslate();

    /// The place of the group behind a node of the tree: the team of its root, its row below that
    /// and its name. Rows are positions but for the built-in groups, which are found by name;
    /// deliberate: one of an unknown name means the first.
    GroupPlace placeOf(int teamKind, int row, const VTObjects::VOString &name) const;
    /// The place of the user's first group of that name; none if there is none.
    GroupPlace customPlace(const VTObjects::VOString &name) const;

    /// Whether the user must not change a group, or a team: by the host's word, or because no file
    /// would have it.
    bool isReadOnly(GroupPlace place) const;
    bool isReadOnly(int teamKind) const
    {
        return VTObjects::isTeamKind(teamKind) && readOnly[teamKind];
    }
    void setReadOnly(VTObjects::VOTeamKind team, bool on) { readOnly[team] = on; }

    /// Appends an empty group to the user's own.
    void addCustomGroup(const VTObjects::VOString &name);
    /// Takes a group out; nothing without one there.
    void removeGroup(GroupPlace place);
    /// Where the group that stood at `place` stands once the one at `removed` is out: one further
    /// up behind it, nowhere (-1) if it was that one.
    static GroupPlace placeAfterRemoval(GroupPlace place, GroupPlace removed);

    /// The schemes under the names that they get as copies in the target: one whose name is taken
    /// there gets a generated one. Schemes that are named before others count for those.
    std::vector<VTObjects::VOColorScheme>
    renamedFor(GroupPlace target, std::vector<VTObjects::VOColorScheme> schemes) const;
    /// Appends schemes to a group, which can be its own ones; nothing without a group there.
    void append(GroupPlace place, std::vector<VTObjects::VOColorScheme> schemes);

    /// The favourites group that mirrors a group by its name, made if need be.
    struct Favorites
    {
        GroupPlace place;
        bool isNew = false;
        VTObjects::VOString name;
        QString caption; ///< for its node, if it is new
    };
    Favorites favoritesOf(GroupPlace source);

    /// Replaces a group by what was made of it elsewhere; nothing without one there.
    void write(GroupPlace place, const VTObjects::VOColorSchemeGroup &group);
    /// What is lost if these copies are not saved.
    VTDiscardedSchemes unsaved() const;
    /// Writes the copies into the store, and the store to its disk. Its answer is the store's. Who
    /// follows a scheme learns of its new name and place.
    bool save();

private:
    VTObjects::VOColorSchemeGroup *groupAt(GroupPlace place);
    void addBuiltIn(const VTObjects::VOString &name);

    // Nobody changes the store from elsewhere, or it would be overwritten.
    VTObjects::VOColorSchemeManager::Hold hold;
    VTObjects::VOColorSchemeMoves::Teams teams;
    std::unique_ptr<VTObjects::VOColorSchemeMoves> moves; // of the teams
    bool readOnly[VTObjects::allTeams.size()] = {};       // by VOTeamKind
    QVector<BuiltIn> builtIns;
    QMap<VTObjects::VOString, QString> captions; // of all built-in groups that have one
    QMap<VTObjects::VOString, int> builtInPositions;
};

} // namespace vtcontrolcolorscheme
