#include "colorscheme/model/VTDialogLayout.h"

#include "colorscheme/model/DialogMemory_p.h"

#include <QPointer>
#include <QSettings>

namespace vtcontrolcolorscheme {

namespace {

QPointer<QSettings> &rememberedIn()
{
    static QPointer<QSettings> settings;
    return settings;
}

} // namespace

QSettings *layoutSettings()
{
    return rememberedIn();
}

} // namespace vtcontrolcolorscheme

void VTDialogLayout::rememberIn(QSettings *settings)
{
    vtcontrolcolorscheme::rememberedIn() = settings;
}
