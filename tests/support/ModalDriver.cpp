#include "tests/support/ModalDriver.h"

#include <QApplication>
#include <QtTest>

namespace {

constexpr int pollInterval = 5; // milliseconds
constexpr int patience = 4000;  // polls without progress, then windows are closed by force

QWidget *openWindow()
{
    QWidget *window = QApplication::activePopupWidget();
    return window ? window : QApplication::activeModalWidget();
}

} // namespace

ModalDriver::ModalDriver(QObject *parent)
    : QObject(parent)
{
    poll.setInterval(pollInterval);
    connect(&poll, &QTimer::timeout, this, &ModalDriver::onPoll);
    poll.start();
}

ModalDriver::~ModalDriver() = default;

void ModalDriver::next(Handler handler)
{
    handlers.push_back(std::move(handler));
}

bool ModalDriver::allSeen() const
{
    return handlers.empty() && pending == 0 && failure.isEmpty();
}

QString ModalDriver::problem() const
{
    if (!failure.isEmpty())
        return failure;
    return handlers.empty()
               ? QString()
               : QStringLiteral("%1 expected windows did not appear").arg(handlers.size());
}

void ModalDriver::onPoll()
{
    QWidget *const window = openWindow();
    if (!window) {
        idlePolls = 0;
        return;
    }
    if (window->isVisible() && !handled.contains(window) && !handlers.empty()) {
        idlePolls = 0;
        handled.append(window);
        // Not from within this timer's own event: what the handler opens runs a loop in which the
        // timer has to go on.
        ++pending;
        QMetaObject::invokeMethod(
            this,
            [this, window = QPointer<QWidget>(window), run = std::move(handlers.front())] {
                --pending;
                if (window && window->isVisible())
                    run(window);
                else
                    failure = QStringLiteral("a window went before its handler ran");
            },
            Qt::QueuedConnection);
        handlers.pop_front();
        return;
    }
    if (++idlePolls > patience)
        closeAll();
}

void ModalDriver::closeAll()
{
    idlePolls = 0;
    handlers.clear();
    while (QWidget *window = openWindow()) {
        failure = QStringLiteral("closed by force: %1 \"%2\"")
                      .arg(QLatin1String(window->metaObject()->className()), window->windowTitle());
        window->close();
        if (window->isVisible())
            window->hide();
    }
}
