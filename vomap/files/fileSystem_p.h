#pragma once

#include "vomap/files/ByteBuffer_p.h"

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace VTObjects {

class VOString;

/// What the store and the scheme files need of the operating system, where every call tells the
/// truth about its failure. Paths are in the encoding of the file system, with "/" as separator.
/// fileSystemPosix.cpp syncs to the disk and locks with the kernel; fileSystemPortable.cpp does
/// what Qt can do elsewhere.

/// Why a file was read or not.
enum class ReadState {
    Read,
    Missing,    ///< there is nothing of that name, or no such folder
    Unreadable, ///< something is there, and the system will not give it to us
    NotAFile,   ///< a folder or a device
    TooLong     ///< longer than the limit
};

/// The path for the file system; empty if it cannot name a file (empty, or with a NUL inside).
std::string nativePath(const VOString &path);

/// The same path as the user knows it.
QString shownPath(const std::string &path);

/// Reads the whole file. Unless it answers Read, the content of `bytes` is unset.
ReadState readWholeFile(const std::string &path, std::uint64_t limit, ByteBuffer &bytes);
/// True if the file can be read and holds exactly these bytes.
bool fileHolds(const std::string &path, std::string_view bytes);
bool somethingIsAt(const std::string &path);

/// What tells, without reading it, that a file was replaced or written to. Two that are equal say
/// that nothing happened between them if the first one `isSettled`: a file that was written a
/// moment before it was looked at may be written again within what the file system's clock can tell
/// apart.
struct FileStamp
{
    bool exists = false;
    bool isSettled = false;
    std::array<std::uint64_t, 6> marks{};
};
FileStamp stampOf(const std::string &path);
inline bool operator==(const FileStamp &left, const FileStamp &right)
{
    return left.exists == right.exists && left.marks == right.marks;
}

/// Why the last call here that failed did so, in the words of the system; empty if it has none. To
/// be asked for right behind that call.
QString systemReason();

/// Writes a new file, or over an old one of the same name, checks that it has got its full length
/// and waits until it is on the disk. On failure the file is removed. The permissions are those of
/// the file at `model`, if there is one.
bool writeSynced(const std::string &path, std::string_view bytes, const std::string &model);
/// Moves a file or folder over a file, in one step: every reader sees the old or the new one.
bool renameOver(const std::string &from, const std::string &to);
/// Gives the file a second name, in place of whatever file had it: a link where the file system
/// has links, or else a copy.
bool linkAs(const std::string &from, const std::string &to);
/// True if there is nothing of that name afterwards.
bool removeFile(const std::string &path);
/// Undoes renameOver(): moves the file that was kept back over `target`, or removes `target` if
/// there was none (`kept` is empty). Does not give up on the first failure.
void putBack(const std::string &kept, const std::string &target);
/// Makes the folder and those above it; true if it is there already.
bool makeFolder(const std::string &path);
/// Waits until the names in the folder are on the disk.
bool syncFolder(const std::string &path);

/// Writes `bytes` in place of the file at `path`, which is then whole and on the disk. On failure
/// the old file is there unchanged and nothing is left beside it.
bool replaceFile(const std::string &path, std::string_view bytes);

/// The lock of the store's folder, between processes. It ends with this object, and with the
/// process however that ends.
class FolderLock
{
public:
    FolderLock();
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    /// Waits for it at most so long. The file at `path` is made if need be; its content does not
    /// matter.
    bool acquire(const std::string &path, int milliseconds);
    /// After acquire() failed: whether that was because another process has it.
    bool isTaken() const;

private:
    struct Lock; // what the system has for it
    std::unique_ptr<Lock> lock;
};

} // namespace VTObjects
