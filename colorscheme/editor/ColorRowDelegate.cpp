#include "colorscheme/editor/ColorRowDelegate_p.h"

#include <QApplication>
#include <QStyle>

namespace vtcontrolcolorscheme {

ColorRowDelegate::ColorRowDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

ColorRowDelegate::~ColorRowDelegate() = default;

QString ColorRowDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return value.toString();
}

void ColorRowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->features & QStyleOptionViewItem::HasDecoration) {
        // Given as its own picture for selected rows, the swatch is not tinted by the style.
        const QPixmap swatch = index.data(Qt::DecorationRole).value<QPixmap>();
        option->icon.addPixmap(swatch, QIcon::Selected);
    }
    if (option->text.isEmpty())
        return;
    const QStyle *style = option->widget ? option->widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
    const int room = option->rect.width() - 2 * margin;
    const int needed = option->fontMetrics.horizontalAdvance(option->text);
    if (room > 0 && needed > room) {
        option->font.setPointSizeF(option->font.pointSizeF() * room / needed);
        option->fontMetrics = QFontMetrics(option->font);
    }
}

} // namespace vtcontrolcolorscheme
