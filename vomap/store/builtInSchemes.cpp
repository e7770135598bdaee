#include "vomap/store/builtInSchemes_p.h"

#include "vomap/VOColorScheme.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"
#include "vomap/files/schemeText_p.h"

#include <QFile>

#include <string_view>
#include <utility>

// Not in a namespace: the macro declares a function of its own. A program that links the static
// library has the files without a call, because whoever reads them comes through here.
static void initializeSchemeFiles()
{
    Q_INIT_RESOURCE(VTColorSchemes_builtIn);
}

namespace VTObjects {

VOColorSchemeGroup builtInGroup(const QString &folder)
{
    VOColorSchemeGroup group;
    for (int number = 0;; ++number) {
        QFile file(folder + QLatin1Char('/') + QString::number(number));
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return group;
        const QByteArray bytes = file.readAll();
        VOColorScheme scheme;
        if (readSchemeText({bytes.constData(), static_cast<std::size_t>(bytes.size())}, scheme))
            group.schemes.push_back(std::move(scheme));
    }
}

const VOColorSchemeTeam &builtInTeam()
{
    static const VOColorSchemeTeam team = readBuiltInTeam();
    return team;
}

VOColorSchemeTeam readBuiltInTeam()
{
    initializeSchemeFiles();
    VOColorSchemeTeam team;
    team.name = toVOString(teamKey(DefaultTeam));
    for (const char *name : builtInGroups) {
        const QString folder = QLatin1String(name);
        team.groups.push_back(
            builtInGroup(QStringLiteral(":/vtcontrolcolorscheme/schemes/") + folder));
        team.groups.back().name = toVOString(folder);
    }
    return team;
}

} // namespace VTObjects
