#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QToolButton>

/// The bar at the top of the picker's drop-down. It names the group that is listed, in full by its
/// tool-tip where the name is cut, and a click opens the group chooser.
///
/// Once the user has chosen a group, two dynamic properties tell which: "parent" is the team's kind
/// as an int (0 default, 1 custom, 2 favourites), and "name" is a default group's key name as a
/// QString; other groups have none, their name is the button's text.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeGroupButton : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeGroupButton)
public:
    explicit VTColorSchemeGroupButton(QWidget *parent);
    ~VTColorSchemeGroupButton() override;

Q_SIGNALS:
    /// The user chose a group, perhaps the same one again. Text and properties are set already.
    void textChanged(const QString &text);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void showMenu();

private:
    int textRoom() const;
};
