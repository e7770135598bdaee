#include "tests/support/StoreFixture.h"

#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using namespace VTObjects;

namespace {

QString temporaryName(StoreFixture::Place place)
{
    const QString memory = QStringLiteral("/dev/shm");
    const bool inMemory = place == StoreFixture::InMemory && QFileInfo(memory).isWritable();
    return (inMemory ? memory : QDir::tempPath()) + QStringLiteral("/store-XXXXXX");
}

} // namespace

StoreFixture::StoreFixture(Place place)
    : directory(temporaryName(place))
{
    if (!directory.isValid() || !QDir(directory.path()).mkdir(QStringLiteral("store")))
        qFatal("no temporary directory");
    VOColorSchemeManager::setStoreDirectory(toVOString(path()));
    if (!VOColorSchemeManager::instance()->load())
        qFatal("the empty store cannot be loaded");
    // A small one, so that what a test does a thousand times is quick.
    VOColorSchemeManager::instance()->defaultTeam.groups.resize(1);
}

StoreFixture::~StoreFixture() = default;

QString StoreFixture::path(const QString &file) const
{
    const QString folder = directory.filePath(QStringLiteral("store"));
    return file.isEmpty() ? folder : folder + QLatin1Char('/') + file;
}

StoreFixture::Files StoreFixture::files() const
{
    Files found;
    QDirIterator entries(path(), QDir::Files | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const QString name = QDir(path()).relativeFilePath(file.fileName());
        if (name == QLatin1String("store.lock"))
            continue;
        found.insert(name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?"));
    }
    return found;
}

void StoreFixture::setFiles(const Files &files) const
{
    QDir(path()).removeRecursively();
    QDir().mkpath(path());
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        QDir().mkpath(QFileInfo(path(file.key())).path());
        QFile out(path(file.key()));
        if (!out.open(QIODevice::WriteOnly) || out.write(file.value()) != file.value().size())
            qFatal("a file of the store cannot be written");
    }
}

void StoreFixture::setCustomTeam(const QString &author, int schemes)
{
    VOColorSchemeTeam &team = VOColorSchemeManager::instance()->customTeam;
    team.groups.clear();
    QStringList names;
    for (int i = 0; i < schemes; ++i)
        names.append(QStringLiteral("scheme%1").arg(i));
    team.groups.push_back(makeGroup(QStringLiteral("group"), names));
    for (VOColorScheme &scheme : team.groups[0].schemes)
        scheme.author = author.toStdWString();
}

QString StoreFixture::customAuthor()
{
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->customTeam;
    QString common;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const QString author = toQString(scheme.author);
            if (!common.isNull() && author != common)
                return QStringLiteral("torn");
            common = author;
        }
    }
    return common;
}
