#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QMenu>
#include <QPoint>
#include <QStringList>
#include <QVector>

#include <memory>

class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;
class VTColorSchemeGroupButton;

namespace vtcontrolcolorscheme {
class GroupNameButton;
class TypeAhead;
class TypedLabel;
} // namespace vtcontrolcolorscheme

/// The group chooser: the groups of all three teams, as the store holds them when it is built, each
/// a button. It opens at the left of the group button that is its parent, and tells that button
/// what was chosen.
///
/// Where it does not fit on the available area of the screen it is moved the shortest way that
/// makes it fit, and its groups can be scrolled where the screen is not high enough for them.
///
/// At most one group is current, the one that Return and Space choose and the only one that is lit
/// up: whichever the keyboard or the pointer went to last. The arrow keys, Home, End, Page Up, Page
/// Down and Tab go from group to group. Letters find a group whose name begins with them, or else
/// holds them; they are shown instead of the title, Backspace takes back the last one and Escape
/// all of them. Escape closes.
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
    void setCurrent(vtcontrolcolorscheme::GroupNameButton *button);
    void pointTo(vtcontrolcolorscheme::GroupNameButton *button);
    void leave(vtcontrolcolorscheme::GroupNameButton *button);
    void moveTo(int index);
    void showFound(int index);
    int currentIndex() const;
    int groupsPerPage() const;
    void find(const QString &letter);
    void stopTyping();
    void showTyped();
    QStringList names() const;

    VTColorSchemeGroupButton *groupButton; // the parent; null if that is none
    QLabel *title;
    QScrollArea *scrollArea = nullptr;                       // only where the groups need one
    QVector<vtcontrolcolorscheme::GroupNameButton *> groups; // from top to bottom
    vtcontrolcolorscheme::GroupNameButton *current = nullptr;
    QPoint restingPointer; // where it was when the keyboard moved or the chooser opened
    std::unique_ptr<vtcontrolcolorscheme::TypeAhead> search;
    vtcontrolcolorscheme::TypedLabel *typed = nullptr; // only while there are letters
};
