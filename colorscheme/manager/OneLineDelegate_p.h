#pragma once

#include <QStyledItemDelegate>

namespace vtcontrolcolorscheme {

/// Draws the cells of the manager's views so that they can be read: a number shrinks until it fits
/// its column; a text is one line that shows its beginning, and whole on hovering where it is cut.
/// The models' data stays what it is. An edited text that ends as it began is not stored.
class OneLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// What the text of a selected cell is drawn in.
    enum SelectedText {
        HighlightedText, ///< what the palette has for it
        PlainText        ///< as any other, for a view whose selection is pale
    };
    explicit OneLineDelegate(QObject *parent, SelectedText selectedText = HighlightedText);
    ~OneLineDelegate() override;

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    QString displayText(const QVariant &value, const QLocale &locale) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    SelectedText selectedText;
};

} // namespace vtcontrolcolorscheme
