#include "tests/support/RealInput.h"

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QWidget>

namespace {

void run(const QStringList &arguments)
{
    QProcess tool;
    QEventLoop loop;
    QObject::connect(&tool, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&tool, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    tool.start(QStringLiteral("xdotool"), arguments);
    // The program goes on meanwhile, as it does under a user's hands.
    if (tool.state() != QProcess::NotRunning)
        loop.exec();
    if (tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0 ||
        tool.error() != QProcess::UnknownError)
        qFatal("xdotool %s: %s", qPrintable(arguments.join(QLatin1Char(' '))),
               qPrintable(tool.errorString() + QString::fromUtf8(tool.readAllStandardError())));
}

// The display counts its own pixels, also where the toolkit draws everything larger.
QStringList moving(const QPoint &position)
{
    const QPoint place = position * qApp->devicePixelRatio();
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
}

} // namespace

QPoint RealInput::centerOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

void RealInput::moveTo(const QPoint &position)
{
    run(moving(position));
}

void RealInput::click(const QPoint &position)
{
    run(moving(position) + QStringList{QStringLiteral("click"), QStringLiteral("1")});
}

void RealInput::doubleClick(const QPoint &position)
{
    run(moving(position) + QStringList{QStringLiteral("click"), QStringLiteral("--repeat"),
                                       QStringLiteral("2"), QStringLiteral("--delay"),
                                       QStringLiteral("20"), QStringLiteral("1")});
}

void RealInput::clickWith(const QString &key, const QPoint &position)
{
    run(moving(position) + QStringList{QStringLiteral("keydown"), key, QStringLiteral("click"),
                                       QStringLiteral("1"), QStringLiteral("keyup"), key});
}

void RealInput::click(const QWidget *widget)
{
    click(centerOf(widget));
}

void RealInput::drag(const QPoint &from, const QPoint &to)
{
    run(moving(from) + QStringList{QStringLiteral("mousedown"), QStringLiteral("1")} +
        moving((from + to) / 2) + moving(to) +
        QStringList{QStringLiteral("mouseup"), QStringLiteral("1")});
}

void RealInput::wheelDown(int steps)
{
    run({QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(steps),
         QStringLiteral("--delay"), QStringLiteral("1"), QStringLiteral("5")});
}

void RealInput::releaseButton()
{
    run({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void RealInput::press(const QString &key)
{
    run({QStringLiteral("key"), key});
}

void RealInput::type(const QString &text)
{
    run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"),
         QStringLiteral("--"), text});
}
