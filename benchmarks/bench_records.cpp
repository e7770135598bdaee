// How fast records are copied and erased: the working copies of the dialogs depend on it.
#include "vomap/VOColorSchemeTeam.h"
#include "vomap/VOEvenColorRamp.h"

#include <QElapsedTimer>

#include <cstdio>
#include <string>

using namespace VTObjects;

namespace {

VOColorSchemeGroup makeGroup(int count)
{
    VOColorSchemeGroup group;
    group.name = L"group";
    group.schemes.reserve(static_cast<std::size_t>(count));
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    for (int i = 0; i < count; ++i) {
        auto *ramp = new VOEvenColorRamp;
        ramp->setSourceColor(3, sources);
        ramp->split(10);
        VOColorScheme scheme;
        scheme.name = L"scheme number " + std::to_wstring(i);
        scheme.author = L"Admin";
        scheme.describe = L"Even";
        scheme.colorRamp = ramp;
        group.schemes.push_back(std::move(scheme));
    }
    return group;
}

} // namespace

int main()
{
    QElapsedTimer timer;
    VOColorSchemeTeam team;
    team.groups.push_back(makeGroup(100000));
    timer.start();
    VOColorSchemeTeam copy = team;
    std::printf("copying 100,000 schemes: %.0f ns a scheme\n",
                double(timer.nsecsElapsed()) / double(copy.groups.front().schemes.size()));

    VOColorSchemeGroup group = makeGroup(10000);
    timer.start();
    for (int row = 9990; row >= 0; row -= 10)
        group.schemes.erase(group.schemes.begin() + row);
    std::printf("erasing every tenth of 10,000 schemes, one by one: %.1f ms\n",
                double(timer.nsecsElapsed()) / 1e6);
    return group.schemes.size() == 9000 ? 0 : 1;
}
