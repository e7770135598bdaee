#pragma once

#include "tests/support/ManagerUser.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/TestStore.h"

#include <QRandomGenerator>
#include <QStringList>
#include <QVector>

#include <memory>

/// A group and a team as far as names tell them.
struct NameGroup
{
    QString name;
    QStringList schemes;
};
using NameTeam = QVector<NameGroup>;

/// Plays random commands on the manager, and beside it on plain lists of names that stand for what
/// the manager should then hold. Built-in groups stand in another order in the store than in the
/// tree, and one of them is not shown at all.
class RandomManagerUser
{
public:
    RandomManagerUser();
    ~RandomManagerUser();

    /// Opens a manager, plays so many commands and ends with OK or Cancel. The running test fails
    /// at the first difference.
    void play(int seed, int steps);
    /// What has been played.
    QString told() const { return history; }

private:
    int below(int bound) { return int(random.bounded(bound)); }
    bool oneIn(int chances) { return below(chances) == 0; }

    void step();
    void clickNode();
    void moveCurrent();
    void addGroup();
    void deleteGroup();
    void copySchemes();
    void addScheme();
    void editScheme();
    void deleteSchemes();
    void favorSchemes();
    void importSchemes();
    void exportSchemes();
    void renameInPlace();
    void selectSome();
    void finish();

    void show(const QModelIndex &index);
    void writeBack();
    void check();

    TestStore store;
    StoreFixture storeInMemory; // saves are waited for thousands of times
    std::unique_ptr<VTColorSchemeManager> manager;
    std::unique_ptr<ManagerUser> user;
    std::unique_ptr<ModalDriver> answers;
    QRandomGenerator random;
    QString history;

    NameTeam teams[3];
    QStringList table;
    int kind = 0;
    int shown = -1;
    bool modified = false;
    int fresh = 0; // for names that nobody else has
};
