#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QString>

#include <memory>

class QPushButton;
class QScrollArea;
class VTColorSchemeComboBox;
class VTColorSchemeGroupButton;
class VTSchemeMenuActionWidget;

namespace vtcontrolcolorscheme {
class EntryListStyle;
}

/// The picker's drop-down: the schemes of one group, each with its name and its strip; above them
/// the bar that leads to the other groups, below them "User define", which makes a new scheme.
///
/// It shows its own copy of the group: what happens to the store while it is open does not show.
/// A chosen scheme and a chosen group go straight into the picker.
///
/// Keys: the arrows, Home, End, Page Up, Page Down and the letters of a name move among the
/// entries, Return and Space choose, Tab goes to the two bars, Escape, F4 and Alt+Up close.
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
    void highlight(int index);
    void moveTo(int index);
    void showEntry(const QWidget *entry);
    void followPointer();
    int entriesPerPage() const;
    void typeAhead(const QString &text);
    int findEntry(const QString &start, int from) const;
    void chooseCurrent();

    VTColorSchemeComboBox *comboBox; // the parent; null if that is none
    VTColorSchemeGroupButton *groupButton;
    QPushButton *customButton;
    QScrollArea *scrollArea;
    VTObjects::VOColorSchemeGroup group;

    std::unique_ptr<vtcontrolcolorscheme::EntryListStyle> listStyle;
    int current = -1; // the highlighted entry
    bool movingByKey = false;
    QString typed; // the start of a name
    QElapsedTimer sinceTyped;
};
