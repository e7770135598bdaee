#pragma once

#include <QString>

namespace VTObjects {
class VOColorSchemeGroup;
}

namespace vtcontrolcolorscheme {

/// A name made of a base text and a number: one more than the greatest number among the names that
/// are there already. Tell it every such name, then ask for the next one.
///
///     GeneratedName name(QStringLiteral("rename_"));
///     name.add(QStringLiteral("rename_4")); // next(): "rename_5"
///
/// Deliberate: a name counts as soon as it holds the base text anywhere, letter case respected; the
/// number is what remains without it, and 0 where that is no integer. Numbers below 1 never count.
/// Gaps are not filled, and nobody checks whether the result is taken.
class GeneratedName
{
public:
    explicit GeneratedName(const QString &base);

    /// Takes a name into account.
    void add(const QString &name);
    /// The base text and the next number; the base text and 1 if no name counted.
    QString next() const;

private:
    QString base;
    qint64 max = 1;
    bool found = false;
};

/// The name of a new scheme of the group, by the rule above: "add_scheme" and a number.
QString makeAddSchemeName(const VTObjects::VOColorSchemeGroup &group);
/// The base text of that name, for who makes several of them.
QString addSchemeBase();

} // namespace vtcontrolcolorscheme
