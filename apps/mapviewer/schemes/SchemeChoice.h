#pragma once

#include <QString>

#include <optional>

class QSettings;

namespace VTObjects {
class VOColorRamp;
}

namespace mapviewer {

/// A scheme of the store by its names, which outlive positions: groups and schemes come and go
/// between two runs.
struct SchemeChoice
{
    QString team; ///< "Default", "Custom" or "Favorite", as the picker takes it
    QString group;
    QString scheme;

    /// Where that scheme stands in its group now; -1 when it is gone.
    int schemeIndex() const;

    /// Both ways for the settings, as one line.
    QString toText() const;
    static std::optional<SchemeChoice> fromText(const QString &text);

    void write(QSettings *settings, const QString &key) const;
    /// Nothing when the key is absent or incomplete.
    static std::optional<SchemeChoice> read(const QSettings &settings, const QString &key);
};

/// The scheme whose ramp has the same kind and the same colours: a picker tells only the ramp that
/// was chosen. Built-in schemes come first, then the user's own, then favourites; null when
/// there is none.
std::optional<SchemeChoice> findScheme(VTObjects::VOColorRamp *ramp);

/// The first of the named schemes that the built-in group has, else its first scheme. Nothing when
/// there is no such group, or it is empty.
std::optional<SchemeChoice> builtInScheme(const QString &group, const QStringList &names);

} // namespace mapviewer
