// How long the first start spends on the built-in schemes.
#include "vomap/store/builtInSchemes_p.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace VTObjects;

int main()
{
    QElapsedTimer timer;
    double first = 0.0;
    double best = 1e9;
    std::size_t count = 0;
    constexpr int runs = 10;
    for (int run = 0; run < runs; ++run) {
        timer.start();
        const VOColorSchemeTeam team = readBuiltInTeam();
        const double taken = double(timer.nsecsElapsed()) / 1e6;
        if (run == 0)
            first = taken;
        best = std::min(best, taken);
        count = 0;
        for (const VOColorSchemeGroup &group : team.groups)
            count += group.schemes.size();
    }
    std::printf("%zu built-in schemes: first %.1f ms, best of %d %.1f ms\n", count, first, runs,
                best);
    return 0;
}
