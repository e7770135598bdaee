// A ramp of one's own, shown as a strip.
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "vomap/VOEvenColorRamp.h"

#include <QApplication>
#include <QLabel>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    VTObjects::rgb_color<float> sources[] = {{0, 60, 48}, {245, 245, 245}, {84, 48, 5}};
    VTObjects::VOEvenColorRamp ramp;
    ramp.setSourceColor(3, sources);
    ramp.split(9);

    QLabel label;
    label.setPixmap(colorRampPreviewPixmap(&ramp, QSize(360, 40)));
    label.show();
    return QApplication::exec();
}
