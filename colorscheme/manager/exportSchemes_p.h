#pragma once

#include "vomap/VOColorScheme.h"

#include <QString>
#include <QVector>

#include <vector>

namespace vtcontrolcolorscheme {

/// Writes the schemes at these rows into the folder, each into a file of its name; rows that do not
/// exist are passed over. Goes on after a failure; true if there was none.
bool exportSchemes(const std::vector<VTObjects::VOColorScheme> &schemes, const QVector<int> &rows,
                   const QString &folder);

} // namespace vtcontrolcolorscheme
