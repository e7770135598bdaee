#include "colorscheme/editor/ColorRowDelegate_p.h"

#include "colorscheme/model/cellText_p.h"

#include <QIcon>
#include <QPixmap>

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
    shrinkToFit(*option);
}

} // namespace vtcontrolcolorscheme
