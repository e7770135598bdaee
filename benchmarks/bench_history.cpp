// What keeping earlier states costs a save: stores of the common size and of a huge one, saved turn
// by turn with a history and without, so that both meet the same disk.

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStoreHistory.h"
#include "vomap/VOStringConversion.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace VTObjects;

namespace {

constexpr int turn = 5;
constexpr std::uint64_t room = std::uint64_t(64) << 20;

VOColorSchemeGroup groupOf(int schemes)
{
    VOColorSchemeGroup group;
    group.name = L"Group";
    for (int i = 0; i < schemes; ++i) {
        VOColorScheme scheme;
        scheme.name = L"Scheme number " + std::to_wstring(i);
        auto *ramp = new VOEvenColorRamp;
        rgb_color<float> sources[] = {{196, 69, float(i % 256)}, {255, 255, 191}, {48, 95, 207}};
        ramp->setSourceColor(3, sources);
        ramp->split(10);
        scheme.colorRamp = ramp;
        group.schemes.push_back(scheme);
    }
    return group;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool measure(VOColorSchemeManager &manager, int schemes, int rounds)
{
    VOStoreHistory history(manager);
    manager.customTeam.groups = {groupOf(schemes)};
    std::vector<double> with;
    std::vector<double> without;
    for (int round = 0; round < 2 * rounds; ++round) {
        const bool keeps = round / turn % 2 == 0;
        history.setLimits(keeps ? 20 : 0, room);
        manager.customTeam.groups[0].schemes[0].author = std::to_wstring(round);
        QElapsedTimer timer;
        timer.start();
        if (!manager.save())
            return false;
        const double time = double(timer.nsecsElapsed()) / 1e6;
        if (round % turn != 0) // the first of a turn tidies up behind the other side
            (keeps ? with : without).push_back(time);
    }
    std::printf("%7d schemes: %8.2f ms with a history, %8.2f ms without: %+.1f %%\n", schemes,
                median(with), median(without), (median(with) / median(without) - 1) * 100);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    // Beside the program and not in the folder for temporary files, which may be in memory.
    QTemporaryDir directory(QCoreApplication::applicationDirPath() + "/store-XXXXXX");
    VOColorSchemeManager::setStoreDirectory(toVOString(directory.path()));
    VOColorSchemeManager &manager = *VOColorSchemeManager::instance();
    return measure(manager, 300, 200) && measure(manager, 10000, 50) && measure(manager, 100000, 15)
               ? 0
               : 1;
}
