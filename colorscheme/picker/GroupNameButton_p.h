#pragma once

#include <QPushButton>

#include <functional>

namespace vtcontrolcolorscheme {

/// A group of the chooser. It shows its name as it is, an ampersand marks no key, and as much of
/// its beginning as has room, with the whole of it as the tool-tip. It leaves to its chooser which
/// one is lit up, as that is one at most.
class GroupNameButton : public QPushButton
{
public:
    using Told = std::function<void(GroupNameButton *)>;

    GroupNameButton(const QString &text, QWidget *parent);

    /// Who is told that the pointer moved over the button, or left it; and that the keyboard's
    /// focus came.
    void tell(Told pointed, Told left, Told focused);
    void setLit(bool lit);
    bool isLit() const { return lit; }
    /// Otherwise blanks are left to the chooser.
    void setTakesBlanks(bool takes) { takesBlanks = takes; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QRect textPlace() const;

    Told pointed;
    Told left;
    Told focused;
    bool lit = false;
    bool takesBlanks = true;
};

} // namespace vtcontrolcolorscheme
