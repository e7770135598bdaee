#include "vomap/files/fileSystem_p.h"

#include "vobase/VOString.h"
#include "vobase/utf8_p.h"
#include "vomap/files/xxHash64_p.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VTObjects {

namespace {

constexpr int patience = 100; // how often a call is made again that a signal broke off
constexpr std::size_t block = std::size_t(256) * 1024;
constexpr time_t coarsestClock = 2; // seconds that a file system may count in

template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    for (int i = 0; i < patience && result < 0 && errno == EINTR; ++i)
        result = call();
    return result;
}

class Descriptor
{
public:
    Descriptor(const std::string &path, int flags, mode_t mode = 0)
        : number(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }))
    {
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { close(); }

    bool isOpen() const { return number >= 0; }
    int get() const { return number; }
    bool close()
    {
        const int closing = number;
        number = -1;
        // A close that a signal broke off has closed all the same; a second one could hit another
        // file.
        return closing < 0 || ::close(closing) == 0 || errno == EINTR;
    }

private:
    int number;
};

std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written =
            uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (written == 0)
            errno = EIO;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// False at the end of the file, too.
bool readAll(int descriptor, char *to, std::size_t count)
{
    while (count > 0) {
        const auto got = uninterrupted([&] { return ::read(descriptor, to, count); });
        if (got <= 0)
            return false;
        to += got;
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

bool atEnd(int descriptor)
{
    char more = 0;
    return uninterrupted([&] { return ::read(descriptor, &more, 1); }) == 0;
}

void takePermissions(int descriptor, const std::string &model)
{
    struct stat status = {};
    if (::stat(model.c_str(), &status) == 0 && S_ISREG(status.st_mode))
        static_cast<void>(::fchmod(descriptor, status.st_mode & 07777));
}

// Writes into the open file, over whatever it holds, up to the disk.
bool fill(int descriptor, std::string_view bytes)
{
    struct stat status = {};
    if (::ftruncate(descriptor, 0) != 0 || !writeAll(descriptor, bytes) ||
        ::fstat(descriptor, &status) != 0)
        return false;
    if (status.st_size != static_cast<off_t>(bytes.size())) {
        errno = EIO;
        return false;
    }
    return uninterrupted([&] { return ::fsync(descriptor); }) == 0;
}

bool isSameFile(const std::string &path, int descriptor)
{
    struct stat named = {};
    struct stat opened = {};
    return ::lstat(path.c_str(), &named) == 0 && ::fstat(descriptor, &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

// Where a link leads to, through all links; empty where it leads nowhere.
std::string linkTarget(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(path.c_str(), nullptr),
                                                             &std::free);
    return target ? std::string(target.get()) : std::string();
}

std::string scratchPath(const std::string &target, int attempt)
{
    char name[32] = {};
    const std::string file = target.substr(target.rfind('/') + 1);
    std::snprintf(
        name, sizeof(name), "/.vcs-%016llx",
        static_cast<unsigned long long>(xxHash64(file, static_cast<std::uint64_t>(attempt))));
    return folderOf(target) + name;
}

// Renames the scratch file over the target and syncs the folder; if that fails, the target is what
// it was. The old file has a second name meanwhile, from which it comes back.
bool putInPlace(const std::string &scratch, const std::string &target)
{
    const std::string old = scratch + "-old";
    const bool replaces = somethingIsAt(target);
    bool done = (!replaces || linkAs(target, old)) && renameOver(scratch, target);
    if (done && !syncFolder(folderOf(target))) {
        putBack(replaces ? old : std::string(), target);
        done = false;
    }
    removeFile(old);
    return done;
}

void waitAMoment()
{
    const timespec moment = {0, 2'000'000};
    ::nanosleep(&moment, nullptr);
}

std::int64_t nowInMilliseconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

} // namespace

std::string nativePath(const VOString &path)
{
    const std::wstring wide = path;
    if (wide.empty() || wide.find(L'\0') != std::wstring::npos)
        return std::string();
    // As the toolkit names it, so that its dialogs find the file again; where the locale cannot
    // say the name, UTF-8, so that two names stay two files.
    const QString text = QString::fromStdWString(wide);
    const QByteArray local = QFile::encodeName(text);
    if (QFile::decodeName(local) == text)
        return local.toStdString();
    std::string utf8;
    return appendUtf8(utf8, wide) ? utf8 : std::string();
}

QString shownPath(const std::string &path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

ReadState readWholeFile(const std::string &path, std::uint64_t limit, ByteBuffer &bytes)
{
    // Not blocking: a pipe of that name would keep us waiting for a writer.
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen())
        return errno == ENOENT || errno == ENOTDIR ? ReadState::Missing : ReadState::Unreadable;
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0)
        return ReadState::Unreadable;
    if (!S_ISREG(status.st_mode))
        return ReadState::NotAFile;
    if (static_cast<std::uint64_t>(status.st_size) > limit)
        return ReadState::TooLong;
    bytes.resize(static_cast<std::size_t>(status.st_size));
    const bool whole = readAll(file.get(), bytes.data(), bytes.size()) && atEnd(file.get());
    return whole ? ReadState::Read : ReadState::Unreadable;
}

bool fileHolds(const std::string &path, std::string_view bytes)
{
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uint64_t>(status.st_size) != bytes.size())
        return false;
    const std::size_t step = std::min(bytes.size(), block);
    const std::unique_ptr<char[]> read(new char[step]);
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t count = std::min(rest.size(), step);
        if (!readAll(file.get(), read.get(), count) ||
            std::string_view(read.get(), count) != rest.substr(0, count))
            return false;
        rest.remove_prefix(count);
    }
    return atEnd(file.get());
}

