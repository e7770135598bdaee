#pragma once

#include <string>
#include <vector>

/// Stands between a test program and the system's file calls: open, write, fsync, rename, link,
/// close and mkdir. A library of its own, named before the C library, so that it gets the calls
/// first. Outside of watch() and stop() it passes everything on.
///
/// While it watches, syncing is only noted and not done: what a test wants to know is the order,
/// and the disk is slow.
namespace FaultShim {

enum Fault {
    None,
    Fail,       ///< the call does nothing (a close closes) and fails with the error
    ShortWrite, ///< a write takes half of its bytes and says so; other calls are left alone
    DiskFull,   ///< from this call on, a write takes half of its bytes, later ones fail
    Kill        ///< the process is killed before the call
};

struct Call
{
    std::string name;
    std::string path;
    std::string target; ///< of a rename or link
    bool succeeded = false;
};

/// Begins to count calls from 1. The fault hits call `at`; if `repeated`, every multiple of it,
/// too.
void watch(Fault fault = None, int at = 0, int error = 0, bool repeated = false);
/// Ends it and gives the calls since.
std::vector<Call> stop();

} // namespace FaultShim
