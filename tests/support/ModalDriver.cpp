#include "tests/support/ModalDriver.h"

#include <QApplication>
#include <QtTest>

namespace {

constexpr int tick = 5; // milliseconds

} // namespace

ModalDriver::ModalDriver(QObject *parent)
    : ModalDriver(Unhurried, ModalWindows, parent)
{
}

ModalDriver::ModalDriver(Pace pace, Scope scope, QObject *parent)
    : QObject(parent)
    , pace(pace)
    , scope(scope)
{
    connect(&poll, &QTimer::timeout, this, &ModalDriver::onPoll);
    connect(&ticks, &QTimer::timeout, this, &ModalDriver::onTick);
    ticks.start(tick);
    setPolling();
}

ModalDriver::~ModalDriver() = default;

void ModalDriver::next(Handler handler)
{
    handlers.push_back(std::move(handler));
    setPolling();
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

QWidget *ModalDriver::openWindow() const
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (scope == AnyWindow) {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible())
                return window;
        }
    }
    return nullptr;
}

/// Without anything to do at once, polling without a pause would only keep the processor busy.
void ModalDriver::setPolling()
{
    const int interval = pace == AtOnce && !handlers.empty() ? 0 : tick;
    if (!poll.isActive() || poll.interval() != interval)
        poll.start(interval);
}

void ModalDriver::onPoll()
{
    QWidget *const window = openWindow();
    if (!window || !window->isVisible() || handled.contains(window) || handlers.empty())
        return;
    idleTicks = 0;
    handled.removeAll(nullptr);
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
    setPolling();
}

void ModalDriver::onTick()
{
    const bool isAwaiting = openWindow() || (scope == AnyWindow && !handlers.empty());
    idleTicks = isAwaiting ? idleTicks + 1 : 0;
    if (idleTicks > patience)
        giveUp();
}

void ModalDriver::giveUp()
{
    idleTicks = 0;
    if (scope == AnyWindow && !openWindow()) {
        failure = problem();
        handlers.clear();
        QCoreApplication::exit(-1);
        return;
    }
    handlers.clear();
    while (QWidget *window = openWindow()) {
        failure = QStringLiteral("closed by force: %1 \"%2\"")
                      .arg(QLatin1String(window->metaObject()->className()), window->windowTitle());
        window->close();
        if (window->isVisible())
            window->hide();
    }
}