bool somethingIsAt(const std::string &path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}

FileStamp stampOf(const std::string &path)
{
    struct stat status = {};
    FileStamp stamp;
    if (::stat(path.c_str(), &status) != 0)
        return stamp;
    stamp.exists = true;
    stamp.marks = {std::uint64_t(status.st_dev),          std::uint64_t(status.st_ino),
                   std::uint64_t(status.st_size),         std::uint64_t(status.st_mtim.tv_sec),
                   std::uint64_t(status.st_mtim.tv_nsec), std::uint64_t(status.st_ctim.tv_nsec)};
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    stamp.isSettled = now.tv_sec - status.st_mtim.tv_sec > coarsestClock;
    return stamp;
}

QString systemReason()
{
    return errno == 0 ? QString() : QString::fromLocal8Bit(std::strerror(errno));
}

bool writeSynced(const std::string &path, std::string_view bytes, const std::string &model)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_NOFOLLOW, 0666);
    if (!file.isOpen())
        return false;
    takePermissions(file.get(), model);
    const bool filled = fill(file.get(), bytes);
    int reason = errno;
    const bool closed = file.close();
    if (filled && closed)
        return true;
    if (filled)
        reason = errno;
    removeFile(path);
    errno = reason;
    return false;
}

bool renameOver(const std::string &from, const std::string &to)
{
    return uninterrupted([&] { return ::rename(from.c_str(), to.c_str()); }) == 0;
}

bool linkAs(const std::string &from, const std::string &to)
{
    removeFile(to);
    if (uninterrupted([&] { return ::link(from.c_str(), to.c_str()); }) == 0)
        return true;
    if (errno != EPERM && errno != EMLINK && errno != ENOTSUP && errno != ENOSYS)
        return false;
    ByteBuffer bytes;
    return readWholeFile(from, UINT64_MAX, bytes) == ReadState::Read &&
           writeSynced(to, bytes.view(), from);
}

void putBack(const std::string &kept, const std::string &target)
{
    // Whatever made the save fail may hit this, too; giving up would leave the wrong file.
    for (int i = 0; i < patience; ++i) {
        if (kept.empty() ? removeFile(target) : renameOver(kept, target))
            return;
    }
}

bool removeFile(const std::string &path)
{
    return uninterrupted([&] { return ::unlink(path.c_str()); }) == 0 || errno == ENOENT;
}

bool makeFolder(const std::string &path)
{
    if (uninterrupted([&] { return ::mkdir(path.c_str(), 0777); }) == 0)
        return syncFolder(folderOf(path));
    struct stat status = {};
    if (errno == EEXIST)
        return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    const std::string above = folderOf(path);
    if (errno != ENOENT || above == path || above == ".")
        return false;
    return makeFolder(above) && makeFolder(path);
}

bool syncFolder(const std::string &path)
{
    Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen())
        return false;
    const bool synced = uninterrupted([&] { return ::fsync(folder.get()); }) == 0 ||
                        errno == EINVAL; // file systems that know no syncing of folders say so
    return folder.close() && synced;
}

bool replaceFile(const std::string &path, std::string_view bytes)
{
    std::string target = path;
    struct stat status = {};
    if (::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode)) {
        target = linkTarget(path);
        if (target.empty() || ::stat(target.c_str(), &status) != 0)
            return false;
    }
    if (status.st_mode != 0 && (!S_ISREG(status.st_mode) || ::access(target.c_str(), W_OK) != 0))
        return false;
    // The scratch file has a name of its own for each target, and is locked while in use: so one
    // that a killed process left is used again, and one that is in use is not.
    for (int attempt = 0; attempt < patience; ++attempt) {
        const std::string scratch = scratchPath(target, attempt);
        const Descriptor file(scratch, O_WRONLY | O_CREAT | O_NOFOLLOW, 0666);
        if (!file.isOpen())
            return false;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            continue;
        if (!isSameFile(scratch, file.get()))
            continue; // it became its owner's target before we had the lock
        takePermissions(file.get(), target);
        // Put in place before it is closed, because closing ends the lock. After the sync a close
        // has nothing left to say.
        if (fill(file.get(), bytes) && putInPlace(scratch, target))
            return true;
        removeFile(scratch);
        return false;
    }
    return false;
}

struct FolderLock::Lock
{
    explicit Lock(const std::string &path)
        : file(path, O_RDWR | O_CREAT | O_NONBLOCK, 0666)
    {
    }
    Descriptor file;
};

FolderLock::FolderLock() = default;

FolderLock::~FolderLock() = default;

bool FolderLock::acquire(const std::string &path, int milliseconds)
{
    lock = std::make_unique<Lock>(path);
    if (!lock->file.isOpen())
        return false;
    const std::int64_t end = nowInMilliseconds() + milliseconds;
    while (::flock(lock->file.get(), LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || nowInMilliseconds() >= end)
            return false;
        waitAMoment();
    }
    return true;
}

bool FolderLock::isTaken() const
{
    return lock && lock->file.isOpen();
}

} // namespace VTObjects
