#pragma once

#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTColorSchemeView.h"
#include "tests/support/ModalDriver.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

/// Somebody who sits in front of a manager: works its tree, table and tool bar.
class ManagerUser
{
public:
    explicit ManagerUser(VTColorSchemeManager &manager);

    /// A team's node, or that of a group below it.
    QModelIndex node(int team, int group = -1) const;
    /// Clicks that node with the mouse.
    void click(int team, int group = -1);
    /// The texts of a team's groups in the tree.
    QStringList groups(int team) const;
    /// Presses a button of the tool bar, by its action's name.
    void command(const char *action);
    /// Selects exactly these rows of the table.
    void select(const QVector<int> &rows);
    /// Right-clicks a row of the table and answers with the menu; null if there is none.
    QMenu *contextMenu(int row);
    /// The names in the table, from the top.
    QStringList names() const;

    QTreeView *tree;
    VTColorSchemeView *table;
    VTColorSchemeModel *model;
    QPushButton *ok;
    QPushButton *cancel;

private:
    VTColorSchemeManager &manager;
};

/// Adds these rows of a table to its selection.
void selectRows(VTColorSchemeView &view, const QVector<int> &rows);

/// The manager's own copy of a team, which nothing outside sees before OK.
const VTObjects::VOColorSchemeTeam &workingCopy(const VTColorSchemeManager &manager, int team);

/// For ModalDriver: presses the button of this name in a dialog.
ModalDriver::Handler pressNamed(const QString &name);
/// For ModalDriver: presses the button of this text in a message box.
ModalDriver::Handler pressText(const QString &text);
/// For ModalDriver: presses this button of a message box.
ModalDriver::Handler pressStandard(QMessageBox::StandardButton button);
/// For ModalDriver: sees a message box with one button, and closes it.
ModalDriver::Handler expectBox(const QString &title, const QString &text,
                               QMessageBox::StandardButton button);
/// For ModalDriver: chooses these files, or the folder, in a file dialog.
ModalDriver::Handler choose(const QStringList &paths);
