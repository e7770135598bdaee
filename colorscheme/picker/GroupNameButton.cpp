#include "colorscheme/picker/GroupNameButton_p.h"

#include "colorscheme/picker/darkText_p.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace vtcontrolcolorscheme {

namespace {

constexpr int widestGroup = 300; // pixels; a longer name ends with dots
constexpr int textPadding = 6;   // the style sheet leaves none

} // namespace

GroupNameButton::GroupNameButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
    setMouseTracking(true);
}

void GroupNameButton::tell(Told pointed, Told left, Told focused)
{
    this->pointed = std::move(pointed);
    this->left = std::move(left);
    this->focused = std::move(focused);
}

void GroupNameButton::setLit(bool lit)
{
    this->lit = lit;
    update();
}

QSize GroupNameButton::sizeHint() const
{
    const QSize hint = QPushButton::sizeHint();
    // The base class does not count the ampersands.
    const int missing =
        text().count(QLatin1Char('&')) * fontMetrics().horizontalAdvance(QLatin1Char('&'));
    return QSize(std::min(hint.width() + missing + textPadding, widestGroup), hint.height());
}

QRect GroupNameButton::textPlace() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
}

bool GroupNameButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool fits = fontMetrics().horizontalAdvance(text()) <= textPlace().width();
        setToolTip(fits ? QString() : Qt::convertFromPlainText(text(), Qt::WhiteSpaceNormal));
    }
    return QPushButton::event(event);
}

void GroupNameButton::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.state.setFlag(QStyle::State_MouseOver, lit);
    option.state.setFlag(QStyle::State_HasFocus, false); // the light tells it, in the one colour
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect place = textPlace();
    drawDarkText(painter, this, place, Qt::AlignLeft | Qt::AlignVCenter,
                 fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

void GroupNameButton::enterEvent(QEvent * /*event*/)
{
    if (pointed)
        pointed(this);
}

void GroupNameButton::leaveEvent(QEvent * /*event*/)
{
    if (left)
        left(this);
}

void GroupNameButton::mouseMoveEvent(QMouseEvent *event)
{
    QPushButton::mouseMoveEvent(event);
    if (pointed)
        pointed(this);
}

void GroupNameButton::focusInEvent(QFocusEvent *event)
{
    QPushButton::focusInEvent(event);
    if (focused)
        focused(this);
}

void GroupNameButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !takesBlanks)
        event->ignore();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace vtcontrolcolorscheme
