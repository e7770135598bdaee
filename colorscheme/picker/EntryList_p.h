#pragma once

#include <QMenu>
#include <QProxyStyle>

#include <functional>
#include <optional>

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
    using Told = std::function<void(QAction *)>;
    using Pointed = std::function<void(QAction *, const std::optional<QPoint> &)>;

    /// `pointed` is told of the action below the pointer, and where that is on the screen, if
    /// anywhere; `left` of the one that the pointer has left, null if that is all of them.
    EntryList(Pointed pointed, Told left, QWidget *parent);

    /// Takes the style, and asserts it against what a host's style sheet has for menus.
    void wear(QStyle *style);
    /// The pointer has come to the entry, one of this list, by the event; or left it.
    void pointTo(const QWidget *entry, const QEvent *event);
    void leave(const QWidget *entry);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QAction *actionOf(const QWidget *entry) const;

    Pointed pointed;
    Told left;
    const QAction *pressed = nullptr;
};

} // namespace vtcontrolcolorscheme
