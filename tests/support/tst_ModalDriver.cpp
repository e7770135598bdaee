#include "tests/support/ModalDriver.h"

#include "tests/support/TestMain.h"

#include <QDialog>

/// Windows are answered in their order, and what nobody answers is closed.
class tst_ModalDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsAreAnsweredInTheirOrder_data();
    void windowsAreAnsweredInTheirOrder();
    void aWindowThatNobodyWaitsForIsClosed();
    void aWindowThatStaysOpenIsClosed();
    void aWindowThatNeverComesIsMissed();
    void otherWindowsAreAnsweredOnRequestOnly();
    void anApplicationThatShowsNothingIsEnded();
};

void tst_ModalDriver::windowsAreAnsweredInTheirOrder_data()
{
    QTest::addColumn<int>("pace");
    QTest::newRow("unhurried") << int(ModalDriver::Unhurried);
    QTest::newRow("at once") << int(ModalDriver::AtOnce);
}

void tst_ModalDriver::windowsAreAnsweredInTheirOrder()
{
    QFETCH(int, pace);
    ModalDriver driver(static_cast<ModalDriver::Pace>(pace));
    QStringList seen;
    QDialog outer;
    outer.setWindowTitle("outer");
    QDialog inner;
    inner.setWindowTitle("inner");
    driver.next([&](QWidget *window) {
        seen.append(window->windowTitle());
        inner.exec();
        outer.done(7);
    });
    driver.next([&](QWidget *window) {
        seen.append(window->windowTitle());
        inner.accept();
    });
    QVERIFY(!driver.allSeen());
    QCOMPARE(outer.exec(), 7);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(seen, (QStringList{"outer", "inner"}));
}

void tst_ModalDriver::aWindowThatNobodyWaitsForIsClosed()
{
    ModalDriver driver;
    driver.setPatience(10);
    QDialog dialog;
    dialog.setWindowTitle("unexpected");
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(!driver.allSeen());
    QCOMPARE(driver.problem(), QStringLiteral("closed by force: QDialog \"unexpected\""));
}

void tst_ModalDriver::aWindowThatStaysOpenIsClosed()
{
    ModalDriver driver;
    driver.setPatience(10);
    bool ran = false;
    driver.next([&](QWidget *) { ran = true; });
    QDialog dialog;
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(ran);
    QVERIFY(!driver.allSeen());
}

void tst_ModalDriver::aWindowThatNeverComesIsMissed()
{
    ModalDriver driver;
    driver.next([](QWidget *) {});
    QCoreApplication::processEvents();
    QVERIFY(!driver.allSeen());
    QCOMPARE(driver.problem(), QStringLiteral("1 expected windows did not appear"));
}

void tst_ModalDriver::otherWindowsAreAnsweredOnRequestOnly()
{
    QWidget window;
    window.show();
    ModalDriver modal;
    modal.next([](QWidget *) {});
    ModalDriver any(ModalDriver::AtOnce, ModalDriver::AnyWindow);
    any.next([](QWidget *one) { one->close(); });
    QTRY_VERIFY(!window.isVisible());
    QVERIFY2(any.allSeen(), qPrintable(any.problem()));
    QVERIFY(!modal.allSeen());
}

void tst_ModalDriver::anApplicationThatShowsNothingIsEnded()
{
    ModalDriver driver(ModalDriver::Unhurried, ModalDriver::AnyWindow);
    driver.setPatience(10);
    driver.next([](QWidget *) {});
    QCOMPARE(QCoreApplication::exec(), -1);
    QCOMPARE(driver.problem(), QStringLiteral("1 expected windows did not appear"));
}

VT_TEST_MAIN(tst_ModalDriver)
#include "tst_ModalDriver.moc"
