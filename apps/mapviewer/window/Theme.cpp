#include "apps/mapviewer/window/Theme.h"

#include <QColor>

namespace mapviewer {

namespace {

QPalette makePalette(const QColor &window, const QColor &base, const QColor &text,
                     const QColor &button, const QColor &highlight)
{
    QPalette palette(button, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(text.red(), text.green(), text.blue(), 140));
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role,
                         QColor(text.red(), text.green(), text.blue(), 110));
    return palette;
}

} // namespace

QPalette lightPalette()
{
    return makePalette(QColor(0xf1, 0xf3, 0xf4), Qt::white, QColor(0x20, 0x26, 0x2b),
                       QColor(0xf1, 0xf3, 0xf4), QColor(0x2a, 0x6f, 0xb0));
}

QPalette darkPalette()
{
    return makePalette(QColor(0x2a, 0x2d, 0x31), QColor(0x1f, 0x22, 0x25), QColor(0xe4, 0xe7, 0xea),
                       QColor(0x36, 0x3a, 0x3f), QColor(0x3d, 0x87, 0xc9));
}

QString panelStyleSheet(bool dark)
{
    if (!dark)
        return {};
    return QStringLiteral("VTColorSchemeComboBox{background-color:#c8cdd2;color:black;}");
}

} // namespace mapviewer
