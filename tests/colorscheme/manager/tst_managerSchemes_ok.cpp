#include "tests/support/ManagerTest.h"
#include "tests/support/ManagerUser.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"

#include <QMessageBox>
#include <QtTest>

using VTObjects::VOColorSchemeManager;

/// The manager's commands on schemes, and OK.
class tst_managerSchemes_ok : public ManagerSchemesTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void informationSwitchesOk();
    void okWithoutChangesClosesAtOnce();
    void okAsksAfterAnyEditInTheTable_data();
    void okAsksAfterAnyEditInTheTable();
    void okAsksAfterADoubleClickThatWasAccepted();
    void okAsksAndSaves();
    void okAndNoClosesWithoutSaving();
    void aTeamThatNobodyChangedIsWrittenBackToo();
};

void tst_managerSchemes_ok::informationSwitchesOk()
{
    open();
    Q_EMIT user->table->information(false);
    QVERIFY(!user->ok->isEnabled());
    Q_EMIT user->table->information(true);
    QVERIFY(user->ok->isEnabled());
}

void tst_managerSchemes_ok::okWithoutChangesClosesAtOnce()
{
    open();
    user->click(1, 0);
    user->click(2, 0);
    manager->setResult(QDialog::Rejected);
    ModalDriver driver;
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
    QCOMPARE(manager->result(), int(QDialog::Accepted));
}

void tst_managerSchemes_ok::okAsksAfterAnyEditInTheTable_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("asks");
    QTest::newRow("name") << 2 << int(Qt::EditRole) << true;
    QTest::newRow("author") << 3 << int(Qt::EditRole) << true;
    QTest::newRow("description") << 4 << int(Qt::EditRole) << true;
    // Deliberate: also where nothing is stored.
    QTest::newRow("number") << 0 << int(Qt::EditRole) << true;
    QTest::newRow("preview") << 1 << int(Qt::EditRole) << true;
    QTest::newRow("nowhere") << -1 << int(Qt::EditRole) << true;
    QTest::newRow("another role") << 2 << int(Qt::DisplayRole) << false;
}

void tst_managerSchemes_ok::okAsksAfterAnyEditInTheTable()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(bool, asks);
    open();
    user->click(1, 0);
    QCOMPARE(user->model->setData(user->model->index(0, column), QStringLiteral("x"), role), asks);
    ModalDriver driver;
    if (asks)
        driver.next(pressText(QStringLiteral("Cancel")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!manager->isVisible());
}

void tst_managerSchemes_ok::okAsksAfterADoubleClickThatWasAccepted()
{
    for (const bool accepted : {false, true}) {
        open();
        user->click(1, 0);
        ModalDriver driver;
        driver.next(pressNamed(accepted ? QStringLiteral("pushButton_ok")
                                        : QStringLiteral("pushButton_cancel")));
        if (accepted)
            driver.next(pressText(QStringLiteral("Cancel")));
        user->table->onDoubleClicked(user->model->index(1, 1));
        QTest::mouseClick(user->ok, Qt::LeftButton);
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(!manager->isVisible());
    }
}

void tst_managerSchemes_ok::okAsksAndSaves()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parent(), manager.get());
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->windowTitle(), QStringLiteral("Color schemes"));
        QCOMPARE(box->text(), QStringLiteral("The color schemes have been modified.\nDo you need "
                                             "to save them?"));
        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->button(QMessageBox::Yes)->text(), QStringLiteral("Yes"));
        QCOMPARE(box->button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(manager->result(), int(QDialog::Accepted));
    auto *records = VOColorSchemeManager::instance();
    QCOMPARE(schemeNames(records->customTeam.groups[0]).first(), QStringLiteral("edited"));
    // On the disk too: a store read anew shows it.
    records->customTeam.groups.clear();
    QVERIFY(records->load());
    QCOMPARE(schemeNames(records->customTeam.groups.at(0)).first(), QStringLiteral("edited"));
}

void tst_managerSchemes_ok::okAndNoClosesWithoutSaving()
{
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    for (const bool escape : {false, true}) {
        ModalDriver driver;
        driver.next([&](QWidget *box) {
            if (escape)
                QTest::keyClick(box, Qt::Key_Escape);
            else
                pressText(QStringLiteral("Cancel"))(box);
        });
        manager->show();
        manager->setResult(QDialog::Rejected);
        QVERIFY(QMetaObject::invokeMethod(manager.get(), "onOk"));
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        QVERIFY(!manager->isVisible());
        QCOMPARE(manager->result(), int(QDialog::Accepted));
        QCOMPARE(schemeNames(VOColorSchemeManager::instance()->customTeam.groups[0]).first(),
                 QStringLiteral("a"));
    }
}

void tst_managerSchemes_ok::aTeamThatNobodyChangedIsWrittenBackToo()
{
    // What a host changes in the store meanwhile gives way to the manager's copies.
    open();
    user->click(1, 0);
    user->model->setData(user->model->index(0, 2), QStringLiteral("edited"));
    VOColorSchemeManager::instance()->favoriteTeam.groups.clear();
    ModalDriver driver;
    driver.next(pressText(QStringLiteral("Yes")));
    QTest::mouseClick(user->ok, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(VOColorSchemeManager::instance()->favoriteTeam.groups.size(), std::size_t(2));
}

VT_TEST_MAIN(tst_managerSchemes_ok)
#include "tst_managerSchemes_ok.moc"
