#pragma once

#include "vomap/VOColorScheme.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QString>
#include <QTemporaryDir>

/// A store and a settings file of its own for one test: made in init(), gone in cleanup(). The
/// default team is what the library ships, the other two are empty.
class TestStore
{
public:
    TestStore();
    ~TestStore();

    /// A folder for files of the test; goes with this object.
    QString path(const QString &file = QString()) const;
    /// The folder in which the store keeps its files.
    QString storeDirectory() const;
    /// Writes "history/lastOpenFilePath" into the settings file.
    void setLastOpenFilePath(const QString &value);

private:
    QTemporaryDir directory;
};

/// A scheme with an even ramp over the default ramp's source colours, split into 10.
VTObjects::VOColorScheme makeScheme(const QString &name);
/// A group of such schemes.
VTObjects::VOColorSchemeGroup makeGroup(const QString &name, const QStringList &schemeNames);
/// The names of a group's schemes, in their order.
QStringList schemeNames(const VTObjects::VOColorSchemeGroup &group);
