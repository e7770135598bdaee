#include "colorscheme/picker/VTSchemeMenuActionWidget.h"

#include "colorscheme/picker/EntryList_p.h"
#include "colorscheme/picker/darkText_p.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>

using vtcontrolcolorscheme::drawDarkText;
using vtcontrolcolorscheme::EntryList;

namespace {

constexpr int nameHeight = 17;
constexpr int stripHeight = 20;
constexpr int nameIndent = 2;
constexpr int markWidth = 14;
constexpr char highlightedStyle[] = "QLabel{background-color:rgba(51,153,255,255);}";
constexpr char plainStyle[] = "QLabel{background-color:rgba(255,255,255,255);}";
const QColor highlightedGround(51, 153, 255);

/// The name on one line. Its beginning shows, and dots for what has no room; text() is all of it.
class NameLabel : public QLabel
{
public:
    using QLabel::QLabel;

    bool isHighlighted() const { return styleSheet() == QLatin1String(highlightedStyle); }
    /// In a label of that width.
    bool isCut(int width) const
    {
        const QString line = oneLine();
        return line != text() || fontMetrics().horizontalAdvance(line) > namePlace(width).width();
    }

    QSize sizeHint() const override
    {
        const int wanted = nameIndent + fontMetrics().horizontalAdvance(oneLine());
        return QSize(wanted, fontMetrics().height());
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

    bool picked = false;

protected:
    // All of it by hand: a host's style sheet for its own widgets must not make a dark name on a
    // dark ground, or a light one on a light one, of it.
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), isHighlighted() ? highlightedGround : QColor(Qt::white));
        const QRect place = QStyle::visualRect(layoutDirection(), rect(), namePlace(width()));
        drawDarkText(painter, this, place, alignment(),
                     fontMetrics().elidedText(oneLine(), Qt::ElideRight, place.width()));
        if (picked)
            drawMark(painter);
    }

private:
    QString oneLine() const
    {
        QString line = text();
        for (QChar &character : line) {
            const QChar::Category kind = character.category();
            if (kind == QChar::Other_Control || kind == QChar::Separator_Line ||
                kind == QChar::Separator_Paragraph)
                character = QLatin1Char(' ');
        }
        return line.trimmed();
    }

    // From left to right.
    QRect namePlace(int width) const
    {
        return QRect(0, 0, width, height()).adjusted(nameIndent, 0, picked ? -markWidth : 0, 0);
    }

    void drawMark(QPainter &painter) const
    {
        const QRect behind(width() - markWidth, 0, markWidth, height());
        const QPointF center = QStyle::visualRect(layoutDirection(), rect(), behind).center();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 2));
        const QPointF mark[] = {center + QPointF(-3.5, 0.5), center + QPointF(-1, 3),
                                center + QPointF(4, -3)};
        painter.drawPolyline(mark, 3);
    }
};

NameLabel *toNameLabel(QLabel *label)
{
    return static_cast<NameLabel *>(label);
}

} // namespace

VTSchemeMenuActionWidget::VTSchemeMenuActionWidget(QWidget *parent)
    : QWidget(parent)
    , nameLabel(new NameLabel(this))
    , previewLabel(new QLabel(this))
{
    setMouseTracking(true);
    nameLabel->setMouseTracking(true);
    previewLabel->setMouseTracking(true);
    nameLabel->setMinimumHeight(nameHeight);
    previewLabel->setMinimumHeight(stripHeight);
    // A name is no markup, whatever it holds.
    nameLabel->setTextFormat(Qt::PlainText);
    nameLabel->setIndent(nameIndent);
    // The highlight is light in every theme, so the text on it is dark in every theme.
    QPalette dark = nameLabel->palette();
    dark.setColor(QPalette::WindowText, Qt::black);
    nameLabel->setPalette(dark);

    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(nameLabel);
    layout->addWidget(previewLabel);
    setLayout(layout);
    setCursor(Qt::PointingHandCursor);
}

VTSchemeMenuActionWidget::~VTSchemeMenuActionWidget()
{
    // The layout goes first: it would ask for a new layout after each label that goes, and a
    // thousand entries that do so wait for each other.
    delete layout();
    delete nameLabel;
    nameLabel = nullptr;
    delete previewLabel;
    previewLabel = nullptr;
}

void VTSchemeMenuActionWidget::showScheme(const QString &name, const QPixmap &strip)
{
    nameLabel->setText(name);
    previewLabel->setPixmap(strip);
    updateToolTip(maximumWidth());
    setAccessibleName(name);
}

void VTSchemeMenuActionWidget::setHighlighted(bool highlighted)
{
    nameLabel->setStyleSheet(QLatin1String(highlighted ? highlightedStyle : plainStyle));
    nameLabel->update();
}

bool VTSchemeMenuActionWidget::isHighlighted() const
{
    return toNameLabel(nameLabel)->isHighlighted();
}

void VTSchemeMenuActionWidget::setPicked(bool picked)
{
    toNameLabel(nameLabel)->picked = picked;
    nameLabel->update();
    updateToolTip(maximumWidth());
}

bool VTSchemeMenuActionWidget::isPicked() const
{
    return toNameLabel(nameLabel)->picked;
}

void VTSchemeMenuActionWidget::updateToolTip(int width)
{
    const QString name = nameLabel->text();
    setToolTip(toNameLabel(nameLabel)->isCut(width)
                   ? Qt::convertFromPlainText(name, Qt::WhiteSpaceNormal)
                   : QString());
}

bool VTSchemeMenuActionWidget::event(QEvent *event)
{
    // The font may have come after the name: from the list, or from a style sheet.
    if (event->type() == QEvent::ToolTip)
        updateToolTip(nameLabel->width());
    return QWidget::event(event);
}

void VTSchemeMenuActionWidget::enterEvent(QEvent *event)
{
    if (auto *const list = dynamic_cast<EntryList *>(parentWidget()))
        list->pointTo(this, event);
    else
        setHighlighted(true);
}

void VTSchemeMenuActionWidget::leaveEvent(QEvent * /*event*/)
{
    setHighlighted(false);
    if (auto *const list = dynamic_cast<EntryList *>(parentWidget()))
        list->leave(this);
}
