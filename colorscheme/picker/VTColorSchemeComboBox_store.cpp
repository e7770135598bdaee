// Which scheme of the store the picker shows, and what becomes of it.
#include "colorscheme/picker/VTColorSchemeComboBox.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QPointer>

#include <algorithm>
#include <utility>

using VTObjects::teamKey;
using VTObjects::teamKindOf;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeId;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeMoves;
using VTObjects::VOColorSchemeTeam;
using VTObjects::VOString;
using VTObjects::VOTeamKind;

namespace {

const VOColorSchemeTeam &teamOf(const QString &team)
{
    return VOColorSchemeManager::instance()->team(teamKindOf(team));
}

template <typename Named>
int countOf(const std::vector<Named> &list, std::size_t end, const VOString &name)
{
    const auto last = list.begin() + static_cast<std::ptrdiff_t>(std::min(end, list.size()));
    return static_cast<int>(std::count_if(
        list.begin(), last, [&name](const Named &named) { return named.name == name; }));
}

template <typename Named>
int positionOf(const std::vector<Named> &list, const VOString &name)
{
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&name](const Named &named) { return named.name == name; });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

} // namespace

// Remembers the group at groupIndex by its name.
void VTColorSchemeComboBox::noteGroup()
{
    const std::vector<VOColorSchemeGroup> &groups = teamOf(teamName).groups;
    const auto at = static_cast<std::size_t>(groupIndex);
    listed = ListedGroup();
    if (groupIndex < 0 || at >= groups.size())
        return;
    listed.isKnown = true;
    listed.name = groups[at].name;
    listed.number = countOf(groups, at, listed.name);
    listed.among = groups.size();
    listed.team = teamName;
    listed.position = groupIndex;
}

// Whether the name is that of the group at groupIndex, which counts.
bool VTColorSchemeComboBox::isGroupNoted() const
{
    return listed.isKnown && listed.position == groupIndex && listed.team == teamName;
}

// The position of the listed group, which is known by its name; -1 if there is none.
int VTColorSchemeComboBox::listedGroup() const
{
    const std::vector<VOColorSchemeGroup> &groups = teamOf(teamName).groups;
    const bool isThere = groupIndex >= 0 && static_cast<std::size_t>(groupIndex) < groups.size();
    if (!isGroupNoted())
        return isThere ? groupIndex : -1;
    if (isThere && groups[static_cast<std::size_t>(groupIndex)].name == listed.name)
        return groupIndex;
    int found = -1;
    int number = 0;
    for (std::size_t i = 0; i < groups.size() && number <= listed.number; ++i) {
        if (groups[i].name == listed.name) {
            found = static_cast<int>(i);
            ++number;
        }
    }
    // Where the team has as many groups as before, this one bears another name now.
    return found < 0 && isThere && groups.size() == listed.among ? groupIndex : found;
}

// The current scheme is the one at this position of the listed group, or of a copy of it.
void VTColorSchemeComboBox::noteScheme(const VOColorSchemeGroup &group, int position)
{
    const VOString &name = group.schemes[static_cast<std::size_t>(position)].name;
    id = {toVOString(teamKey(teamKindOf(teamName))), group.name, name};
    idNumber = countOf(group.schemes, static_cast<std::size_t>(position), name);
    // The id names the schemes of earlier groups of this name, too.
    const std::vector<VOColorSchemeGroup> &groups = teamOf(teamName).groups;
    for (std::size_t i = 0; i < groups.size() && static_cast<int>(i) < groupIndex; ++i) {
        if (groups[i].name == group.name)
            idNumber += countOf(groups[i].schemes, groups[i].schemes.size(), name);
    }
}

// The current scheme in the store, or null.
const VOColorScheme *VTColorSchemeComboBox::picked() const
{
    if (id.isNull())
        return nullptr;
    const VOColorScheme *first = nullptr;
    int number = idNumber;
    for (const VOColorSchemeGroup &group : teamOf(toQString(id.team)).groups) {
        if (group.name != id.group)
            continue;
        for (const VOColorScheme &each : group.schemes) {
            if (each.name != id.scheme)
                continue;
            if (number-- == 0)
                return &each;
            if (!first)
                first = &each;
        }
    }
    return first;
}

VOColorSchemeId VTColorSchemeComboBox::currentSchemeId() const
{
    return picked() ? id : VOColorSchemeId();
}

bool VTColorSchemeComboBox::setCurrentScheme(const VOColorSchemeId &id)
{
    if (!VOColorSchemeManager::instance()->find(id))
        return false;
    const QString team = toQString(id.team);
    const VOColorSchemeTeam &records = teamOf(team);
    for (std::size_t i = 0; i < records.groups.size(); ++i) {
        if (records.groups[i].name != id.group)
            continue;
        const int position = positionOf(records.groups[i].schemes, id.scheme);
        if (position >= 0)
            return showGroup(team, records, static_cast<int>(i), position);
    }
    return false;
}

QString VTColorSchemeComboBox::team() const
{
    return teamName.isEmpty() ? QString() : teamKey(teamKindOf(teamName));
}

