#include "tests/support/TestMain.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

/// How they begin.
constexpr std::array<const char *, 7> harmless = {
    // The offscreen platform has no window manager that could stack windows, ...
    "This plugin does not support raise()",
    // ... keep their sizes within bounds ...
    "This plugin does not support propagateSizeHints()",
    // ... or let a menu have the keyboard. Tests of just that run with real windows.
    "This plugin does not support grabbing the keyboard",
    // The style sheet of the manager's tree is prescribed to the letter, rgb() with alpha included.
    "QCssParser::parseColorValue: Specified color without alpha value but alpha given: "
    "'rgb 255,0,0,125'",
    "QCssParser::parseColorValue: Specified color without alpha value but alpha given: "
    "'rgb 0,0,255,50'",
    // The user of a build machine has no session.
    "QStandardPaths: XDG_RUNTIME_DIR not set",
    // The display's answer about a window comes when that has gone: a race that the toolkit knows.
    "QXcbConnection: XCB error: 3 (BadWindow)",
};

bool isHarmless(const QString &text)
{
    return std::any_of(harmless.begin(), harmless.end(),
                       [&text](const char *one) { return text.startsWith(QLatin1String(one)); });
}

QtMessageHandler next = nullptr; // who prints the messages
int others = 0;

/// What the test library logs. It tells nobody whether a message was announced; but one that was is
/// not logged.
FILE *logFile = nullptr;

off_t logSize()
{
    struct stat status = {};
    return logFile && ::fstat(::fileno(logFile), &status) == 0 ? status.st_size : 0;
}

void listen(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (isWarning && isHarmless(text))
        return;
    const off_t before = logSize();
    next(type, context, text);
    if (!isWarning)
        return;
    if (!QTest::currentTestFunction())
        ++others;
    else if (logSize() != before)
        QTest::qFail(qPrintable(QStringLiteral("an unexpected warning: ") + text), nullptr, 0);
}

/// The arguments with one log more. The test library takes several logs only if each is told with
/// its format; older ways to name one are changed into that.
std::vector<std::string> withLog(int argc, char **argv)
{
    constexpr std::array<const char *, 7> formats = {"-txt",      "-csv",      "-junitxml", "-xml",
                                                     "-lightxml", "-teamcity", "-tap"};
    std::vector<std::string> arguments;
    std::string format = "txt";
    std::string file = "-";
    bool hasLog = false;
    for (int i = 0; i < argc; ++i) {
        const std::string argument = argv[i];
        if (std::find(formats.begin(), formats.end(), argument) != formats.end()) {
            format = argument.substr(1);
        } else if (argument == "-o" && i + 1 < argc) {
            const std::string target = argv[++i];
            hasLog = hasLog || target.find(',') != std::string::npos;
            if (target.find(',') == std::string::npos)
                file = target;
            else
                arguments.insert(arguments.end(), {argument, target});
        } else {
            arguments.push_back(argument);
        }
    }
    if (!hasLog)
        arguments.insert(arguments.end(), {"-o", file + ',' + format});
    // A format that is complete even under -silent, and all of it.
    const std::string own = "/dev/fd/" + std::to_string(::fileno(logFile)) + ",lightxml";
    arguments.insert(arguments.end(), {"-o", own, "-maxwarnings", "0"});
    return arguments;
}

} // namespace

namespace TestMain {

Listener::Listener()
{
    next = qInstallMessageHandler(listen);
}

Listener::~Listener()
{
    qInstallMessageHandler(nullptr);
}

int Listener::run(QObject &test, int argc, char **argv)
{
    logFile = std::tmpfile();
    if (!logFile)
        qFatal("no temporary file");
    std::vector<std::string> arguments = withLog(argc, argv);
    std::vector<char *> pointers;
    for (std::string &argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    QTest::qInit(&test, static_cast<int>(arguments.size()), pointers.data());
    // The test library has put its own handler in front of this one; the order is to be the other.
    const QtMessageHandler before = next;
    next = qInstallMessageHandler(listen);
    const int failures = QTest::qRun();
    next = before;
    QTest::qCleanup();
    std::fclose(logFile);
    logFile = nullptr;
    return failures;
}

int Listener::othersCount()
{
    return others;
}

} // namespace TestMain
