#pragma once

#include <QApplication>
#include <QtTest>

/// The main() of a test program in place of QTEST_MAIN and its like. It does the same, and more: a
/// test fails, at once and by its name, if meanwhile anyone prints a warning that it did not
/// announce with QTest::ignoreMessage(). The few that say nothing about this code are listed in
/// TestMain.cpp with their reasons; those are not even printed.
namespace TestMain {

/// In place of an application object, where a test needs none or makes its own.
struct NoApplication
{
    NoApplication(int & /*argc*/, char ** /*argv*/) {}
};

/// Listens from its making to its end.
class Listener
{
public:
    Listener();
    ~Listener();
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    /// Runs all that the arguments ask for: the number of failures.
    static int run(QObject &test, int argc, char **argv);
    /// The number of warnings outside of any test function: while the application or the test
    /// object are made or go.
    static int othersCount();
};

template <typename Application, typename Test>
int run(int argc, char **argv)
{
    const Listener listener;
    int failures = 0;
    {
        Application application(argc, argv);
        if (QCoreApplication::instance())
            QCoreApplication::setAttribute(Qt::AA_Use96Dpi, true);
        Test test;
        failures = Listener::run(test, argc, argv);
    }
    return failures + Listener::othersCount();
}

} // namespace TestMain

#define VT_TEST_MAIN_WITH(Application, Test)                                                       \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return TestMain::run<Application, Test>(argc, argv);                                       \
    }

#define VT_TEST_MAIN(Test) VT_TEST_MAIN_WITH(QApplication, Test)
#define VT_TEST_GUILESS_MAIN(Test) VT_TEST_MAIN_WITH(QCoreApplication, Test)
#define VT_TEST_APPLESS_MAIN(Test) VT_TEST_MAIN_WITH(TestMain::NoApplication, Test)
