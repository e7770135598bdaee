#include "vomap/VOColorSchemeManager.h"

#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"
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
    return succeeds([&scheme, &path] {
        ByteBuffer bytes;
        return readWholeFile(nativePath(path), maxSchemeText, bytes) == ReadState::Read &&
               readSchemeText(bytes.view(), scheme);
    });
}

bool VOColorSchemeManager::saveFile(const VOColorScheme &scheme, const VOString &path)
{
    return succeeds([&scheme, &path] {
        std::string text;
        const std::string file = nativePath(path);
        return !file.empty() && writeSchemeText(scheme, text) && replaceFile(file, text);
    });
}

} // namespace VTObjects
