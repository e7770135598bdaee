#include "colorscheme/editor/LongTextField_p.h"

#include "colorscheme/model/cellText_p.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyleOptionFrame>

namespace vtcontrolcolorscheme {

namespace {

// On each side of the text, inside the frame; the toolkit does not tell it.
constexpr int innerMargin = 2;

int roomFor(const QLineEdit &field)
{
    QStyleOptionFrame frame;
    frame.initFrom(&field);
    frame.rect = field.contentsRect();
    frame.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, &field);
    const QRect inside = field.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &field);
    const QMargins margins = field.textMargins();
    return inside.width() - margins.left() - margins.right() - 2 * innerMargin;
}

} // namespace

LongTextField::LongTextField(QLineEdit *field)
    : QObject(field)
    , field(field)
{
    field->installEventFilter(this);
}

void LongTextField::setText(const QString &text)
{
    field->setText(text);
    untouched = false; // the cursor is where it belongs
    if (!field->hasFocus())
        showBeginning();
}

void LongTextField::showBeginning()
{
    if (!untouched || field->cursorPosition() != 0)
        place = field->cursorPosition();
    field->setCursorPosition(0);
    untouched = true;
}

void LongTextField::goBackToPlace()
{
    // Where somebody's code has put the cursor since, it stays.
    if (untouched && field->cursorPosition() == 0 && !field->hasSelectedText())
        field->setCursorPosition(place);
    untouched = false;
}

bool LongTextField::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
        goBackToPlace();
        break;
    case QEvent::MouseButtonPress:
        // The one for the menu puts the cursor nowhere, and the menu can paste.
        if (static_cast<QMouseEvent *>(event)->button() == Qt::RightButton)
            goBackToPlace();
        untouched = false;
        break;
    case QEvent::FocusOut: {
        // Of a menu or another window one comes back to where one was.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
            reason != Qt::MenuBarFocusReason)
            showBeginning();
        break;
    }
    case QEvent::ToolTip:
        if (showTip(event))
            return true;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool LongTextField::showTip(const QEvent *event) const
{
    if (!field->toolTip().isEmpty() ||
        field->fontMetrics().horizontalAdvance(field->text()) <= roomFor(*field))
        return false;
    showTextTip(static_cast<const QHelpEvent *>(event), field, field->rect(), field->text());
    return true;
}

} // namespace vtcontrolcolorscheme
