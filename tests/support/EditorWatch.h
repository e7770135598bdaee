#pragma once

#include "tests/support/EditorUnderTest.h"

#include <QObject>
#include <QRegion>
#include <QStringList>

/// What an editor tells and paints while a test works with it.

/// Notes the announced changes of a model as "first-last" pairs of rows.
class Announcements
{
public:
    explicit Announcements(const VTColorModel *model);

    QStringList rows;

private:
    QObject context;
};

/// Tells whether the preview got a new picture.
class PreviewWatch
{
public:
    explicit PreviewWatch(const EditorUnderTest &test);
    bool refreshed() const { return label->pixmap(Qt::ReturnByValue).cacheKey() != former; }

private:
    const QLabel *label;
    qint64 former;
};

/// Collects what is painted of a widget.
class PaintedRegion : public QObject
{
    Q_OBJECT
public:
    explicit PaintedRegion(QWidget *widget);
    bool eventFilter(QObject *watched, QEvent *event) override;

    QRegion region;
};
