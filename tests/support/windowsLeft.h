#pragma once

#include <QStringList>

/// The classes of the windows that are still there, for a test's cleanup(). The toolkit's own
/// stand-in for the screen does not count.
QStringList windowsLeft();
