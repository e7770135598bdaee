#include "vomap/VOColorSchemeManager.h"

#include "vomap/VOColorSchemeId.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"
#include "vomap/files/fileProblem_p.h"
#include "vomap/files/fileSystem_p.h"
#include "vomap/files/schemeText_p.h"
#include "vomap/store/SchemeStore_p.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QStandardPaths>

#include <exception>

namespace VTObjects {

namespace {

VOString &chosenDirectory()
{
    static VOString directory;
    return directory;
}

std::string storeFolder()
{
    if (chosenDirectory() != L"")
        return nativePath(chosenDirectory());
    return nativePath(toVOString(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                                 QStringLiteral("/colorschemes")));
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
{
    load();
}

VOColorSchemeManager::~VOColorSchemeManager() = default;

VOColorSchemeManager *VOColorSchemeManager::instance()
{
    static VOColorSchemeManager manager;
    return &manager;
}

void VOColorSchemeManager::setStoreDirectory(const VOString &directory)
{
    chosenDirectory() = directory;
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

bool VOColorSchemeManager::load()
{
    return succeeds([this] {
        return store->load(storeFolder(), {&defaultTeam, &customTeam, &favoriteTeam});
    });
}

bool VOColorSchemeManager::save()
{
    return succeeds([this] {
        return store->save(storeFolder(), {{DefaultTeam, &defaultTeam},
                                           {CustomTeam, &customTeam},
                                           {FavoriteTeam, &favoriteTeam}});
    });
}

bool VOColorSchemeManager::saveCustomTeam()
{
    return succeeds([this] { return store->save(storeFolder(), {{CustomTeam, &customTeam}}); });
}

void VOColorSchemeManager::resetDefaultTeam()
{
    succeeds([this] {
        defaultTeam = builtInTeam();
        return true;
    });
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
