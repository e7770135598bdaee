#pragma once

#include <QStyledItemDelegate>

namespace vtcontrolcolorscheme {

/// Draws the editor's colour rows so that they can be read: the number shrinks until it fits its
/// narrow column, and the swatch keeps its colour while its row is selected.
class ColorRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit ColorRowDelegate(QObject *parent);
    ~ColorRowDelegate() override;

    /// Without the thousands separators of a locale, for which there is no room.
    QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace vtcontrolcolorscheme
