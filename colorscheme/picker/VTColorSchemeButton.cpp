#include "colorscheme/picker/VTColorSchemeButton.h"

VTColorSchemeButton::VTColorSchemeButton(QWidget *parent)
    : QToolButton(parent)
{
}

VTColorSchemeButton::~VTColorSchemeButton() = default;
