#include "colorscheme/model/DialogMemory_p.h"

#include <QDialog>
#include <QEvent>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QStyle>

namespace vtcontrolcolorscheme {

namespace {

/// What a window of this screen can be large at most, its title bar left aside.
QSize roomFor(const QWidget *dialog)
{
    const QSize room = dialog->screen()->availableSize();
    return room - QSize(0, dialog->style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

} // namespace

DialogMemory::DialogMemory(QDialog *dialog, const QString &key)
    : QObject(dialog)
    , dialog(dialog)
    , name(key)
    , defaultSize(dialog->size())
    , openedWith(defaultSize)
{
    dialog->installEventFilter(this);
    const QSettings *const settings = layoutSettings();
    if (!settings)
        return;
    const QVariant kept = settings->value(sizePath());
    if (!kept.canConvert<QSize>())
        return;
    const QSize room = roomFor(dialog);
    // Bounded before anything is added to it: it can be any number.
    const QSize added = kept.toSize().boundedTo(room).expandedTo(QSize(1, 1) - defaultSize);
    // A size that is too much for the screen by itself stays so.
    dialog->resize((defaultSize + added).boundedTo(room.expandedTo(defaultSize)));
    openedWith = dialog->size();
}

void DialogMemory::addColumn(QHeaderView *header, int column, const QString &key)
{
    if (const QSettings *const settings = layoutSettings()) {
        bool isNumber = false;
        const int width = settings->value(pathOf(key)).toInt(&isNumber);
        if (isNumber && width > 0)
            header->resizeSection(
                column, qBound(header->minimumSectionSize(), width, roomFor(dialog).width()));
    }
    columns.append({header, column, key, header->sectionSize(column)});
}

void DialogMemory::takeDefaultSize()
{
    defaultSize = dialog->size();
    openedWith = defaultSize;
}

bool DialogMemory::eventFilter(QObject *object, QEvent *event)
{
    // What the window system hides or shows is nobody's beginning or end.
    if (object == dialog && !event->spontaneous()) {
        if (event->type() == QEvent::Show)
            openedWith =
                dialog->size(); // with what its contents need at least, or its host gave it
        else if (event->type() == QEvent::Hide)
            save();
    }
    return QObject::eventFilter(object, event);
}

void DialogMemory::save() const
{
    QSettings *const settings = layoutSettings();
    if (!settings)
        return;
    const bool fillsScreen = dialog->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (dialog->size() != openedWith && !fillsScreen)
        settings->setValue(sizePath(), dialog->size() - defaultSize);
    for (const Column &column : columns) {
        const int width = column.header ? column.header->sectionSize(column.section) : 0;
        if (width > 0 && width != column.openedWith)
            settings->setValue(pathOf(column.key), width);
    }
}

QString DialogMemory::sizePath() const
{
    return pathOf(QStringLiteral("enlargedBy"));
}

QString DialogMemory::pathOf(const QString &key) const
{
    return QStringLiteral("vtcontrolcolorscheme/%1/%2").arg(name, key);
}

} // namespace vtcontrolcolorscheme
