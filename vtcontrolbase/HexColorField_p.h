#pragma once

#include <QColor>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace vtcontrolbase {

/// A field for a colour in hexadecimal: "#rrggbb", or "#rgb" with every digit doubled, in any
/// letter case and with or without "#". A swatch beside it shows the colour, a line below it says
/// what is wrong with anything else.
class HexColorField : public QWidget
{
    Q_OBJECT
public:
    explicit HexColorField(QWidget *parent);

    /// Shows the colour; its alpha is dropped.
    void setColor(const QColor &color);

Q_SIGNALS:
    /// Return or Enter was pressed on a good colour.
    void chosen(const QColor &color);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void onTextChanged(const QString &text);

    QLineEdit *lineEdit = nullptr; // owned by this widget, as are the two others
    QLabel *swatch = nullptr;
    QLabel *problem = nullptr;
    QColor color; // invalid while the text is bad
};

} // namespace vtcontrolbase
