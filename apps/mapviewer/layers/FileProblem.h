#pragma once

#include <QString>

namespace mapviewer {

/// Why a file was refused.
struct FileProblem
{
    int line = 0; ///< counted from 1; 0 when there is no line to name, as for a missing file
    QString text; ///< one sentence for the user

    /// "countries.geojson, line 12: the ring is not closed." with `fileName` as the subject.
    QString message(const QString &fileName) const;
};

} // namespace mapviewer
