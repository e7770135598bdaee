#pragma once

#include "vobase/VOString.h"

#include <QMap>
#include <QString>

namespace vtcontrolcolorscheme {

/// From a default group's key name to the caption that the picker shows for it. One for the
/// process; every picker that is constructed sets its six entries anew. Looking up another key
/// with operator[] adds it with an empty caption.
extern QMap<VTObjects::VOString, QString> defaultGroupCaptions;

} // namespace vtcontrolcolorscheme
