#include "tests/support/ChildProcess.h"

#include <QtGlobal>

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

ChildProcess::ChildProcess(const std::function<int()> &function)
    : process(::fork())
{
    if (process < 0)
        qFatal("no second process");
    if (process == 0)
        ::_exit(function());
}

ChildProcess::~ChildProcess()
{
    kill();
}

void ChildProcess::send(int signal) const
{
    if (process > 0)
        ::kill(process, signal);
}

int ChildProcess::wait()
{
    if (process <= 0)
        return 0;
    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR)
            qFatal("the second process cannot be waited for");
    }
    process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void ChildProcess::kill()
{
    send(SIGKILL);
    wait();
}

Signal::Signal()
{
    if (::pipe(ends) != 0)
        qFatal("no pipe");
}

Signal::~Signal()
{
    for (const int end : ends) {
        if (end >= 0)
            ::close(end);
    }
}

void Signal::give() const
{
    const char sign = '!';
    if (::write(ends[1], &sign, 1) != 1)
        qFatal("the pipe is broken");
}

bool Signal::await()
{
    // The writing end here would keep the pipe open after the other side has gone.
    if (ends[1] >= 0)
        ::close(ends[1]);
    ends[1] = -1;
    char sign = 0;
    return ::read(ends[0], &sign, 1) == 1;
}

bool wantsLongTests()
{
    return qEnvironmentVariableIntValue("VT_LONG_TESTS") != 0;
}

int shortOrLong(int shortForm, int longForm)
{
    return wantsLongTests() ? longForm : shortForm;
}
