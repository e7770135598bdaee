#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QMenu>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QPushButton;
class QScrollArea;
class VTColorSchemeComboBox;
class VTColorSchemeGroupButton;
class VTSchemeMenuActionWidget;

namespace vtcontrolcolorscheme {
class EntryListStyle;
class TypeAhead;
class TypedLabel;
} // namespace vtcontrolcolorscheme

/// The picker's drop-down: the schemes of one group, each with its name and its strip; above them
/// the bar that leads to the other groups, below them "User define", which makes a new scheme.
///
/// It shows its own copy of the group: what happens to the store while it is open does not show.
/// A chosen scheme and a chosen group go straight into the picker.
///
/// It opens below the picker. Where it does not fit on the available area of the picker's screen,
/// it is moved the shortest way that makes it fit, and made lower or narrower than its minimum size
/// where the screen is.
///
/// The picked entry bears a check mark and is in sight at first. At most one entry is current: the
/// one that Return chooses, and the only one that is lit up. It is whichever the keyboard or the
/// pointer went to last; what merely comes to lie below a pointer at rest does not count.
///
/// Keys: the arrows, Home, End, Page Up, Page Down move among the entries, Return and Space choose,
/// Tab goes to the two bars, Escape, F4 and Alt+Up close. Letters find a name that begins with
/// them, or else one that holds them; while there are any they are shown below the entries,
/// Backspace takes back the last one and Escape all of them.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeMenu : public QMenu
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeMenu)
public:
    /// `caption` stands on the group bar. The parent is the picker below which the drop-down opens;
    /// with any other one, or none, it stays where it is and nobody hears of a choice.
    VTColorSchemeMenu(const QString &caption, const VTObjects::VOColorSchemeGroup &group,
                      QWidget *parent);
    ~VTColorSchemeMenu() override;

    /// Tells, before the drop-down opens, whether a key opens it. Then the picked entry is current
    /// from the start. No key unless told.
    void setOpenedByKey(bool byKey) { openedByKey = byKey; }
    /// Closes the drop-down of a picker that goes away, and leaves it to whoever made it.
    void letGoOfThePicker();

protected:
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void onActionClicked();
    void onGroupButtonTextChanged(const QString &text);
    void onCustomButtonClicked(bool checked);

private:
    void fill(const VTObjects::VOColorSchemeGroup &record);
    void clearList();
    QAction *actionOf(int index) const;
    VTSchemeMenuActionWidget *entryOf(int index) const;
    void placeAt(const QPoint &corner);
    int pickedEntry() const;
    void showPicked();
    void highlight(int index);
    void pointTo(int index, const std::optional<QPoint> &pointer);
    void leave(int index);
    void moveTo(int index);
    void showEntry(const QWidget *entry);
    void followPointer();
    int entriesPerPage() const;
    void find(const QString &letter);
    void takeBack();
    void stopTyping();
    void showTyped();
    void showFound(int index);
    QStringList names() const;
    void chooseCurrent();

    VTColorSchemeComboBox *comboBox; // the parent; null if that is none
    VTColorSchemeGroupButton *groupButton;
    QPushButton *customButton;
    QScrollArea *scrollArea;
    VTObjects::VOColorSchemeGroup group;

    std::unique_ptr<vtcontrolcolorscheme::EntryListStyle> listStyle;
    int current = -1;     // the entry that is lit up
    int latest = -1;      // the last one that was, from where the keys go on
    bool pointed = false; // the pointer made it current
    bool openedByKey = false;
    bool adjusting = false; // the list scrolls, and not by the pointer
    QPoint restingPointer;  // where it was when the keyboard moved or the drop-down opened
    std::unique_ptr<vtcontrolcolorscheme::TypeAhead> search;
    vtcontrolcolorscheme::TypedLabel *typed = nullptr; // only while there are letters
};
