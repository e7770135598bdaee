// What the notifier and the references of pickers cost with 100,000 schemes, beside what they
// belong to.
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeMoves.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace VTObjects;

namespace {

constexpr int groups = 100;
constexpr int schemesInGroup = 1000;

void fill(VOColorSchemeTeam &team)
{
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    for (int g = 0; g < groups; ++g) {
        VOColorSchemeGroup group;
        group.name = L"group " + std::to_wstring(g);
        for (int i = 0; i < schemesInGroup; ++i) {
            auto *ramp = new VOEvenColorRamp;
            ramp->setSourceColor(3, sources);
            ramp->split(10);
            VOColorScheme scheme;
            scheme.name = L"scheme number " + std::to_wstring(i);
            scheme.colorRamp = ramp;
            group.schemes.push_back(std::move(scheme));
        }
        team.groups.push_back(std::move(group));
    }
}

double milliseconds(const std::function<void()> &work, int times = 1)
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < times; ++i)
        work();
    return double(timer.nsecsElapsed()) / 1e6 / times;
}

void print(const char *what, double time)
{
    std::printf("%-62s %9.3f ms\n", what, time);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir directory;
    VOColorSchemeManager::setStoreDirectory(toVOString(directory.filePath("store")));
    VOColorSchemeManager &store = *VOColorSchemeManager::instance();
    fill(store.customTeam);
    print("first save of 100,000 schemes", milliseconds([&] { store.save(); }));

    const VOColorSchemeId last{L"Custom", L"group 99", L"scheme number 999"};
    print("find() of the last scheme", milliseconds([&] { store.find(last); }, 1000));
    print("reloadIfChanged() where nothing happened, just saved",
          milliseconds([&] { store.reloadIfChanged(); }));

    VOColorSchemeMoves::Teams copies;
    print("copying the teams for a manager", milliseconds([&] {
              for (const VOTeamKind kind : allTeams)
                  copies[kind] = store.team(kind);
          }));
    std::unique_ptr<VOColorSchemeMoves> moves;
    print("  marking the copies",
          milliseconds([&] { moves = std::make_unique<VOColorSchemeMoves>(copies); }));
    copies[CustomTeam].groups[99].schemes[999].name = L"renamed";
    std::vector<std::unique_ptr<VTColorSchemeComboBox>> pickers;
    for (const int count : {0, 20}) {
        while (int(pickers.size()) < count) {
            pickers.push_back(std::make_unique<VTColorSchemeComboBox>());
            pickers.back()->setFollowsStore(true);
            pickers.back()->setCurrentScheme({L"Custom", L"group 98", L"scheme number 999"});
        }
        char text[80];
        std::snprintf(text, sizeof text, "writing the copies into the store, %d pickers following",
                      count);
        print(text, milliseconds([&] { store.takeEdited(copies, *moves); }));
        store.customTeam.groups[0].schemes[0].author = L"edited " + std::to_wstring(count);
        std::snprintf(text, sizeof text, "  saving them, %d pickers following", count);
        print(text, milliseconds([&] { store.save(); }));
        print("  saving them again, nothing new", milliseconds([&] { store.save(); }));
    }
    print("load()", milliseconds([&] { store.load(); }));
    return store.find({L"Custom", L"group 99", L"renamed"}) ? 0 : 1;
}
