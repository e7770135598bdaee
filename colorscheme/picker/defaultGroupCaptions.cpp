#include "colorscheme/picker/defaultGroupCaptions_p.h"

namespace vtcontrolcolorscheme {

QMap<VTObjects::VOString, QString> defaultGroupCaptions;

} // namespace vtcontrolcolorscheme
