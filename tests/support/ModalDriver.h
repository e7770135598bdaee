#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>

/// Drives dialogs, message boxes and menus that run an event loop of their own. Give it what to
/// do with each window in the order of their appearance, then call what opens them:
///
///     ModalDriver driver;
///     driver.next([](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
///     QMetaObject::invokeMethod(&manager, "onDeleteGroup");
///     QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
///
/// A handler runs once the window is shown, and must end with the window closing sooner or later
/// or with another handler taking over. A window that nobody waits for, or that stays open after
/// its handler, is closed after a while and makes allSeen() false, so that no test hangs. It lasts
/// as long as nothing happens; every window with a handler begins it anew.
class ModalDriver : public QObject
{
    Q_OBJECT
public:
    using Handler = std::function<void(QWidget *)>;

    /// AtOnce: as soon as a window is visible, without letting any time pass. For tests that answer
    /// thousands of windows.
    enum Pace { Unhurried, AtOnce };
    /// AnyWindow: also what is not modal. If none appears for a while, the application is ended.
    enum Scope { ModalWindows, AnyWindow };

    explicit ModalDriver(QObject *parent = nullptr);
    explicit ModalDriver(Pace pace, Scope scope = ModalWindows, QObject *parent = nullptr);
    ~ModalDriver() override;

    /// What to do with the next modal dialog or popup that appears.
    void next(Handler handler);
    /// How long nothing may happen, in ticks of 5 ms; a busy machine has fewer of them.
    void setPatience(int ticks) { patience = ticks; }
    /// True if every handler ran and no window had to be closed by force.
    bool allSeen() const;
    /// What went wrong; empty if nothing did.
    QString problem() const;

private:
    QWidget *openWindow() const;
    void setPolling();
    void onPoll();
    void onTick();
    void giveUp();

    std::deque<Handler> handlers;
    QVector<QPointer<QWidget>> handled;
    Pace pace;
    Scope scope;
    QTimer poll;
    QTimer ticks;
    int patience = 4000;
    int idleTicks = 0; // since something has been awaited: a window, or the end of one
    int pending = 0;   // handlers on their way
    QString failure;
};
