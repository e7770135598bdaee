#pragma once

#include "vomap/files/fileSystem_p.h"
#include "vomap/store/SchemeStore_p.h"

namespace VTObjects {

/// A team file that may be there, as far as it can be had.
struct SchemeStore::Found
{
    ReadState read = ReadState::Missing;
    TeamFileState state = TeamFileState::Damaged;
    bool complete = false;
    ByteBuffer bytes;
    TeamContent content;

    explicit Found(const std::string &path);

    bool isMissing() const { return read == ReadState::Missing; }
    bool isWhole() const { return read == ReadState::Read && state == TeamFileState::Whole; }
    bool isNewer() const { return read == ReadState::Read && state == TeamFileState::Newer; }
    /// Something is there, the system lets us have it, and it is no team file any more.
    bool isDamaged() const
    {
        return read == ReadState::NotAFile ||
               (read == ReadState::Read && state == TeamFileState::Damaged);
    }
};

} // namespace VTObjects
