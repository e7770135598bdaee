#include "apps/mapviewer/schemes/SchemeCopy.h"

#include "apps/mapviewer/schemes/storeSchemes.h"

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

SchemeCopy::SchemeCopy(const VOColorSchemeId &id, const VOColorScheme &picked, VOColorRamp *ramp)
{
    const SchemePlace place = placeOf(id, picked);
    if (!place.isNull()) {
        const VOTeamKind kind = teamKindOf(toQString(id.team));
        if (kind == CustomTeam) {
            m_groupIndex = place.group;
            m_schemeIndex = place.scheme;
            return;
        }
        const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->team(kind);
        append(team.groups[std::size_t(place.group)].schemes[std::size_t(place.scheme)]);
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
    m_groupIndex = customTeam().index(name);
    if (m_groupIndex < 0) {
        VOColorSchemeGroup made;
        made.name = name;
        customTeam().groups.push_back(made);
        m_groupIndex = int(customTeam().groups.size()) - 1;
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
    return &customTeam().groups[std::size_t(m_groupIndex)];
}

void SchemeCopy::discard()
{
    if (!m_isNew)
        return;
    std::vector<VOColorScheme> &schemes = group()->schemes;
    if (int(schemes.size()) > m_schemeIndex)
        schemes.erase(schemes.begin() + m_schemeIndex);
    if (newGroup && schemes.empty())
        customTeam().groups.erase(customTeam().groups.begin() + m_groupIndex);
}

} // namespace mapviewer
