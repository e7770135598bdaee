#pragma once

#include <QColor>
#include <QVector>
#include <QWidget>

namespace vtcontrolbase {

/// Colour swatches in rows, from which one is chosen with a click, or with the arrow keys and
/// Return, Enter or Space. Every cell that shows the marked colour bears a ring.
///
/// Up in the first row and Down in the last one, Tab and Escape are left to the parent.
class ColorSwatchGrid : public QWidget
{
    Q_OBJECT
public:
    ColorSwatchGrid(int columns, QWidget *parent);

    /// The swatches, row by row. The last row may be short.
    void setColors(const QVector<QColor> &newColors);
    /// Marks this colour and puts the cursor on its first cell; without such a cell the cursor
    /// stands on the first one. Alpha does not count.
    void setMarkedColor(const QColor &color);

    /// The cell under the cursor; -1 only while there are no colours.
    int cursor() const { return m_cursor; }
    /// Where a cell lies; null for an index without a colour.
    QRect cellRect(int index) const;
    /// True if the cell shows the marked colour.
    bool isMarked(int index) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void chosen(const QColor &color);

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int cellAt(const QPoint &position) const;
    bool moveCursor(int key);
    void setCursorCell(int index);

    QVector<QColor> colors;
    QColor marked;
    int columns;
    int m_cursor = -1;
    int pressed = -1; // a release chooses only the cell that was pressed
};

} // namespace vtcontrolbase
