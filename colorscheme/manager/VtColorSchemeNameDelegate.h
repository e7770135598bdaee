#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QItemDelegate>

class VTColorSchemeView;

/// Edits the names of the scheme table in place, in a field with a warning icon. What is typed is
/// judged by the table, whose slots the editors talk to.
class VTCONTROLCOLORSCHEME_EXPORT VtColorSchemeNameDelegate : public QItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY(VtColorSchemeNameDelegate)
public:
    /// The view owns the delegate.
    explicit VtColorSchemeNameDelegate(VTColorSchemeView *view);
    ~VtColorSchemeNameDelegate() override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /// Stores the text as it stands, blanks included.
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                     const QString &text) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    VTColorSchemeView *view;
};
