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
/// its handler, is closed after a while and makes allSeen() false, so that no test hangs.
class ModalDriver : public QObject
{
    Q_OBJECT
public:
    using Handler = std::function<void(QWidget *)>;

    explicit ModalDriver(QObject *parent = nullptr);
    ~ModalDriver() override;

    /// What to do with the next modal dialog or popup that appears.
    void next(Handler handler);
    /// True if every handler ran and no window had to be closed by force.
    bool allSeen() const;
    /// What went wrong; empty if nothing did.
    QString problem() const;

private:
    void onPoll();
    void closeAll();

    std::deque<Handler> handlers;
    QVector<QPointer<QWidget>> handled;
    QTimer poll;
    int idlePolls = 0;
    int pending = 0; // handlers on their way
    QString failure;
};
