#include "vtcontrolbase/VTColorMenu.h"

#include "vtcontrolbase/ColorSwatchGrid_p.h"
#include "vtcontrolbase/HexColorField_p.h"
#include "vtcontrolbase/swatchColors_p.h"

#include <QColorDialog>
#include <QWidgetAction>

using vtcontrolbase::ColorSwatchGrid;
using vtcontrolbase::HexColorField;
using vtcontrolbase::swatchColors;
using vtcontrolbase::swatchColumns;

namespace {

/// What was chosen last in any colour menu of the process, the latest first: a row of the grid.
QVector<QColor> &recentColors()
{
    static QVector<QColor> colors;
    return colors;
}

void remember(const QColor &color)
{
    QVector<QColor> &colors = recentColors();
    colors.removeAll(color);
    colors.prepend(color);
    if (colors.size() > swatchColumns())
        colors.removeLast();
}

QWidgetAction *addWidget(QMenu *menu, QWidget *widget)
{
    auto *action = new QWidgetAction(menu);
    action->setDefaultWidget(widget);
    menu->addAction(action);
    return action;
}

} // namespace

VTColorMenu::VTColorMenu(QWidget *parent)
    : QMenu(parent)
    , palette(new ColorSwatchGrid(swatchColumns(), this))
    , recent(new ColorSwatchGrid(swatchColumns(), this))
    , hexField(new HexColorField(this))
{
    palette->setObjectName(QStringLiteral("palette"));
    palette->setAccessibleName(tr("Colors"));
    palette->setColors(swatchColors());
    recent->setObjectName(QStringLiteral("recent"));
    recent->setAccessibleName(tr("Recent colors"));
    hexField->setObjectName(QStringLiteral("hexField"));

    paletteAction = addWidget(this, palette);
    recentTitle = addSection(tr("Recent colors"));
    recentAction = addWidget(this, recent);
    addSeparator();
    addWidget(this, hexField);
    addSeparator();
    QAction *const moreColors = addAction(tr("More colors\u2026"));

    connect(palette, &ColorSwatchGrid::chosen, this, &VTColorMenu::choose);
    connect(recent, &ColorSwatchGrid::chosen, this, &VTColorMenu::choose);
    connect(hexField, &HexColorField::chosen, this, &VTColorMenu::choose);
    connect(moreColors, &QAction::triggered, this, &VTColorMenu::onMoreColors);
    connect(this, &QMenu::aboutToShow, this, &VTColorMenu::refresh);
}

VTColorMenu::~VTColorMenu() = default;

void VTColorMenu::setColor(QColor color)
{
    this->color = color.isValid() ? color : QColor(Qt::black);
    refresh();
}

QRgb VTColorMenu::getColor() const
{
    return color.rgba();
}

bool VTColorMenu::focusNextPrevChild(bool next)
{
    activateFocusedPart();
    return QMenu::focusNextPrevChild(next);
}

void VTColorMenu::keyPressEvent(QKeyEvent *event)
{
    activateFocusedPart();
    QMenu::keyPressEvent(event);
}

void VTColorMenu::showEvent(QShowEvent *event)
{
    QMenu::showEvent(event);
    // The arrow keys move in the grid at once.
    setActiveAction(paletteAction);
    palette->setFocus(Qt::PopupFocusReason);
}

void VTColorMenu::choose(const QColor &chosen)
{
    color = QColor(chosen.rgb()); // the dialog's colours are not always RGB
    remember(color);
    close();
}

void VTColorMenu::onMoreColors()
{
    // The menu has closed already, but its exec() returns only after this.
    QColorDialog dialog(color, parentWidget());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() == QDialog::Accepted)
        choose(dialog.selectedColor());
}

void VTColorMenu::refresh()
{
    recent->setColors(recentColors());
    recentAction->setVisible(!recentColors().isEmpty());
    recentTitle->setVisible(!recentColors().isEmpty());
    palette->setMarkedColor(color);
    recent->setMarkedColor(color);
    hexField->setColor(color);
}

void VTColorMenu::activateFocusedPart()
{
    // A click puts the focus into a part without making it the menu's active item, from which Tab
    // and the arrow keys would go on.
    const QWidget *const focused = focusWidget();
    for (QAction *action : actions()) {
        const auto *const part = qobject_cast<QWidgetAction *>(action);
        if (part && focused &&
            (part->defaultWidget() == focused || part->defaultWidget()->isAncestorOf(focused)))
            setActiveAction(action);
    }
}
