#pragma once

#include "vomap/VOColorScheme.h"

#include <QString>

/// What a scheme file may hold and a built-in scheme may not: a text that says nothing, a ramp that
/// is no ramp, numbers beyond what the editor offers, colours that its parameters do not give.
/// Empty if nothing is wrong.
QString faultOf(const VTObjects::VOColorScheme &scheme);
