#include "vtcontrolbase/HexColorField_p.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace vtcontrolbase {

namespace {

const QSize swatchSize(36, 20);

bool isHexDigit(QChar character)
{
    return (character >= QLatin1Char('0') && character <= QLatin1Char('9')) ||
           (character >= QLatin1Char('a') && character <= QLatin1Char('f')) ||
           (character >= QLatin1Char('A') && character <= QLatin1Char('F'));
}

/// The digits of what was typed: blanks around it and one "#" before it do not count.
QString digitsOf(const QString &text)
{
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(QLatin1Char('#')) ? trimmed.mid(1) : trimmed;
}

/// The colour, or crossed out where there is none.
QPixmap swatchPixmap(const QColor &color)
{
    QPixmap pixmap(swatchSize);
    pixmap.fill(QColor(128, 128, 128));
    QPainter painter(&pixmap);
    const QRect inside = pixmap.rect().adjusted(1, 1, -1, -1);
    painter.fillRect(inside, color.isValid() ? color : QColor(Qt::white));
    if (!color.isValid()) {
        painter.setPen(QColor(192, 0, 0));
        painter.drawLine(inside.bottomLeft(), inside.topRight());
    }
    return pixmap;
}

} // namespace

HexColorField::HexColorField(QWidget *parent)
    : QWidget(parent)
    , lineEdit(new QLineEdit(this))
    , swatch(new QLabel(this))
    , problem(new QLabel(this))
{
    lineEdit->setAccessibleName(QCoreApplication::translate("VTColorMenu", "Hexadecimal color"));
    lineEdit->setPlaceholderText(QStringLiteral("#rrggbb"));
    problem->setTextFormat(Qt::PlainText);
    // Always one line, so that the menu keeps its size when a message comes or goes.
    problem->setText(QStringLiteral(" "));
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(6, 4, 6, 2);
    layout->setSpacing(4);
    layout->addWidget(swatch, 0, 0);
    layout->addWidget(lineEdit, 0, 1);
    layout->addWidget(problem, 1, 0, 1, 2);
    setFocusPolicy(Qt::StrongFocus);
    // A click beside the field must not reach the menu below, which would close.
    setAttribute(Qt::WA_NoMousePropagation);
    connect(lineEdit, &QLineEdit::textChanged, this, &HexColorField::onTextChanged);
    setColor(Qt::black);
}

void HexColorField::setColor(const QColor &color)
{
    lineEdit->setText(color.name());
}

void HexColorField::focusInEvent(QFocusEvent *event)
{
    // Not a focus proxy: a menu gives the focus to the widget itself and leaves it there.
    lineEdit->setFocus(event->reason());
    lineEdit->selectAll();
}

void HexColorField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
        return;
    }
    // Accepted in any case: bad input stays open to be mended.
    if (color.isValid())
        Q_EMIT chosen(color);
    else
        lineEdit->selectAll();
}

void HexColorField::onTextChanged(const QString &text)
{
    const QString digits = digitsOf(text);
    const auto *const stranger =
        std::find_if(digits.begin(), digits.end(), [](QChar c) { return !isHexDigit(c); });
    QString message;
    color = QColor();
    if (digits.isEmpty())
        message = QCoreApplication::translate("VTColorMenu", "Type 3 or 6 hexadecimal digits");
    else if (stranger != digits.end())
        message = QCoreApplication::translate("VTColorMenu", "Not a hexadecimal digit: %1")
                      .arg(*stranger);
    else if (digits.size() != 3 && digits.size() != 6)
        message = QCoreApplication::translate("VTColorMenu", "3 or 6 digits are needed, not %1")
                      .arg(digits.size());
    else
        color = QColor(QLatin1Char('#') + digits);
    problem->setText(message.isEmpty() ? QStringLiteral(" ") : message);
    swatch->setPixmap(swatchPixmap(color));
    lineEdit->setAccessibleDescription(message);
}

} // namespace vtcontrolbase
