#pragma once

#include "vomap/VOColorSchemeTeam.h"

#include <QMap>
#include <QString>

#include <vector>

namespace VTObjects {

/// The built-in groups that the host has added to the default team, by their names, and what groups
/// are called in views. They stand behind ours in the team, and no file has them.
class HostGroups
{
public:
    /// False for a name that is none, or that a built-in group has already. A group that an earlier
    /// release of the host left in the team gives way.
    bool add(const VOColorSchemeGroup &group, const QString &caption, VOColorSchemeTeam &team);
    /// In the order in which they were added.
    const std::vector<VOString> &names() const { return m_names; }
    bool contains(const VOString &name) const;
    /// As they were added, into a team that was made anew.
    void putInto(VOColorSchemeTeam &team) const;

    void setCaption(const VOString &group, const QString &caption) { captions[group] = caption; }
    /// Empty where the host gave none.
    QString caption(const VOString &group) const { return captions.value(group); }

    /// Keeps the host's groups out of the team as long as it lives: what files get and give is the
    /// rest. A group that was lost meanwhile comes back as it was added.
    class Aside
    {
    public:
        Aside(const HostGroups &hosts, VOColorSchemeTeam &team);
        ~Aside();
        Aside(const Aside &) = delete;
        Aside &operator=(const Aside &) = delete;

    private:
        const HostGroups &hosts;
        VOColorSchemeTeam &team;
        std::vector<VOColorSchemeGroup> kept;
    };

private:
    std::vector<VOColorSchemeGroup> takeFrom(VOColorSchemeTeam &team) const;

    std::vector<VOString> m_names;
    std::vector<VOColorSchemeGroup> groups; // as they were added
    QMap<VOString, QString> captions;
};

} // namespace VTObjects
