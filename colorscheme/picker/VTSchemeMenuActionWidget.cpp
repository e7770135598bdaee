#include "colorscheme/picker/VTSchemeMenuActionWidget.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

constexpr int nameHeight = 17;
constexpr int stripHeight = 20;
constexpr int nameIndent = 2;
constexpr char highlightedStyle[] = "QLabel{background-color:rgba(51,153,255,255);}";
constexpr char plainStyle[] = "QLabel{background-color:rgba(255,255,255,255);}";

/// A label that ends a text that is too long with dots. It keeps the whole text.
class NameLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        const QRect place = contentsRect().adjusted(indent(), 0, 0, 0);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
        if (shown == text()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        drawFrame(&painter); // the style sheet's background, too
        style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(),
                              isEnabled(), shown, foregroundRole());
    }
};

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
    nameLabel->setForegroundRole(QPalette::WindowText);

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
    const bool fits =
        maximumWidth() >= nameLabel->fontMetrics().horizontalAdvance(name) + nameIndent;
    setToolTip(fits ? QString() : Qt::convertFromPlainText(name, Qt::WhiteSpaceNormal));
    setAccessibleName(name);
}

void VTSchemeMenuActionWidget::setHighlighted(bool highlighted)
{
    nameLabel->setStyleSheet(QLatin1String(highlighted ? highlightedStyle : plainStyle));
    nameLabel->update();
}

bool VTSchemeMenuActionWidget::isHighlighted() const
{
    return nameLabel->styleSheet() == QLatin1String(highlightedStyle);
}

void VTSchemeMenuActionWidget::enterEvent(QEvent * /*event*/)
{
    setHighlighted(true);
}

void VTSchemeMenuActionWidget::leaveEvent(QEvent * /*event*/)
{
    setHighlighted(false);
}
