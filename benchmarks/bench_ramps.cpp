#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace VTObjects;

namespace {

// The best of several runs in milliseconds: what else the machine does only adds.
template <typename Work>
double milliseconds(int runs, Work work)
{
    using Clock = std::chrono::steady_clock;
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        const Clock::time_point start = Clock::now();
        work(i);
        const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

} // namespace

int main()
{
    // The first split of a process also makes the tables.
    VORandomColorRamp first;
    std::printf("first split(10) of the process       %9.3f ms\n",
                milliseconds(1, [&](int) { first.split(10); }));
    for (const unsigned int count : {10U, 100U, 1000U, 1000000U}) {
        const int runs = count > 1000 ? 3 : 10;
        VORandomColorRamp random;
        std::printf("random              split(%7u)   %9.3f ms\n", count,
                    milliseconds(runs, [&](int i) {
                        random.setSeed(i);
                        random.split(count);
                    }));
        VORandomColorRampForHsv hsv;
        hsv.minH = 1;
        hsv.maxH = 100;
        hsv.minS = hsv.minV = 1;
        hsv.maxS = hsv.maxV = 99;
        std::printf("random in HSV bounds split(%7u)  %9.3f ms\n", count,
                    milliseconds(runs, [&](int i) {
                        hsv.setSeed(i);
                        hsv.split(count);
                    }));
    }
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    VOEvenColorRamp even;
    even.setSourceColor(3, sources);
    constexpr unsigned int million = 1000000;
    std::printf("even                split(%7u)   %9.2f ns a color\n", million,
                milliseconds(10, [&](int) { even.split(million); }) * 1e6 / million);
    return even.getLevel() == million ? 0 : 1;
}
