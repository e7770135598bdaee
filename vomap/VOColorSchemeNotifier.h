#pragma once

#include "vomap/vomap_export.h"

#include <QObject>

namespace VTObjects {

class VOColorSchemeMoves;

/// Tells what happens to the store. The store itself is a plain record and sends no signals.
///
/// Everything is sent from the user-interface thread, within the call that caused it and when that
/// call has done its work, so that a slot may use the store in any way.
class VOMAP_EXPORT VOColorSchemeNotifier : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(VOColorSchemeNotifier)
public:
    /// The one of the process; never null, never to be deleted.
    static VOColorSchemeNotifier *instance();
    ~VOColorSchemeNotifier() override;

Q_SIGNALS:
    /// A manager's edited copies have become the store's teams, and groups and schemes may have
    /// other names, places, or be gone. `moves` tells what became of each, and is valid in the
    /// slots only. Sent before storeChanged(), for whoever keeps the id of a scheme.
    void schemesMoved(const VTObjects::VOColorSchemeMoves &moves);
    /// The teams are not what they were when this was sent last: once after a manager's "Ok", a
    /// "User define", or any other save() of something new, and after a load() or reloadIfChanged()
    /// that brought something new, and after addHostGroup(). A change of the public records is told
    /// with the save() behind it.
    void storeChanged();
    /// A save() or saveCustomTeam() failed, whoever called it; once for each. `folder` is the
    /// store's, `reason` a sentence for the user. What was to be saved is in memory: save() again,
    /// or elsewhere. VOColorSchemeManager::problems() has it, too.
    void saveFailed(const QString &folder, const QString &reason);

private:
    VOColorSchemeNotifier();
};

} // namespace VTObjects
