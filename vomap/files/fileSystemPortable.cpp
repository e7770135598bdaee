#include "vomap/files/fileSystem_p.h"

#include "vobase/utf8_p.h"
#include "vomap/files/xxHash64_p.h"

#include "vobase/VOString.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryFile>

namespace VTObjects {

namespace {

constexpr qint64 coarsestClock = 2000; // milliseconds that a file system may count in

QString pathFrom(const std::string &path)
{
    return QString::fromStdString(path);
}

std::string nameFor(const std::string &target, const char *prefix)
{
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash);
    return folder + '/' + prefix + QByteArray::number(quint64(xxHash64(target)), 16).toStdString();
}

} // namespace

std::string nativePath(const VOString &path)
{
    const std::wstring wide = path;
    std::string utf8;
    const bool good = wide.find(L'\0') == std::wstring::npos && appendUtf8(utf8, wide);
    return good ? utf8 : std::string();
}

QString shownPath(const std::string &path)
{
    return pathFrom(path);
}

ReadState readWholeFile(const std::string &path, std::uint64_t limit, ByteBuffer &bytes)
{
    const QFileInfo info(pathFrom(path));
    if (!info.exists())
        return ReadState::Missing;
    if (!info.isFile())
        return ReadState::NotAFile;
    QFile file(pathFrom(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return ReadState::Unreadable;
    if (static_cast<std::uint64_t>(file.size()) > limit)
        return ReadState::TooLong;
    bytes.resize(static_cast<std::size_t>(file.size()));
    const auto length = static_cast<qint64>(bytes.size());
    return file.read(bytes.data(), length) == length ? ReadState::Read : ReadState::Unreadable;
}

bool fileHolds(const std::string &path, std::string_view bytes)
{
    ByteBuffer present;
    return readWholeFile(path, bytes.size(), present) == ReadState::Read && present.view() == bytes;
}

bool somethingIsAt(const std::string &path)
{
    const QFileInfo info(pathFrom(path));
    return info.exists() || info.isSymLink();
}

FileStamp stampOf(const std::string &path)
{
    const QFileInfo info(pathFrom(path));
    FileStamp stamp;
    if (!info.exists())
        return stamp;
    const QDateTime written = info.lastModified();
    stamp.exists = true;
    stamp.marks = {static_cast<std::uint64_t>(info.size()),
                   static_cast<std::uint64_t>(written.toMSecsSinceEpoch())};
    stamp.isSettled = written.msecsTo(QDateTime::currentDateTime()) > coarsestClock;
    return stamp;
}

QString systemReason()
{
    return QString(); // the toolkit's calls leave none behind
}

bool writeSynced(const std::string &path, std::string_view bytes, const std::string &model)
{
    QFile file(pathFrom(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return false;
    const auto length = static_cast<qint64>(bytes.size());
    const bool written = file.write(bytes.data(), length) == length && file.flush();
    file.close();
    if (written && QFileInfo(pathFrom(path)).size() == length) {
        if (QFileInfo(pathFrom(model)).isFile())
            file.setPermissions(QFile::permissions(pathFrom(model)));
        return true;
    }
    removeFile(path);
    return false;
}

bool renameOver(const std::string &from, const std::string &to)
{
    // Here a rename does not replace. The old file keeps a name until the new one has its own.
    const QString old = pathFrom(nameFor(to, ".replaced-"));
    if (!somethingIsAt(to))
        return QFile::rename(pathFrom(from), pathFrom(to));
    QFile::remove(old);
    if (!QFile::rename(pathFrom(to), old))
        return false;
    if (!QFile::rename(pathFrom(from), pathFrom(to))) {
        QFile::rename(old, pathFrom(to));
        return false;
    }
    QFile::remove(old);
    return true;
}

bool linkAs(const std::string &from, const std::string &to)
{
    return removeFile(to) && QFile::copy(pathFrom(from), pathFrom(to));
}

void putBack(const std::string &kept, const std::string &target)
{
    if (kept.empty())
        removeFile(target);
    else
        renameOver(kept, target);
}

bool removeFile(const std::string &path)
{
    return !somethingIsAt(path) || QFile::remove(pathFrom(path));
}

bool makeFolder(const std::string &path)
{
    return QDir().mkpath(pathFrom(path));
}

bool syncFolder(const std::string &path)
{
    return QFileInfo(pathFrom(path)).isDir(); // there is nothing to sync it with
}

bool replaceFile(const std::string &path, std::string_view bytes)
{
    const QFileInfo info(pathFrom(path));
    const std::string target = info.isSymLink() ? info.canonicalFilePath().toStdString() : path;
    if (target.empty() || (info.exists() && (!info.isFile() || !info.isWritable())))
        return false;
    const std::string scratch = nameFor(target, ".vcs-");
    if (writeSynced(scratch, bytes, target) && renameOver(scratch, target))
        return true;
    removeFile(scratch);
    return false;
}

struct FolderLock::Lock
{
    explicit Lock(const QString &path)
        : file(path)
    {
        file.setStaleLockTime(0); // a long save is no dead one
    }
    QLockFile file;
};

FolderLock::FolderLock() = default;

FolderLock::~FolderLock() = default;

bool FolderLock::acquire(const std::string &path, int milliseconds)
{
    lock = std::make_unique<Lock>(pathFrom(path));
    qint64 process = 0;
    QString host;
    QString program;
    // A garbled lock file names no holder and would keep everybody out for ever.
    if (!lock->file.tryLock(0) && !lock->file.getLockInfo(&process, &host, &program))
        QFile::remove(pathFrom(path));
    return lock->file.isLocked() || lock->file.tryLock(milliseconds);
}

bool FolderLock::isTaken() const
{
    return lock && lock->file.error() == QLockFile::LockFailedError;
}

} // namespace VTObjects