QString VTColorSchemeComboBox::groupName() const
{
    if (!waitingGroup.isNull())
        return waitingGroup;
    const int index = listedGroup();
    return index < 0 ? QString()
                     : toQString(teamOf(teamName).groups[static_cast<std::size_t>(index)].name);
}

QString VTColorSchemeComboBox::schemeName() const
{
    return waitingScheme.isNull() ? toQString(scheme.name) : waitingScheme;
}

void VTColorSchemeComboBox::setTeam(const QString &team)
{
    const QString key = teamKey(teamKindOf(team));
    if (team.isEmpty() || key == this->team())
        return;
    // The group is one of the new team, then, if it has such a one.
    if (const QString group = groupName(); !group.isNull())
        waitingGroup = group;
    teamName = key;
    groupIndex = -1;
    listed = ListedGroup();
    applyNames();
    Q_EMIT currentSchemeChanged();
}

void VTColorSchemeComboBox::setGroupName(const QString &name)
{
    waitingGroup = name.isNull() ? QStringLiteral("") : name;
    groupIndex = -1;
    listed = ListedGroup();
    applyNames();
    Q_EMIT currentSchemeChanged();
}

void VTColorSchemeComboBox::setSchemeName(const QString &name)
{
    waitingScheme = name.isNull() ? QStringLiteral("") : name;
    applyNames();
    Q_EMIT currentSchemeChanged();
}

// Whatever was set as a property and named nothing is over.
void VTColorSchemeComboBox::dropNames()
{
    waitingGroup = QString();
    waitingScheme = QString();
}

void VTColorSchemeComboBox::applyNames()
{
    if (teamName.isEmpty())
        return;
    const VOColorSchemeTeam &records = teamOf(teamName);
    if (!waitingGroup.isNull()) {
        groupIndex = records.index(toVOString(waitingGroup));
        noteGroup();
        if (groupIndex < 0)
            return;
        waitingGroup = QString();
    }
    const int group = listedGroup();
    if (waitingScheme.isNull() || group < 0)
        return;
    const VOColorSchemeGroup &shown = records.groups[static_cast<std::size_t>(group)];
    const int position = positionOf(shown.schemes, toVOString(waitingScheme));
    if (position < 0)
        return;
    waitingScheme = QString();
    setScheme(shown.schemes[static_cast<std::size_t>(position)]);
    noteScheme(shown, position);
}

void VTColorSchemeComboBox::setFollowsStore(bool on)
{
    m_followsStore = on;
    if (on && follow())
        Q_EMIT currentSchemeChanged();
}

// Takes over what the scheme is in the store now; true if it is another one.
bool VTColorSchemeComboBox::follow()
{
    const VOColorScheme *const now = picked();
    if (!now || VOColorSchemeManager::areEqual(*now, scheme))
        return false;
    scheme = *now;
    updatePreview();
    return true;
}

void VTColorSchemeComboBox::listGroup(VOTeamKind team, int group)
{
    dropNames();
    teamName = teamKey(team);
    if (group >= 0)
        groupIndex = group;
    noteGroup();
    untold = true;
}

void VTColorSchemeComboBox::takeScheme(const VOColorSchemeGroup &group, int position)
{
    if (position < 0 || static_cast<std::size_t>(position) >= group.schemes.size())
        return;
    dropNames();
    setScheme(group.schemes[static_cast<std::size_t>(position)]);
    noteScheme(group, position);
    untold = true;
}

void VTColorSchemeComboBox::tellChoice()
{
    if (std::exchange(untold, false)) {
        const QPointer<VTColorSchemeComboBox> alive(this);
        Q_EMIT currentSchemeChanged();
        if (!alive)
            return;
    }
    Q_EMIT currentRampChanged();
}

// A manager wrote its copies into the store.
void VTColorSchemeComboBox::onSchemesMoved(const VOColorSchemeMoves &moves)
{
    bool changed = false;
    if (isGroupNoted()) {
        const int now = moves.groupMovedTo(teamKindOf(teamName), listed.name, listed.number);
        const QString before = toQString(listed.name);
        groupIndex = now;
        noteGroup();
        changed = !listed.isKnown || toQString(listed.name) != before;
    }
    if (!id.isNull()) {
        const VOColorSchemeId now = moves.movedTo(id, idNumber);
        changed = changed || now != id;
        id = now;
        if (!id.isNull())
            scheme.name = id.scheme;
    }
    if (changed)
        Q_EMIT currentSchemeChanged();
}

void VTColorSchemeComboBox::onStoreChanged()
{
    const int group = listedGroup();
    if (group >= 0) {
        groupIndex = group;
        noteGroup();
    }
    const bool waits = !waitingGroup.isNull() || !waitingScheme.isNull();
    applyNames();
    const bool found = waits && waitingGroup.isNull() && waitingScheme.isNull();
    const bool followed = m_followsStore && follow();
    if (found || followed)
        Q_EMIT currentSchemeChanged();
}
