#include "colorscheme/manager/OneLineDelegate_p.h"

#include "colorscheme/model/cellText_p.h"

#include <QAbstractItemView>
#include <QLineEdit>

namespace vtcontrolcolorscheme {

OneLineDelegate::OneLineDelegate(QObject *parent, SelectedText selectedText)
    : QStyledItemDelegate(parent)
    , selectedText(selectedText)
{
}

OneLineDelegate::~OneLineDelegate() = default;

void OneLineDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                   const QModelIndex &index) const
{
    const auto *field = qobject_cast<const QLineEdit *>(editor);
    if (!field || !holdsTextOf(*field, index))
        QStyledItemDelegate::setModelData(editor, model, index);
}

QString OneLineDelegate::displayText(const QVariant &value, const QLocale & /*locale*/) const
{
    // Numbers go without the separators of a locale too, for which there is no room.
    return oneLine(value.toString());
}

void OneLineDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::DisplayRole).userType() == QMetaType::Int)
        shrinkToFit(*option);
    if (selectedText == PlainText) {
        // Now and not in the view's palette: a host's style sheet can have changed the text since.
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            option->palette.setBrush(group, QPalette::HighlightedText,
                                     option->palette.brush(group, QPalette::Text));
    }
}

bool OneLineDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QVariant text = index.data(Qt::DisplayRole);
    if (view && text.userType() == QMetaType::QString) {
        QStyleOptionViewItem cell(option);
        cell.widget = view;
        initStyleOption(&cell, index);
        if (showWholeText(event, view, cell, text.toString()))
            return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace vtcontrolcolorscheme
