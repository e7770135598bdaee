#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeMenu.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <memory>

using VTObjects::rgb_color;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOEvenColorRamp;

namespace {

VOColorSchemeGroup groupOf(int count)
{
    rgb_color<float> sources[] = {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
    VOColorSchemeGroup group;
    for (int i = 0; i < count; ++i) {
        auto *ramp = new VOEvenColorRamp;
        ramp->setSourceColor(3, sources);
        ramp->split(10);
        VOColorScheme scheme;
        scheme.name = toVOString(QStringLiteral("scheme %1").arg(i));
        scheme.colorRamp = ramp;
        group.schemes.push_back(scheme);
    }
    return group;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QWidget window;
    VTColorSchemeComboBox picker(&window);
    window.show();
    QApplication::processEvents();
    std::printf("%10s %10s %10s   milliseconds\n", "schemes", "open", "close");
    for (const int count : {10, 100, 1000, 5000}) {
        const VOColorSchemeGroup group = groupOf(count);
        QElapsedTimer timer;
        timer.start();
        auto menu = std::make_unique<VTColorSchemeMenu>(QStringLiteral("Group"), group, &picker);
        menu->popup(QPoint());
        QApplication::processEvents(); // layout and painting
        const qint64 opened = timer.elapsed();
        timer.start();
        menu.reset();
        QApplication::processEvents();
        std::printf("%10d %10lld %10lld\n", count, static_cast<long long>(opened),
                    static_cast<long long>(timer.elapsed()));
    }
    return 0;
}
