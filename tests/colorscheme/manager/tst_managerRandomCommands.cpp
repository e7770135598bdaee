#include "tests/support/RandomManagerUser.h"

#include "tests/support/TestMain.h"

class tst_managerRandomCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void treeTableAndWorkingCopiesAgree_data();
    void treeTableAndWorkingCopiesAgree();
};

void tst_managerRandomCommands::treeTableAndWorkingCopiesAgree_data()
{
    QTest::addColumn<int>("firstSeed");
    QTest::addColumn<int>("sequences");
    QTest::addColumn<int>("steps");
    QTest::newRow("many short ones") << 1 << 2000 << 6;
    QTest::newRow("some long ones") << 100000 << 20 << 150;
}

void tst_managerRandomCommands::treeTableAndWorkingCopiesAgree()
{
    QFETCH(int, firstSeed);
    QFETCH(int, sequences);
    QFETCH(int, steps);
    RandomManagerUser user;
    for (int seed = firstSeed; seed < firstSeed + sequences; ++seed) {
        user.play(seed, steps);
        if (QTest::currentTestFailed()) {
            qInfo("%s", qPrintable(user.told()));
            return;
        }
    }
}

VT_TEST_MAIN(tst_managerRandomCommands)
#include "tst_managerRandomCommands.moc"
