#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QMenu>

class QLabel;
class QScrollArea;
class QVBoxLayout;
class VTColorSchemeGroupButton;

/// The group chooser: the groups of all three teams, as the store holds them when it is built, each
/// a button. It opens at the left of the group button that is its parent, and tells that button
/// what was chosen.
///
/// Where the groups would reach below the screen they can be scrolled. The arrow keys and Tab go
/// from group to group, Return and Space choose, Escape closes.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeGroupMenu : public QMenu
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeGroupMenu)
public:
    explicit VTColorSchemeGroupMenu(QWidget *parent);
    ~VTColorSchemeGroupMenu() override;

protected:
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void onButtonClicked();

private:
    void addHeader(QVBoxLayout *layout, const QString &text);
    void addGroup(QVBoxLayout *layout, const QString &text, int kind, const QVariant &name);
    void scrollWithin(int height);

    VTColorSchemeGroupButton *groupButton; // the parent; null if that is none
    QScrollArea *scrollArea = nullptr;     // only where the groups need one
};
