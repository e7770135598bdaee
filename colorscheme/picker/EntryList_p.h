#pragma once

#include <QMenu>
#include <QProxyStyle>

#include <functional>

namespace vtcontrolcolorscheme {

/// What the list of the drop-down needs of a style, over the application's one: a menu of one
/// column however many entries it has, without frame or margins, and a scroll bar that leaves an
/// entry its place.
class EntryListStyle : public QProxyStyle
{
public:
    /// `widestBar`: what a scroll bar may take, in pixels.
    explicit EntryListStyle(int widestBar);

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;

private:
    int widestBar;
};

/// A menu that lies inside another widget: it lists its actions and triggers the one that is
/// clicked, but never opens or closes itself, and leaves wheel and keys to what it lies in.
class EntryList : public QMenu
{
public:
    using Hovered = std::function<void(QAction *)>;

    /// `hovered` is told of the action below the pointer; null if there is none.
    EntryList(Hovered hovered, QWidget *parent);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Hovered hovered;
    const QAction *pressed = nullptr;
};

} // namespace vtcontrolcolorscheme
