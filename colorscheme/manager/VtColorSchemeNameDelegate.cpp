#include "colorscheme/manager/VtColorSchemeNameDelegate.h"

#include "colorscheme/manager/VTColorSchemeView.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/model/cellText_p.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>

using vtcontrolcolorscheme::oneLine;
using vtcontrolcolorscheme::showWholeText;

VtColorSchemeNameDelegate::VtColorSchemeNameDelegate(VTColorSchemeView *view)
    : QItemDelegate(view)
    , view(view)
{
}

VtColorSchemeNameDelegate::~VtColorSchemeNameDelegate() = default;

QWidget *VtColorSchemeNameDelegate::createEditor(QWidget *parent,
                                                 const QStyleOptionViewItem & /*option*/,
                                                 const QModelIndex &index) const
{
    auto *editor = new VTLineEditWidget(parent);
    editor->setData(index.row());
    // The old name must not shine through beside the field.
    editor->setBackgroundRole(QPalette::Base);
    editor->setAutoFillBackground(true);
    editor->lineEdit()->setAttribute(Qt::WA_TranslucentBackground);
    // The view filters the events of the editor, but the keyboard is in the field inside it.
    editor->lineEdit()->installEventFilter(const_cast<VtColorSchemeNameDelegate *>(this));
    if (view) {
        connect(editor, &VTLineEditWidget::textEdited, view, &VTColorSchemeView::onNameEdited);
        connect(editor, &VTLineEditWidget::editingFinished, view,
                &VTColorSchemeView::onNameEditingFinished);
    }
    return editor;
}

void VtColorSchemeNameDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    // However the editing ended, no unusable name is being typed any more.
    auto *nameEditor = qobject_cast<VTLineEditWidget *>(editor);
    if (view && nameEditor)
        view->endNaming(nameEditor);
    QItemDelegate::destroyEditor(editor, index);
}

void VtColorSchemeNameDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *nameEditor = qobject_cast<VTLineEditWidget *>(editor))
        nameEditor->lineEdit()->setText(index.data(Qt::EditRole).toString());
}

void VtColorSchemeNameDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                             const QModelIndex &index) const
{
    auto *nameEditor = qobject_cast<VTLineEditWidget *>(editor);
    if (nameEditor && model)
        model->setData(index, nameEditor->lineEdit()->text(), Qt::EditRole);
}

void VtColorSchemeNameDelegate::updateEditorGeometry(QWidget *editor,
                                                     const QStyleOptionViewItem &option,
                                                     const QModelIndex & /*index*/) const
{
    if (editor)
        editor->setGeometry(option.rect);
}

bool VtColorSchemeNameDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                          const QStyleOptionViewItem &option,
                                          const QModelIndex &index)
{
    QStyleOptionViewItem cell(option);
    cell.widget = view;
    cell.features |= QStyleOptionViewItem::HasDisplay;
    cell.text = index.data(Qt::DisplayRole).toString();
    return showWholeText(event, view, cell, cell.text) ||
           QItemDelegate::helpEvent(event, view, option, index);
}

void VtColorSchemeNameDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option,
                                            const QRect &rect, const QString &text) const
{
    QItemDelegate::drawDisplay(painter, option, rect, oneLine(text));
}

bool VtColorSchemeNameDelegate::eventFilter(QObject *object, QEvent *event)
{
    if (qobject_cast<VTLineEditWidget *>(object))
        return QItemDelegate::eventFilter(object, event);
    const auto *field = qobject_cast<QLineEdit *>(object);
    QWidget *editor = field ? qobject_cast<VTLineEditWidget *>(field->parentWidget()) : nullptr;
    if (!editor)
        return false;
    // What leaves the field leaves the editor: the base knows what to do then, but it watches only
    // the editor itself. Return and Escape reach that by themselves, Tab and the focus do not.
    bool leaves = event->type() == QEvent::FocusOut;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        leaves = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    }
    return leaves && QItemDelegate::eventFilter(editor, event);
}
