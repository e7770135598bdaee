#include "tests/support/windowsLeft.h"

#include <QApplication>
#include <QWidget>

QStringList windowsLeft()
{
    QStringList classes;
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->windowType() != Qt::Desktop)
            classes.append(QLatin1String(widget->metaObject()->className()));
    }
    return classes;
}
