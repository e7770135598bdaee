#include "namesakes.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vtcontrolbase/VTColorMenu.h"
#include "vtgiscore/VTApplication.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using VTObjects::toVOString;
using VTObjects::VOColorRamp;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

namespace {

int failures = 0;

void expect(bool fulfilled, const char *what)
{
    if (fulfilled)
        return;
    std::fprintf(stderr, "failed: %s\n", what);
    ++failures;
}

/// Nothing of the store's header is in the way of who takes all names of its namespace.
void useOwnTeams()
{
    using namespace VTObjects;
    const VOColorSchemeTeam &favorites = VOColorSchemeManager::instance()->favoriteTeam;
    expect(favorites.groups.empty() && FavoriteTeam == 3, "the host's teams");
}

/// Each of these comes by a name that the host has as well.
void useLibrary()
{
    VTColorSchemeComboBox box; // captions of the built-in groups, the ramp of a new scheme
    VOColorRamp *const ramp = box.currentColorRamp();
    expect(ramp && ramp->getLevel() > 0, "a picker's ramp");
    expect(box.setDefaultGroup(QStringLiteral("Default"), QStringLiteral("DEM"), 0), "a group");
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    expect(!store->defaultTeam.groups.empty(), "the built-in schemes");
    expect(store->save() && store->load(), "the store on disk");
    const VTColorSchemeManager manager;
    VOColorSchemeGroup group = store->defaultTeam.groups[0];
    const VTColorSchemeEditor editor(0, &group, false, nullptr);
    const VTColorMenu menu(nullptr);
    expect(!manager.windowTitle().isEmpty() && !editor.windowTitle().isEmpty(), "dialogs");
}

void useOwn()
{
    expect(dataModified, "the host's flag"); // a manager that ends resets the library's
    expect(defaultGroupCaptions.size() == 1, "the host's map");
    expect(defaultColorRamp().size() == 2, "the host's ramp");
    expect(safeFileName(QStringLiteral("a")) == QStringLiteral("ahost"), "the host's file name");
    expect(describeColorRamp(Qt::red) == QStringLiteral("#ff0000"), "the host's description");
    expect(builtInSchemes() + swatchColors() == 7, "the host's numbers");
    expect(GeneratedName(QStringLiteral("four")).count() == 4, "the host's class");
    const SchemeStore store;
    const JsonReader &reader = store;
    expect(reader.depth() == 2, "the host's derived class");
}

} // namespace

/// A host whose names are those of the library's inside, resources included.
int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QTemporaryDir directory;
    VTApplication::setVtgisSettingsFilePath(directory.filePath(QStringLiteral("settings.ini")));
    VOColorSchemeManager::setStoreDirectory(toVOString(directory.path()));
    expect(QFile::exists(QStringLiteral(":/icon/Host.svg")), "the host's icon");
    expect(QFile::exists(QStringLiteral(":/icon/AddGroup.png")), "the library's icons");
    useOwn();
    useLibrary();
    useOwnTeams();
    useOwn();
    return failures;
}
