#include "colorscheme/picker/VTColorSchemeGroupButton.h"

#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/drawKeyboardFocus_p.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

using vtcontrolcolorscheme::drawKeyboardFocus;

namespace {

constexpr int minimumBarHeight = 20;
constexpr int arrowSpace = 16; // what a style leaves around the arrow and the text

} // namespace

VTColorSchemeGroupButton::VTColorSchemeGroupButton(QWidget *parent)
    : QToolButton(parent)
{
    setMinimumHeight(minimumBarHeight);
    setArrowType(Qt::LeftArrow);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(this, &QToolButton::clicked, this, &VTColorSchemeGroupButton::showMenu);
}

VTColorSchemeGroupButton::~VTColorSchemeGroupButton() = default;

void VTColorSchemeGroupButton::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    // The text is a group's name: an ampersand in it is one, and no mark for a key.
    const int room = width() - option.iconSize.width() - arrowSpace;
    option.text = fontMetrics().elidedText(text(), Qt::ElideRight, room);
    option.text.replace(QLatin1Char('&'), QLatin1String("&&"));
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    drawKeyboardFocus(painter, this);
}

void VTColorSchemeGroupButton::showMenu()
{
    VTColorSchemeGroupMenu menu(this);
    menu.exec();
}
