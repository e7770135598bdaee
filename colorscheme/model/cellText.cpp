#include "colorscheme/model/cellText_p.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineEdit>
#include <QScreen>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace vtcontrolcolorscheme {

namespace {

/// More than anybody reads there; a tool-tip has no scroll bar.
constexpr int longestToolTip = 4000;

const QStyle &styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? *option.widget->style() : *QApplication::style();
}

/// The text for a tool-tip. Plain text does not wrap there, and what looks like markup is taken for
/// it; so where either matters the text goes there as markup that says the same.
QString toolTipOf(QString text, const QFontMetricsF &metrics, qreal widest)
{
    if (text.size() > longestToolTip) {
        text.truncate(longestToolTip);
        text += QChar(0x2026);
    }
    const QStringList lines = text.split(QLatin1Char('\n'));
    const bool fits = std::all_of(lines.cbegin(), lines.cend(), [&](const QString &line) {
        return metrics.horizontalAdvance(line) <= widest;
    });
    if (fits && !Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<p style=\"white-space:pre-wrap\">") + text.toHtmlEscaped() +
           QStringLiteral("</p>");
}

} // namespace

qreal textRoom(const QStyleOptionViewItem &option)
{
    const QStyle &style = styleOf(option);
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    return style.subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget).width() -
           2 * margin;
}

void shrinkToFit(QStyleOptionViewItem &option)
{
    if (option.text.isEmpty())
        return;
    const qreal room = textRoom(option);
    if (room <= 0)
        return;
    const bool inPixels = option.font.pixelSize() > 0;
    constexpr qreal smallest = 1;
    const qreal step = inPixels ? 1 : 0.5;
    qreal size = inPixels ? option.font.pixelSize() : option.font.pointSizeF();
    qreal needed = QFontMetricsF(option.font).horizontalAdvance(option.text);
    // Letters that are hinted do not shrink evenly, so once may not be enough.
    while (needed > room && size > smallest) {
        size = std::max(smallest, std::min(size * room / needed, size - step));
        if (inPixels)
            option.font.setPixelSize(static_cast<int>(size));
        else
            option.font.setPointSizeF(size);
        needed = QFontMetricsF(option.font).horizontalAdvance(option.text);
    }
    option.fontMetrics = QFontMetrics(option.font);
}

QString oneLine(const QString &text)
{
    QString line = text;
    line.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar &character : line) {
        switch (character.unicode()) {
        case '\t':
        case '\n':
        case '\v':
        case '\f':
        case '\r':
        case 0x85: // next line
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            character = QLatin1Char(' ');
            break;
        default:
            break;
        }
    }
    return line;
}

bool holdsTextOf(const QLineEdit &field, const QModelIndex &index)
{
    return field.text() == index.data(Qt::EditRole).toString().left(field.maxLength());
}

void showTextTip(const QHelpEvent *event, QWidget *widget, const QRect &place, const QString &text)
{
    const QScreen *screen = QGuiApplication::screenAt(event->globalPos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const qreal widest = screen ? screen->availableGeometry().width() / 2.0 : 0;
    QToolTip::showText(event->globalPos(), toolTipOf(text, QFontMetricsF(QToolTip::font()), widest),
                       widget, place);
}

bool showWholeText(const QHelpEvent *event, const QAbstractItemView *view,
                   const QStyleOptionViewItem &option, const QString &text)
{
    if (!event || event->type() != QEvent::ToolTip || !view || text.isEmpty())
        return false;
    const QFontMetricsF metrics(option.font);
    const QString line = oneLine(text);
    // What the edge of the view hides is cut as well.
    const QRect visible = option.rect.intersected(view->viewport()->rect());
    const qreal room = textRoom(option) - (option.rect.width() - visible.width());
    if (line == text && metrics.horizontalAdvance(line) <= room)
        return false;
    showTextTip(event, view->viewport(), visible, text);
    return true;
}

} // namespace vtcontrolcolorscheme
