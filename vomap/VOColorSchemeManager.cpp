#include "vomap/VOColorSchemeManager.h"

#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"
#include "vomap/files/TeamFile_p.h"
#include "vomap/files/fileProblem_p.h"
#include "vomap/files/fileSystem_p.h"
#include "vomap/files/schemeText_p.h"
#include "vomap/store/HostGroups_p.h"
#include "vomap/store/SchemeStore_p.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QStandardPaths>

#include <exception>
#include <utility>

namespace VTObjects {

namespace {

struct ChosenDirectory
{
    VOString name; // empty for the default place
    bool mustExist = false;
};

ChosenDirectory &chosenDirectory()
{
    static ChosenDirectory directory;
    return directory;
}

StoreFolder storeFolder()
{
    const ChosenDirectory &chosen = chosenDirectory();
    if (chosen.name != L"")
        return {nativePath(chosen.name), chosen.mustExist};
    return {
        nativePath(toVOString(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                              QStringLiteral("/colorschemes"))),
        false};
}

// Want of memory is a failure like any other: nothing is thrown out of here.
template <typename Action>
bool succeeds(Action action)
{
    try {
        return action();
    } catch (const std::exception &) {
        return false;
    }
}

} // namespace

VOColorSchemeManager::VOColorSchemeManager()
    : store(std::make_unique<SchemeStore>())
    , hosts(std::make_unique<HostGroups>())
{
    if (!read())
        unreadFolder = storeFolder().path;
    store->takeNews(); // whoever asks for the store sees it
}

VOColorSchemeManager::~VOColorSchemeManager() = default;

VOColorSchemeManager *VOColorSchemeManager::instance()
{
    static VOColorSchemeManager manager;
    return &manager;
}

void VOColorSchemeManager::setStoreDirectory(const VOString &directory)
{
    chosenDirectory() = {directory, false};
}

void VOColorSchemeManager::requireStoreDirectory(const VOString &directory)
{
    chosenDirectory() = {directory, true};
}

VOColorSchemeTeam &VOColorSchemeManager::team(VOTeamKind kind)
{
    VOColorSchemeTeam *const teams[] = {&defaultTeam, &customTeam, &favoriteTeam};
    return *teams[kind];
}

const VOColorSchemeTeam &VOColorSchemeManager::team(VOTeamKind kind) const
{
    const VOColorSchemeTeam *const teams[] = {&defaultTeam, &customTeam, &favoriteTeam};
    return *teams[kind];
}

const VOColorScheme *VOColorSchemeManager::find(const VOColorSchemeId &id) const
{
    if (id.isNull())
        return nullptr;
    for (const VOColorSchemeGroup &group : team(teamKindOf(toQString(id.team))).groups) {
        if (group.name != id.group)
            continue;
        for (const VOColorScheme &scheme : group.schemes) {
            if (scheme.name == id.scheme)
                return &scheme;
        }
    }
    return nullptr;
}

bool VOColorSchemeManager::areEqual(const VOColorScheme &left, const VOColorScheme &right)
{
    return schemeChecksum(left) == schemeChecksum(right);
}

bool VOColorSchemeManager::read()
{
    return succeeds([this] {
        const bool all = store->load(storeFolder(), {&defaultTeam, &customTeam, &favoriteTeam});
        hosts->putInto(defaultTeam);
        return all;
    });
}

bool VOColorSchemeManager::load()
{
    bool all = read();
    if (!unreadFolder.empty() && std::exchange(unreadFolder, {}) == storeFolder().path)
        all = false;
    announce();
    return all;
}

bool VOColorSchemeManager::reloadIfChanged()
{
    if (holds > 0)
        return false;
    const bool changed = succeeds([this] {
        const HostGroups::Aside aside(*hosts, defaultTeam);
        return store->reload(storeFolder(), {&defaultTeam, &customTeam, &favoriteTeam});
    });
    announce();
    return changed;
}

void VOColorSchemeManager::takeEdited(const std::array<VOColorSchemeTeam, 3> &copies,
                                      VOColorSchemeMoves &moves)
{
    for (const VOTeamKind kind : allTeams) {
        team(kind) = copies[kind];
        for (VOColorSchemeGroup &group : team(kind).groups) {
            group.origin = 0;
            for (VOColorScheme &scheme : group.schemes)
                scheme.origin = 0;
        }
    }
    moves.setEdited(copies);
    Q_EMIT VOColorSchemeNotifier::instance()->schemesMoved(moves);
    moves.settle();
}

bool VOColorSchemeManager::write(const std::vector<VOTeamKind> &kinds)
{
    const StoreFolder folder = storeFolder();
    const bool done = succeeds([&] {
        std::vector<SchemeStore::Saving> savings;
        savings.reserve(kinds.size());
        for (const VOTeamKind kind : kinds)
            savings.push_back({kind, &team(kind)});
        const HostGroups::Aside aside(*hosts, defaultTeam);
        return store->save(folder, savings);
    });
    if (done && kinds.size() == allTeams.size() && unreadFolder == folder.path)
        unreadFolder.clear(); // what lies there now was written here
    announce();
    if (!done)
        Q_EMIT VOColorSchemeNotifier::instance()->saveFailed(shownPath(folder.path),
                                                             store->failure());
    return done;
}

bool VOColorSchemeManager::save()
{
    return write({DefaultTeam, CustomTeam, FavoriteTeam});
}

bool VOColorSchemeManager::saveCustomTeam()
{
    return write({CustomTeam});
}

void VOColorSchemeManager::announce()
{
    if (store->takeNews())
        Q_EMIT VOColorSchemeNotifier::instance()->storeChanged();
}

std::vector<VOStoreProblem> VOColorSchemeManager::problems() const
{
    return store->problems;
}

void VOColorSchemeManager::clearProblems()
{
    store->problems.clear();
}

VOColorSchemeManager::Hold::Hold()
{
    ++instance()->holds;
}

VOColorSchemeManager::Hold::~Hold()
{
    --instance()->holds;
}

void VOColorSchemeManager::resetDefaultTeam()
{
    succeeds([this] {
        defaultTeam = builtInTeam();
        hosts->putInto(defaultTeam);
        return true;
    });
}

bool VOColorSchemeManager::addHostGroup(const VOColorSchemeGroup &group, const QString &caption)
{
    const bool added = succeeds([&] { return hosts->add(group, caption, defaultTeam); });
    if (added)
        Q_EMIT VOColorSchemeNotifier::instance()->storeChanged();
    return added;
}

void VOColorSchemeManager::setGroupCaption(const VOString &group, const QString &caption)
{
    hosts->setCaption(group, caption);
}

QString VOColorSchemeManager::groupCaption(const VOString &group) const
{
    const QString caption = hosts->caption(group);
    return caption.isEmpty() && hosts->contains(group) ? toQString(group) : caption;
}

const std::vector<VOString> &VOColorSchemeManager::hostGroups() const
{
    return hosts->names();
}

bool VOColorSchemeManager::readFile(VOColorScheme &scheme, const VOString &path)
{
    QString problem;
    return readFile(scheme, path, problem);
}

bool VOColorSchemeManager::saveFile(const VOColorScheme &scheme, const VOString &path)
{
    QString problem;
    return saveFile(scheme, path, problem);
}

std::string VOColorSchemeManager::toText(const VOColorScheme &scheme)
{
    std::string text;
    const bool written = succeeds([&] { return writeSchemeText(scheme, text); });
    return written ? text : std::string();
}

bool VOColorSchemeManager::fromText(VOColorScheme &scheme, const std::string &text)
{
    QString problem;
    return fromText(scheme, text, problem);
}

bool VOColorSchemeManager::fromText(VOColorScheme &scheme, const std::string &text,
                                    QString &problem)
{
    return succeeds([&] {
        problem = memoryProblem(); // unless it gets to its end
        SchemeFault fault;
        const bool read = readSchemeText(text, scheme, &fault);
        problem = textProblem(fault);
        return read;
    });
}

bool VOColorSchemeManager::readFile(VOColorScheme &scheme, const VOString &path, QString &problem)
{
    return succeeds([&] {
        problem = memoryProblem(); // unless it gets to its end
        ByteBuffer bytes;
        QString found = readingProblem(readWholeFile(nativePath(path), maxSchemeText, bytes));
        SchemeFault fault;
        if (found.isEmpty() && !readSchemeText(bytes.view(), scheme, &fault))
            found = textProblem(fault);
        problem = found;
        return found.isEmpty();
    });
}

bool VOColorSchemeManager::saveFile(const VOColorScheme &scheme, const VOString &path,
                                    QString &problem)
{
    return succeeds([&] {
        problem = memoryProblem(); // unless it gets to its end
        const std::string file = nativePath(path);
        std::string text;
        QString found;
        if (!writeSchemeText(scheme, text))
            found = schemeProblem(scheme);
        else if (file.empty() || !replaceFile(file, text))
            found = writingProblem(toQString(path));
        problem = found;
        return found.isEmpty();
    });
}

} // namespace VTObjects
