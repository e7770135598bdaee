#include "colorscheme/picker/popupPlace_p.h"
#include "tests/support/TestMain.h"

#include <QtTest>

using vtcontrolcolorscheme::placeWithin;

class tst_popupPlace : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void popupIsMovedTheShortestWayThatMakesItFit_data();
    void popupIsMovedTheShortestWayThatMakesItFit();
};

void tst_popupPlace::popupIsMovedTheShortestWayThatMakesItFit_data()
{
    QTest::addColumn<QRect>("wanted");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QRect>("place");
    const QRect first(0, 30, 1366, 708); // below and above a panel
    const QRect second(1366, 0, 1920, 1080);
    const QRect leftOne(-1920, -200, 1920, 1080);
    const QSize size(160, 350);
    const auto row = [&size](const char *name, QPoint wanted, const QRect &screen, QPoint place) {
        QTest::newRow(name) << QRect(wanted, size) << screen << QRect(place, size);
    };
    row("fits", {100, 200}, first, {100, 200});
    row("just fits", {1206, 388}, first, {1206, 388});
    row("left edge", {-93, 200}, first, {0, 200});
    row("right edge", {1207, 200}, first, {1206, 200});
    row("top edge", {100, 29}, first, {100, 30});
    row("bottom edge", {100, 389}, first, {100, 388});
    row("corner", {5000, 5000}, first, {1206, 388});
    row("fits on the second screen", {1366, 0}, second, {1366, 0});
    row("left edge of the second screen", {1300, 10}, second, {1366, 10});
    row("right edge of the second screen", {3200, 900}, second, {3126, 730});
    row("screen at the left", {-1950, -250}, leftOne, {-1920, -200});
    row("right edge of the screen at the left", {-100, 0}, leftOne, {-160, 0});
    QTest::newRow("higher than the screen")
        << QRect(100, 200, 160, 800) << first << QRect(100, 30, 160, 708);
    QTest::newRow("wider than the screen")
        << QRect(100, 200, 1500, 350) << first << QRect(0, 200, 1366, 350);
    QTest::newRow("as large as the screen") << QRect(7, 7, 1366, 708) << first << first;
}

void tst_popupPlace::popupIsMovedTheShortestWayThatMakesItFit()
{
    QFETCH(QRect, wanted);
    QFETCH(QRect, available);
    QFETCH(QRect, place);
    QCOMPARE(placeWithin(wanted, available), place);
    QVERIFY(available.contains(place));
}

VT_TEST_MAIN(tst_popupPlace)
#include "tst_popupPlace.moc"
