#pragma once

#include "vobase/VOString.h"

#include <QMap>
#include <QString>

namespace vtcontrolcolorscheme {

/// From a default group's key name to the caption that the picker shows for it. One for the
/// process; every picker that is constructed sets its six entries anew. Looking up another key
/// with operator[] adds it with an empty caption.
extern QMap<VTObjects::VOString, QString> defaultGroupCaptions;

/// What the picker calls a group of the default team: as the host does, or else as the table has
/// it.
QString defaultGroupCaption(const VTObjects::VOString &group);

} // namespace vtcontrolcolorscheme
