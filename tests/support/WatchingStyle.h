#pragma once

#include <QFontMetricsF>
#include <QMap>
#include <QProxyStyle>
#include <QStyleOptionViewItem>

/// Remembers what the view gave the style to draw, and whether there was room for it.
class WatchingStyle : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
        if (element == CE_ItemViewItem && item && !item->text.isEmpty()) {
            const int margin = pixelMetric(PM_FocusFrameHMargin, nullptr, widget) + 1;
            const int room = subElementRect(SE_ItemViewItemText, item, widget).width() - 2 * margin;
            fits[item->text] = QFontMetricsF(item->font).horizontalAdvance(item->text) <= room;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QMap<QString, bool> fits;
};
