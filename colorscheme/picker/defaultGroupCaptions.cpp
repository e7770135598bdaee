#include "colorscheme/picker/defaultGroupCaptions_p.h"

QMap<VTObjects::VOString, QString> defaultGroupCaptions;
