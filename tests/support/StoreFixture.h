#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A store in a folder of its own, of which the test sees and writes the files.
class StoreFixture
{
public:
    using Files = QMap<QString, QByteArray>; // by their paths below the folder, folders excluded

    /// In memory, where there is such a file system: for tests that save thousands of times and
    /// are about the calls and not about the disk.
    enum Place { OnDisk, InMemory };
    explicit StoreFixture(Place place);
    ~StoreFixture();

    QString path(const QString &file = QString()) const;
    /// Everything below the folder; the lock file is left out, as its content means nothing.
    Files files() const;
    /// Makes the folder hold exactly these files.
    void setFiles(const Files &files) const;
    /// The custom team and nothing else, one group of so many schemes by this author.
    static void setCustomTeam(const QString &author, int schemes);
    /// The common author of all schemes of the custom team; "torn" if they differ.
    static QString customAuthor();

private:
    QTemporaryDir directory;
};
