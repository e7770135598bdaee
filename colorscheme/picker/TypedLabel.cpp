#include "colorscheme/picker/TypedLabel_p.h"

#include "colorscheme/picker/TypeAhead_p.h"

#include <QStyle>

namespace vtcontrolcolorscheme {

TypedLabel::TypedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setIndent(2);
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    setSizePolicy(policy);
}

void TypedLabel::showLetters(const TypeAhead &letters)
{
    QFont shown = font();
    shown.setStrikeOut(!letters.hasFound());
    setFont(shown);
    setText(letters.text());
    const bool fits = fontMetrics().horizontalAdvance(text()) + indent() <= width();
    const Qt::Alignment side = fits ? Qt::AlignLeading : Qt::AlignTrailing;
    setAlignment(QStyle::visualAlignment(layoutDirection(), side | Qt::AlignVCenter));
    setAccessibleDescription(letters.hasFound() ? tr("Typed letters")
                                                : tr("No name has these letters"));
}

} // namespace vtcontrolcolorscheme
