#include "apps/mapviewer/schemes/SchemeCopy.h"

#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QCoreApplication>

namespace mapviewer {

using namespace VTObjects;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("SchemeCopy", text);
}

VOColorSchemeTeam &customTeam()
{
    return VOColorSchemeManager::instance()->customTeam;
}

// "Alpine", then "Alpine 2", "Alpine 3" and so on.
VOString freeName(const VOColorSchemeGroup &group, const QString &name)
{
    VOString candidate = toVOString(name);
    for (int number = 2; group.contains(candidate); ++number)
        candidate = toVOString(QStringLiteral("%1 %2").arg(name).arg(number));
    return candidate;
}

} // namespace

SchemeCopy::SchemeCopy(const std::optional<SchemeChoice> &choice, VOColorRamp *ramp)
{
    const int index = choice ? choice->schemeIndex() : -1;
    if (index >= 0) {
        const VOTeamKind kind = teamKindOf(choice->team);
        const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->team(kind);
        const int position = team.index(toVOString(choice->group));
        if (kind == CustomTeam) {
            groupIndex = position;
            m_schemeIndex = index;
            return;
        }
        append(team.groups[std::size_t(position)].schemes[std::size_t(index)]);
        return;
    }
    VOColorScheme scheme;
    scheme.name = toVOString(translated("My scheme"));
    scheme.colorRamp = ramp->clone();
    append(scheme);
}

void SchemeCopy::append(const VOColorScheme &scheme)
{
    const VOString name = toVOString(translated("My schemes"));
    groupIndex = customTeam().index(name);
    if (groupIndex < 0) {
        VOColorSchemeGroup made;
        made.name = name;
        customTeam().groups.push_back(made);
        groupIndex = int(customTeam().groups.size()) - 1;
        newGroup = true;
    }
    m_isNew = true;
    m_schemeIndex = int(group()->schemes.size());
    group()->schemes.push_back(scheme);
    VOColorScheme &copy = group()->schemes.back();
    // Not yet among the group's names, or every name would be taken by the copy itself.
    copy.name = VOString();
    copy.name = freeName(*group(), toQString(scheme.name));
}

VOColorSchemeGroup *SchemeCopy::group() const
{
    return &customTeam().groups[std::size_t(groupIndex)];
}

SchemeChoice SchemeCopy::keep() const
{
    return {teamKey(CustomTeam), toQString(group()->name),
            toQString(group()->schemes[std::size_t(m_schemeIndex)].name)};
}

void SchemeCopy::discard()
{
    if (!m_isNew)
        return;
    std::vector<VOColorScheme> &schemes = group()->schemes;
    if (int(schemes.size()) > m_schemeIndex)
        schemes.erase(schemes.begin() + m_schemeIndex);
    if (newGroup && schemes.empty())
        customTeam().groups.erase(customTeam().groups.begin() + groupIndex);
}

} // namespace mapviewer
