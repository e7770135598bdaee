#include "colorscheme/picker/defaultGroupCaptions_p.h"

#include "vomap/VOColorSchemeManager.h"

namespace vtcontrolcolorscheme {

QMap<VTObjects::VOString, QString> defaultGroupCaptions;

QString defaultGroupCaption(const VTObjects::VOString &group)
{
    const QString ofTheHost = VTObjects::VOColorSchemeManager::instance()->groupCaption(group);
    return ofTheHost.isEmpty() ? defaultGroupCaptions[group] : ofTheHost;
}

} // namespace vtcontrolcolorscheme
