#pragma once

#include "vomap/VOColorSchemeTeam.h"
#include "vomap/VOStoreProblem.h"

#include <QString>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace VTObjects {

class HostGroups;
class SchemeStore;
class VOColorSchemeMoves;
struct VOColorSchemeId;
enum VOTeamKind : int; // its values, which a host may have names for itself, are not brought along

/// The store: every scheme that the application knows, in three teams. One for the whole process;
/// its teams are edited in place and reach the disk with save() or saveCustomTeam() only.
///
/// Use it from the user-interface thread. Failures are answered with false; nothing is thrown.
class VOMAP_EXPORT VOColorSchemeManager
{
public:
    VOColorSchemeTeam defaultTeam;  ///< built-in groups
    VOColorSchemeTeam customTeam;   ///< the user's own groups
    VOColorSchemeTeam favoriteTeam; ///< groups of schemes marked as favourites

    /// One of these three.
    VOColorSchemeTeam &team(VOTeamKind kind);
    const VOColorSchemeTeam &team(VOTeamKind kind) const;

    /// The scheme of this id, or null. It is the store's, and lives until its group changes.
    const VOColorScheme *find(const VOColorSchemeId &id) const;

    /// Whether two schemes are equal field by field and color by color.
    static bool areEqual(const VOColorScheme &left, const VOColorScheme &right);

    /// The store. The first call loads it; never null, never to be deleted.
    static VOColorSchemeManager *instance();

    /// Keeps the store in another directory than the default place, which is "colorschemes" below
    /// the user's data folder for applications. Call it before the first instance() or before
    /// load(); an empty name means the default place again.
    static void setStoreDirectory(const VOString &directory);
    /// The same for a directory that is known to be there, such as one that the user chose earlier.
    /// Where it is missing (it was moved, or its disk is not connected), no other one is made in
    /// its place: load() answers false, problems() says so, and save() fails until it is back.
    static void requireStoreDirectory(const VOString &directory);

    /// Reads the store again from its directory and answers whether all of it could be read. False
    /// as well, once, if the first instance() could not read all of the same directory and no
    /// save() has succeeded there since: whoever loads only to hear of it learns of it. Where
    /// nothing was ever saved, the built-in schemes are there, and the answer is true. Of a damaged
    /// team the last good copy is read, and the damaged file is kept in the folder "damaged".
    bool load();
    /// Takes over what other processes saved since the last load() or save() here, and keeps what
    /// was changed here and is not saved yet: both are merged as by save(). True if that changed a
    /// team; pointers into the teams are invalid then. Cheap where nothing happened, so call it
    /// when a window of yours becomes active, or when a file watcher says so. Does nothing, and
    /// answers false, as long as there is a Hold.
    bool reloadIfChanged();
    /// Keeps reloadIfChanged() from changing the teams while somebody holds pointers into them or
    /// will write them back: a manager, and an editor that works in the store.
    class VOMAP_EXPORT Hold
    {
    public:
        Hold();
        ~Hold();
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;
    };

    /// Makes edited copies the three teams, by VOTeamKind, in memory only. `moves`, which marked
    /// the copies before they were edited, tells who follows a scheme what became of it.
    void takeEdited(const std::array<VOColorSchemeTeam, 3> &copies, VOColorSchemeMoves &moves);

    /// Writes the whole store to its directory. False, with the old files as they were, if it
    /// cannot be written, if another process does not let go of the store within two seconds, or
    /// if a newer release of the library wrote it. What another process saved since the last
    /// load() is not lost: it is merged into the files, and appears here with the next load() or
    /// reloadIfChanged(). What went wrong is told by VOColorSchemeNotifier::saveFailed(), too.
    bool save();
    /// Writes the custom team only; the files of the other teams are not touched.
    bool saveCustomTeam();
    /// What went wrong with the store, since the first instance() or the last clearProblems(), in
    /// that order. What is found again stands there once. A team that is saved in the end, and a
    /// missing directory that is back, are no problem any more.
    std::vector<VOStoreProblem> problems() const;
    void clearProblems();

    /// Makes the default team what this release of the library ships. The disk has it with the
    /// next save().
    void resetDefaultTeam();

    /// Adds a built-in group of the host's to the default team. The picker and the manager show it
    /// behind ours, by its caption (its name, if that is empty), and nobody can change it there. No
    /// file has it: add it at every start. False for an empty name, and for one that a built-in
    /// group bears already, of ours or of the host. A group of that name that an earlier release of
    /// the host left among the built-in ones is replaced, and gone from the disk with the next
    /// save.
    bool addHostGroup(const VOColorSchemeGroup &group, const QString &caption);
    /// What a group of the default team is called in the pickers and managers that are opened from
    /// now on; empty means as ever. The names of groups are keys, and stay.
    void setGroupCaption(const VOString &group, const QString &caption);
    /// What was set for a group; empty for none.
    QString groupCaption(const VOString &group) const;
    /// The names of the host's groups, in the order in which they were added.
    const std::vector<VOString> &hostGroups() const;

    /// Loads one scheme file. False, with `scheme` as it was, if the file cannot be read or is no
    /// scheme file. The path uses "/" as separator.
    static bool readFile(VOColorScheme &scheme, const VOString &path);
    /// Writes one scheme to a file, in place of any older one. False on failure, and for a scheme
    /// without a ramp.
    static bool saveFile(const VOColorScheme &scheme, const VOString &path);
    /// A scheme as the text of a scheme file, for a host's project files; empty for a scheme that
    /// saveFile() would refuse.
    static std::string toText(const VOColorScheme &scheme);
    /// The scheme of such a text. False, with `scheme` as it was, if it is none; `problem` tells
    /// why, as that of readFile().
    static bool fromText(VOColorScheme &scheme, const std::string &text);
    static bool fromText(VOColorScheme &scheme, const std::string &text, QString &problem);

    /// The same, telling why they failed: one sentence for the user, empty after a success.
    static bool readFile(VOColorScheme &scheme, const VOString &path, QString &problem);
    static bool saveFile(const VOColorScheme &scheme, const VOString &path, QString &problem);

private:
    friend class VOStoreHistory; // which reads the states in the store's folder
    VOColorSchemeManager();
    ~VOColorSchemeManager();
    VOColorSchemeManager(const VOColorSchemeManager &) = delete;
    VOColorSchemeManager &operator=(const VOColorSchemeManager &) = delete;

    bool read();
    bool write(const std::vector<VOTeamKind> &kinds);
    void announce();

    std::unique_ptr<SchemeStore> store;
    std::unique_ptr<HostGroups> hosts;
    std::string unreadFolder; // that the first instance() could not read, until load() has said so
    int holds = 0;
};

} // namespace VTObjects
