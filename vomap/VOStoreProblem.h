#pragma once

#include "vobase/VOString.h"
#include "vomap/vomap_export.h"

#include <QString>

namespace VTObjects {

/// What went wrong with the store, told to whom it concerns: VOColorSchemeManager::problems().
struct VOMAP_EXPORT VOStoreProblem
{
    enum Kind {
        /// A team's file was damaged, and nothing in it could be read. The team is as on a first
        /// start or, where the damage was noticed when saving, as this program has it.
        Damaged,
        /// A team's file was damaged or gone. The team is its last good copy, one save older.
        Restored,
        /// A team's file was damaged, and so was its copy, if there was one. The team has what
        /// could be read of both.
        PartlyLost,
        /// A newer release wrote the team. It is shown as far as it is understood, and no save
        /// that holds it succeeds.
        NewerRelease,
        /// The system does not let us read a team's file. The team is its last good copy, if there
        /// is one; the file is left alone.
        Unreadable,
        /// A save failed. What it was to write is in memory only; another save may succeed, and
        /// ends this problem.
        NotSaved,
        /// The folder that VOColorSchemeManager::requireStoreDirectory() named is not there. The
        /// store is as on a first start, and no save succeeds until the folder is back.
        FolderMissing
    };

    Kind kind = Damaged;
    VOString team; ///< the team's key, "Default", "Custom" or "Favorite"; empty for FolderMissing
    /// The damaged file, set aside in the store's folder "damaged"; empty where none was. For
    /// FolderMissing the folder.
    QString path;
    /// How many schemes the team has after it: what could be read or, if not saved, what is
    /// waiting.
    int schemes = 0;
    QString text; ///< one or two sentences for the user, in the language of the application
};

} // namespace VTObjects
