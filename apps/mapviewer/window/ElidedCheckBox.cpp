#include "apps/mapviewer/window/ElidedCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace mapviewer {

namespace {

constexpr int leastCharacters = 8;

// A lone "&" would be taken for the mark of a shortcut.
QString shown(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

ElidedCheckBox::ElidedCheckBox(const QString &text, QWidget *parent)
    : QCheckBox(shown(text), parent)
    , caption(text)
{
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidedCheckBox::sizeHint() const
{
    return QCheckBox::sizeHint();
}

QSize ElidedCheckBox::minimumSizeHint() const
{
    const QSize whole = QCheckBox::sizeHint();
    const QFontMetrics metrics(font());
    const int left = whole.width() - metrics.horizontalAdvance(caption);
    return QSize(std::min(whole.width(), left + leastCharacters * metrics.averageCharWidth()),
                 whole.height());
}

void ElidedCheckBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this).width();
    option.text = shown(fontMetrics().elidedText(caption, Qt::ElideMiddle, room));
    painter.drawControl(QStyle::CE_CheckBox, option);
}

} // namespace mapviewer
