#include "colorscheme/model/colorRampPreviewPixmap.h"

#include "vomap/VOEvenColorRamp.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdio>

using VTObjects::rgb_color;
using VTObjects::VOEvenColorRamp;

namespace {

/// Microseconds a strip, the mean of as many as fit into a quarter of a second.
double microseconds(VOEvenColorRamp &ramp, QSize size)
{
    QElapsedTimer timer;
    timer.start();
    int strips = 0;
    do {
        colorRampPreviewPixmap(&ramp, size);
        ++strips;
    } while (timer.elapsed() < 250);
    return double(timer.nsecsElapsed()) / 1000 / strips;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    VOEvenColorRamp ramp;
    ramp.setSourceColor(3, sources);
    std::printf("%10s %14s %14s   microseconds a strip\n", "colors", "140 x 20", "515 x 30");
    for (const unsigned int level : {10U, 140U, 300U, 20000U, 1000000U}) {
        ramp.split(level);
        std::printf("%10u %14.1f %14.1f\n", level, microseconds(ramp, QSize(140, 20)),
                    microseconds(ramp, QSize(515, 30)));
    }
    return 0;
}
