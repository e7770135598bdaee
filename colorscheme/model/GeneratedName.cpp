#include "colorscheme/model/GeneratedName_p.h"

#include "vomap/VOColorSchemeGroup.h"
#include "vomap/VOStringConversion.h"

namespace vtcontrolcolorscheme {

GeneratedName::GeneratedName(const QString &base)
    : base(base)
{
}

void GeneratedName::add(const QString &name)
{
    if (!name.contains(base))
        return;
    const qint64 number = QString(name).remove(base).toLongLong();
    if (max > number)
        return;
    max = number;
    found = true;
}

QString GeneratedName::next() const
{
    // Unsigned, since one more than the greatest number must not turn negative.
    return base + QString::number(found ? static_cast<quint64>(max) + 1 : 1);
}

QString addSchemeBase()
{
    return QStringLiteral("add_scheme");
}

QString makeAddSchemeName(const VTObjects::VOColorSchemeGroup &group)
{
    GeneratedName name(addSchemeBase());
    for (const VTObjects::VOColorScheme &scheme : group.schemes)
        name.add(VTObjects::toQString(scheme.name));
    return name.next();
}

} // namespace vtcontrolcolorscheme
