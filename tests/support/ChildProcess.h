#pragma once

#include <functional>
#include <sys/types.h>

/// A second process of the test program, made with fork(): it runs one function and ends with its
/// answer as exit code, without the cleaning up of the test program. If it is still there when this
/// object goes, it is killed.
class ChildProcess
{
public:
    explicit ChildProcess(const std::function<int()> &function);
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    void send(int signal) const;
    /// Waits until it has ended: its exit code, or minus the signal that ended it.
    int wait();
    /// SIGKILL, and waits for its end.
    void kill();

private:
    pid_t process = -1;
};

/// One process tells another that it has come so far. Made before the child.
class Signal
{
public:
    Signal();
    ~Signal();
    Signal(const Signal &) = delete;
    Signal &operator=(const Signal &) = delete;

    void give() const;
    /// Waits for it; false if the other side ended without giving it.
    bool await();

private:
    int ends[2] = {-1, -1};
};

/// True if the tests shall run in their long forms: script/test --long.
bool wantsLongTests();
/// One of two sizes, by wantsLongTests().
int shortOrLong(int shortForm, int longForm);
