#include "colorscheme/picker/VTColorSchemeGroupButton.h"

#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/drawKeyboardFocus_p.h"

#include <QEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QTextDocument>

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

int VTColorSchemeGroupButton::textRoom() const
{
    return width() - iconSize().width() - arrowSpace;
}

bool VTColorSchemeGroupButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool fits = fontMetrics().horizontalAdvance(text()) <= textRoom();
        setToolTip(fits ? QString() : Qt::convertFromPlainText(text(), Qt::WhiteSpaceNormal));
    }
    return QToolButton::event(event);
}

void VTColorSchemeGroupButton::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    // The text is a group's name: an ampersand in it is one, and no mark for a key.
    option.text = fontMetrics().elidedText(text(), Qt::ElideRight, textRoom());
    option.text.replace(QLatin1Char('&'), QLatin1String("&&"));
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    drawKeyboardFocus(painter, this);
}

void VTColorSchemeGroupButton::showMenu()
{
    VTColorSchemeGroupMenu menu(this);
    menu.exec();
}
