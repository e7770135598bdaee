#include "tests/support/faultShim.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct State
{
    bool watching = false;
    bool inside = false; // our own work is not watched
    FaultShim::Fault fault = FaultShim::None;
    int at = 0;
    int error = 0;
    bool repeated = false;
    bool full = false;
    std::vector<FaultShim::Call> calls;
    std::map<int, std::string> paths; // of what was opened while watching
};

State &state()
{
    static State instance;
    return instance;
}

template <typename Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Notes the call and answers what is to happen to it.
FaultShim::Fault entered(const char *name, const std::string &path,
                         const std::string &target = std::string())
{
    State &now = state();
    now.calls.push_back({name, path, target, false});
    const int number = static_cast<int>(now.calls.size());
    const bool hit = now.at > 0 && (number == now.at || (now.repeated && number % now.at == 0));
    if (now.fault == FaultShim::DiskFull)
        return number >= now.at ? FaultShim::DiskFull : FaultShim::None;
    if (hit && now.fault == FaultShim::Kill)
        ::kill(::getpid(), SIGKILL);
    return hit ? now.fault : FaultShim::None;
}

bool isWatched()
{
    return state().watching && !state().inside;
}

bool failsWith(FaultShim::Fault fault)
{
    if (fault != FaultShim::Fail)
        return false;
    errno = state().error;
    return true;
}

template <typename Result>
Result noted(Result result)
{
    state().calls.back().succeeded = result >= 0;
    return result;
}

// Keeps the shim's own containers out of its sight.
class Inside
{
public:
    Inside() { state().inside = true; }
    ~Inside() { state().inside = false; }
    Inside(const Inside &) = delete;
    Inside &operator=(const Inside &) = delete;
};

int openWith(const char *symbol, const char *path, int flags, mode_t mode)
{
    const auto real = next<int (*)(const char *, int, ...)>(symbol);
    if (!isWatched())
        return real(path, flags, mode);
    const Inside inside;
    if (failsWith(entered("open", path)))
        return -1;
    const int descriptor = noted(real(path, flags, mode));
    if (descriptor >= 0)
        state().paths[descriptor] = path;
    return descriptor;
}

std::string pathOf(int descriptor)
{
    const auto found = state().paths.find(descriptor);
    return found == state().paths.end() ? std::string() : found->second;
}

} // namespace

void FaultShim::watch(Fault fault, int at, int error, bool repeated)
{
    State &now = state();
    now = State();
    now.fault = fault;
    now.at = at;
    now.error = error;
    now.repeated = repeated;
    now.watching = true;
}

std::vector<FaultShim::Call> FaultShim::stop()
{
    state().watching = false;
    return state().calls;
}

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openWith("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openWith("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t count)
{
    const auto real = next<ssize_t (*)(int, const void *, size_t)>("write");
    if (!isWatched())
        return real(descriptor, bytes, count);
    const Inside inside;
    const FaultShim::Fault fault = entered("write", pathOf(descriptor));
    if (failsWith(fault))
        return -1;
    if (fault == FaultShim::DiskFull && state().full) {
        errno = ENOSPC;
        return -1;
    }
    state().full = fault == FaultShim::DiskFull;
    const bool half = fault == FaultShim::ShortWrite || fault == FaultShim::DiskFull;
    return noted(real(descriptor, bytes, half && count > 1 ? count / 2 : count));
}

int fsync(int descriptor)
{
    const auto real = next<int (*)(int)>("fsync");
    if (!isWatched())
        return real(descriptor);
    const Inside inside;
    return failsWith(entered("fsync", pathOf(descriptor))) ? -1 : noted(0);
}

int rename(const char *from, const char *to)
{
    const auto real = next<int (*)(const char *, const char *)>("rename");
    if (!isWatched())
        return real(from, to);
    const Inside inside;
    return failsWith(entered("rename", from, to)) ? -1 : noted(real(from, to));
}

int link(const char *from, const char *to)
{
    const auto real = next<int (*)(const char *, const char *)>("link");
    if (!isWatched())
        return real(from, to);
    const Inside inside;
    return failsWith(entered("link", from, to)) ? -1 : noted(real(from, to));
}

int mkdir(const char *path, mode_t mode)
{
    const auto real = next<int (*)(const char *, mode_t)>("mkdir");
    if (!isWatched())
        return real(path, mode);
    const Inside inside;
    return failsWith(entered("mkdir", path)) ? -1 : noted(real(path, mode));
}

int close(int descriptor)
{
    const auto real = next<int (*)(int)>("close");
    if (!isWatched())
        return real(descriptor);
    const Inside inside;
    const FaultShim::Fault fault = entered("close", pathOf(descriptor));
    const int result = real(descriptor);
    state().paths.erase(descriptor);
    return failsWith(fault) ? -1 : noted(result);
}

} // extern "C"
