#pragma once

#include "tests/support/ManagerUser.h"
#include "tests/support/TestStore.h"

#include <QObject>

#include <memory>

/// What the tests of the manager share: a store for each, and a manager with somebody in front of
/// it once it is open.
class ManagerTest : public QObject
{
    Q_OBJECT

protected:
    void setUp();
    void tearDown();
    /// A new manager, shown and active.
    void open();
    /// The schemes of a group in the manager's own copy of a team.
    QStringList copyNames(int team, int group) const;

    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
};

/// With two groups in each team: one that is only half of a pair of equal names, one on its own.
class ManagerSchemesTest : public ManagerTest
{
    Q_OBJECT

protected:
    void setUp();
    /// A scheme file in the test's folder.
    QString writeFile(const QString &file, const QString &schemeName);
};

/// With groups for every place of the tree, one of them built in and without a place there.
class ManagerTreeTest : public ManagerTest
{
    Q_OBJECT

protected:
    void setUp();
};

/// With three custom groups, so that there is one above and one below another.
class ManagerGroupsTest : public ManagerTest
{
    Q_OBJECT

protected:
    void setUp();
    /// Copies the selected schemes by the table's context menu.
    void copyTo(int team, const QString &group);
};
