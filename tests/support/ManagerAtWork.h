#pragma once

#include "tests/support/ManagerUser.h"
#include "tests/support/ModalDriver.h"
#include "vomap/VOColorSchemeTeam.h"

#include <QByteArray>
#include <QMap>
#include <QString>

/// A manager in which somebody works with the mouse and the keyboard alone. What opens on a command
/// is answered by the handlers that go with it.
class ManagerAtWork
{
public:
    ManagerAtWork();

    /// Clicks a button of the tool bar, by its action's name.
    void command(const char *action, const QVector<ModalDriver::Handler> &answers = {});
    /// Clicks a node of the tree.
    void show(int team, int group) { user.click(team, group); }
    /// Clicks the first of these rows and adds the others with Ctrl.
    void select(const QVector<int> &rows);
    /// Goes down the context menu of the last selected row, and chooses.
    void chooseInMenu(const QStringList &path);
    /// Double-clicks the name of a row and types another.
    void rename(int row, const QString &name);
    /// Clicks OK, or another button below.
    void finish(QPushButton *button, const QVector<ModalDriver::Handler> &answers = {});

    VTColorSchemeManager manager;
    ManagerUser user;

private:
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    int lastRow = 0;
};

/// For ModalDriver: puts this text into a dialog's name field and presses its OK.
ModalDriver::Handler enterName(const QString &name);

/// A scheme of so many colours, so that schemes differ in more than their names.
VTObjects::VOColorScheme schemeOf(const QString &name, unsigned int level);
/// The records of the three teams, every field of them, as this process has them.
QByteArray dumpOfRecords();
QByteArray dumpOfRecords(const VTObjects::VOColorSchemeTeam &defaults,
                         const VTObjects::VOColorSchemeTeam &customs,
                         const VTObjects::VOColorSchemeTeam &favorites);
/// The same as a process reads them that starts now; empty if it cannot.
QByteArray dumpByAnotherProcess(const QString &storeDirectory);
/// All files at or below a folder, hidden ones included, by their paths.
QMap<QString, QByteArray> filesBelow(const QString &folder);
