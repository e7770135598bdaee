#include "tests/support/EditorWatch.h"

#include <QPaintEvent>
#include <QtTest>

Announcements::Announcements(const VTColorModel *model)
{
    QObject::connect(model, &VTColorModel::dataChanged, &context,
                     [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                         QVERIFY(topLeft.isValid());
                         QCOMPARE(topLeft.column(), 0);
                         QCOMPARE(bottomRight.column(), 0);
                         rows.append(
                             QStringLiteral("%1-%2").arg(topLeft.row()).arg(bottomRight.row()));
                     });
}

PreviewWatch::PreviewWatch(const EditorUnderTest &test)
    : label(test.part<QLabel>("previewLabel"))
    , former(label->pixmap(Qt::ReturnByValue).cacheKey())
{
}

PaintedRegion::PaintedRegion(QWidget *widget)
{
    widget->installEventFilter(this);
}

bool PaintedRegion::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Paint)
        region += static_cast<QPaintEvent *>(event)->region();
    return false;
}
