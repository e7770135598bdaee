#include "colorscheme/picker/defaultGroupCaptions.h"

QMap<VTObjects::VOString, QString> defaultGroupCaptions;
