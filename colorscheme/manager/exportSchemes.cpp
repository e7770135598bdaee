#include "colorscheme/manager/exportSchemes_p.h"

#include "colorscheme/model/filePath_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/safeFileName.h"

using VTObjects::safeFileNames;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOString;

namespace vtcontrolcolorscheme {

bool exportSchemes(const std::vector<VOColorScheme> &schemes, const QVector<int> &rows,
                   const QString &folder)
{
    std::vector<const VOColorScheme *> chosen;
    std::vector<VOString> names;
    for (const int row : rows) {
        // Whoever holds the schemes can have shortened the list while the user chose a folder.
        if (row < 0 || static_cast<std::size_t>(row) >= schemes.size())
            continue;
        chosen.push_back(&schemes[static_cast<std::size_t>(row)]);
        names.push_back(chosen.back()->name);
    }
    // A name can be any text; its file stays inside the folder.
    const std::vector<VOString> files = safeFileNames(names);
    const VOString directory = toFilePath(folder);
    bool all = true;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        const VOString path = directory + "/" + files[i] + ".vcs";
        all = VOColorSchemeManager::saveFile(*chosen[i], path) && all;
    }
    return all;
}

} // namespace vtcontrolcolorscheme
