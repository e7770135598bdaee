#include "apps/mapviewer/schemes/SchemeChoice.h"

#include "apps/mapviewer/layers/RampColors.h"

#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vomap/VOTeamKind.h"

#include <QSettings>
#include <QStringList>
#include <QUrl>

namespace mapviewer {

using namespace VTObjects;

namespace {

int indexIn(const VOColorSchemeGroup &group, const QString &scheme)
{
    const VOString name = toVOString(scheme);
    for (std::size_t i = 0; i < group.schemes.size(); ++i) {
        if (group.schemes[i].name == name)
            return int(i);
    }
    return -1;
}

} // namespace

int SchemeChoice::schemeIndex() const
{
    const VOColorSchemeTeam &records = VOColorSchemeManager::instance()->team(teamKindOf(team));
    const int groupIndex = records.index(toVOString(group));
    return groupIndex < 0 ? -1 : indexIn(records.groups[std::size_t(groupIndex)], scheme);
}

QString SchemeChoice::toText() const
{
    QStringList parts;
    for (const QString &part : {team, group, scheme})
        parts.append(QString::fromLatin1(QUrl::toPercentEncoding(part)));
    return parts.join(QLatin1Char('/'));
}

std::optional<SchemeChoice> SchemeChoice::fromText(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    if (parts.size() != 3)
        return std::nullopt;
    const auto plain = [&](int i) { return QUrl::fromPercentEncoding(parts.at(i).toLatin1()); };
    return SchemeChoice{plain(0), plain(1), plain(2)};
}

void SchemeChoice::write(QSettings *settings, const QString &key) const
{
    settings->setValue(key, QStringList{team, group, scheme});
}

std::optional<SchemeChoice> SchemeChoice::read(const QSettings &settings, const QString &key)
{
    const QStringList parts = settings.value(key).toStringList();
    if (parts.size() != 3)
        return std::nullopt;
    return SchemeChoice{parts.at(0), parts.at(1), parts.at(2)};
}

std::optional<SchemeChoice> findScheme(VOColorRamp *ramp)
{
    if (!ramp)
        return std::nullopt;
    const QVector<QRgb> colors = rampColors(ramp);
    for (const VOTeamKind team : allTeams) {
        for (const VOColorSchemeGroup &group :
             VOColorSchemeManager::instance()->team(team).groups) {
            for (const VOColorScheme &scheme : group.schemes) {
                if (scheme.colorRamp && scheme.colorRamp->category() == ramp->category() &&
                    rampColors(scheme.colorRamp) == colors)
                    return SchemeChoice{teamKey(team), toQString(group.name),
                                        toQString(scheme.name)};
            }
        }
    }
    return std::nullopt;
}

std::optional<SchemeChoice> builtInScheme(const QString &group, const QStringList &names)
{
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->defaultTeam;
    const int index = team.index(toVOString(group));
    if (index < 0 || team.groups[std::size_t(index)].schemes.empty())
        return std::nullopt;
    const VOColorSchemeGroup &records = team.groups[std::size_t(index)];
    for (const QString &name : names) {
        if (indexIn(records, name) >= 0)
            return SchemeChoice{teamKey(DefaultTeam), group, name};
    }
    return SchemeChoice{teamKey(DefaultTeam), group, toQString(records.schemes.front().name)};
}

} // namespace mapviewer
