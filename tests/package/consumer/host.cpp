#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/ColorSchemeNodeInfo.h"
#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTColorSchemeView.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/manager/VtColorSchemeNameDelegate.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "colorscheme/picker/VTSchemeMenuActionWidget.h"
#include "vobase/VOString.h"
#include "vomap/VOColorSchemeId.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vtcontrolbase/VTColorMenu.h"
#include "vtgiscore/VTApplication.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QVariant>

#include <cstdio>
#include <memory>
#include <vector>

using namespace VTObjects;

namespace {

int failures = 0;

void expect(bool fulfilled, const char *what)
{
    if (fulfilled)
        return;
    std::fprintf(stderr, "failed: %s\n", what);
    ++failures;
}

/// Casts by type work across the library's border.
void useRamps()
{
    std::vector<std::unique_ptr<VOColorRamp>> ramps;
    ramps.push_back(std::make_unique<VORandomColorRamp>());
    ramps.push_back(std::make_unique<VORandomColorRampForHsv>());
    ramps.push_back(std::make_unique<VOEvenColorRamp>());
    ramps.push_back(std::make_unique<VOPredefineColorRamp>());
    for (const auto &ramp : ramps) {
        ramp->split(7);
        const std::unique_ptr<VOColorRamp> clone(ramp->clone());
        expect(clone->getLevel() == 7, "a clone has its colors");
        expect(dynamic_cast<VOColorRampContainer *>(clone.get()), "a ramp is a container");
        expect(colorRampPreviewPixmap(clone.get(), QSize(140, 20)).width() == 140, "a preview");
    }
    expect(dynamic_cast<VORandomColorRampForHsv *>(ramps[1].get()), "the HSV ramp's class");
    expect(dynamic_cast<VOPredefineColorRamp *>(ramps[3].get()), "the predefined ramp's class");
}

void useRecords(const QString &directory)
{
    VOColorSchemeManager::setStoreDirectory(toVOString(directory));
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    expect(!store->defaultTeam.groups.empty(), "the built-in groups");
    VOColorSchemeGroup group = store->defaultTeam.groups[0];
    group.name = L"Mine";
    VOColorSchemeTeam team;
    team.groups.push_back(group);
    store->customTeam = team;
    expect(store->customTeam.index("Mine") == 0, "an added group");
    expect(store->save() && store->load(), "the store on disk");
    VOColorScheme scheme;
    const VOString file = toVOString(directory + QStringLiteral("/one.vcs"));
    expect(VOColorSchemeManager::saveFile(group.schemes[0], file), "a written scheme");
    expect(VOColorSchemeManager::readFile(scheme, file), "a read scheme");
    expect(scheme.name == group.schemes[0].name, "the read scheme's name");
}

void useTheStoresNews(const QString &directory)
{
    VOColorSchemeManager *const store = VOColorSchemeManager::instance();
    int changed = 0;
    int failed = 0;
    int moved = 0;
    QObject host;
    const VOColorSchemeNotifier *const notifier = VOColorSchemeNotifier::instance();
    QObject::connect(notifier, &VOColorSchemeNotifier::storeChanged, &host, [&] { ++changed; });
    QObject::connect(notifier, &VOColorSchemeNotifier::saveFailed, &host, [&] { ++failed; });
    QObject::connect(notifier, &VOColorSchemeNotifier::schemesMoved, &host, [&] { ++moved; });

    VTColorSchemeComboBox picker;
    picker.setFollowsStore(true);
    const VOColorSchemeId id{L"Custom", L"Mine", store->customTeam.groups[0].schemes[0].name};
    expect(picker.setCurrentScheme(VOColorSchemeId::fromText(id.toText())), "a scheme by its id");
    expect(store->find(picker.currentSchemeId()), "the picked scheme in the store");
    VOColorSchemeMoves::Teams copies{store->defaultTeam, store->customTeam, store->favoriteTeam};
    VOColorSchemeMoves moves(copies);
    copies[1].groups[0].schemes[0].name = L"renamed";
    store->takeEdited(copies, moves);
    expect(store->save(), "a save of it");
    expect(picker.currentSchemeId().scheme == "renamed", "a followed scheme");
    expect(changed == 1 && moved == 1 && failed == 0, "what was told of it");
    expect(!store->reloadIfChanged(), "no news");

    VOColorSchemeManager::requireStoreDirectory(toVOString(directory + QStringLiteral("/gone")));
    expect(!store->load() && !store->save() && failed == 1, "a missing directory");
    expect(!store->problems().empty(), "the problems of it");
    expect(store->problems()[0].kind == VOStoreProblem::FolderMissing, "their kind");
    VOColorSchemeManager::setStoreDirectory(toVOString(directory));
    store->clearProblems();
    expect(store->load() && store->problems().empty(), "the store again");
    VOColorSchemeGroup own = store->defaultTeam.groups[0];
    own.name = L"depth";
    expect(store->addHostGroup(own, QStringLiteral("For depth")), "a group of the host");
    VTColorSchemeManager manager;
    manager.setTeamReadOnly(CustomTeamNode, true);
    expect(manager.showScheme({L"Default", L"depth", own.schemes[0].name}), "a shown scheme");
    expect(manager.outcome() == VTColorSchemeManager::NothingChanged, "an outcome");
}

void useWidgets()
{
    VOColorSchemeGroup group = VOColorSchemeManager::instance()->defaultTeam.groups[0];
    VTColorSchemeComboBox box;
    expect(box.setDefaultGroup(QStringLiteral("Custom"), QStringLiteral("Mine"), 0), "a picker");
    QObject::connect(&box, &VTColorSchemeComboBox::currentRampChanged, &box, [] { ++failures; });
    VTColorSchemeGroupButton button(nullptr);
    VTColorSchemeGroupMenu groupMenu(&button);
    VTColorSchemeMenu menu(QStringLiteral("For DEM"), group, &box);
    VTSchemeMenuActionWidget entry(nullptr);
    VTColorSchemeManager manager;
    VTColorSchemeView view;
    VtColorSchemeNameDelegate delegate(&view);
    VTColorSchemeModel table;
    table.setGroup(group);
    expect(table.rowCount() == int(group.schemes.size()), "the scheme table");
    VTLineEditWidget field(nullptr);
    VTAddColorSchemeGroupDialog dialog(QStringLiteral("Custom group1"), nullptr);
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    VTColorModel colors;
    expect(colors.rowCount() == 0, "the color list");
    VTColorMenu colorMenu(nullptr);
    colorMenu.setColor(Qt::red);
    expect(colorMenu.getColor() == QColor(Qt::red).rgb(), "the color menu");
    // Casts and meta types work across the library's border, too.
    for (QObject *object : std::initializer_list<QObject *>{
             &box, &button, &groupMenu, &menu, &entry, &manager, &view, &delegate, &table, &field,
             &dialog, &editor, &colors, &colorMenu})
        expect(object->metaObject()->className()[0] == 'V', "a meta object");
    expect(qobject_cast<VTColorSchemeComboBox *>(menu.parentWidget()), "a cast picker");
    const QVariant node = QVariant::fromValue(ColorSchemeNodeInfo("Mine", GroupNode));
    expect(node.value<ColorSchemeNodeInfo>().name == "Mine", "a node");
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QTemporaryDir directory;
    VTApplication::setVtgisSettingsFilePath(directory.filePath(QStringLiteral("settings.ini")));
    expect(QFile::exists(QStringLiteral(":/icon/AddGroup.png")), "the icons");
    expect(!VTSymbolUtils::createColorPixmap(QSize(20, 20), Qt::red).isNull(), "a swatch");
    useRamps();
    useRecords(directory.path());
    useWidgets();
    useTheStoresNews(directory.path());
    return failures;
}
