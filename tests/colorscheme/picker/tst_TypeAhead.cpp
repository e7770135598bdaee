#include "colorscheme/picker/TypeAhead_p.h"
#include "tests/support/TestMain.h"

#include <QApplication>
#include <QtTest>

using vtcontrolcolorscheme::TypeAhead;

class tst_TypeAhead : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lettersFindAName_data();
    void lettersFindAName();
    void searchGoesOnFromTheCurrentName();
    void takenBackLettersFindWhatTheyDidBefore();
    void lettersWithoutANameStay();
    void charactersOfTwoUnitsAreTakenBackWhole();
    void nothingIsFoundAmongNoNames();
};

void tst_TypeAhead::lettersFindAName_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<int>("place");
    QTest::newRow("start") << QStringLiteral("sp") << 2;
    QTest::newRow("any letter case") << QStringLiteral("SPECTRAL") << 2;
    QTest::newRow("inside") << QStringLiteral("gn") << 1;
    QTest::newRow("start before inside") << QStringLiteral("bu") << 3;
    QTest::newRow("end") << QStringLiteral("rain") << 4;
    QTest::newRow("with a blank") << QStringLiteral("o ra") << 4;
    QTest::newRow("none") << QStringLiteral("xyz") << -1;
    QTest::newRow("no pattern") << QStringLiteral(".*") << -1;
}

void tst_TypeAhead::lettersFindAName()
{
    QFETCH(QString, letters);
    QFETCH(int, place);
    const QStringList names{QStringLiteral("GnBu?"), QStringLiteral("YlGnBu"),
                            QStringLiteral("Spectral"), QStringLiteral("BuPu"),
                            QStringLiteral("Snow to rain")};
    TypeAhead search;
    int found = -1;
    for (const QChar letter : letters)
        found = search.append(letter, names, 0);
    QCOMPARE(found, place == 1 ? 0 : place); // "gn" begins the first
    QCOMPARE(search.hasFound(), place >= 0);
    QCOMPARE(search.text(), letters);
    if (place != 1)
        return;
    search.clear();
    QCOMPARE(search.append(QStringLiteral("lgn"), names, 0), 1);
}

void tst_TypeAhead::searchGoesOnFromTheCurrentName()
{
    const QStringList names{QStringLiteral("red 1"), QStringLiteral("dark red"),
                            QStringLiteral("red 2"), QStringLiteral("red 3")};
    TypeAhead search;
    QCOMPARE(search.append(QStringLiteral("r"), names, 0), 2);
    QCOMPARE(search.append(QStringLiteral("e"), names, 2), 2); // the same name as long as it fits
    QCOMPARE(search.append(QStringLiteral("d"), names, 2), 2);
    search.clear();
    QCOMPARE(search.append(QStringLiteral("r"), names, 3), 0); // around the end
    QCOMPARE(search.append(QStringLiteral("r"), names, 0), 2); // the same letter steps on
    QCOMPARE(search.append(QStringLiteral("r"), names, 2), 3);
    QCOMPARE(search.text(), QStringLiteral("r"));
    QCOMPARE(search.append(QStringLiteral("e"), names, 3), 3);
}

void tst_TypeAhead::takenBackLettersFindWhatTheyDidBefore()
{
    const QStringList names{QStringLiteral("Grays"), QStringLiteral("Green"),
                            QStringLiteral("Greens")};
    TypeAhead search;
    QCOMPARE(search.append(QStringLiteral("g"), names, -1), 0);
    QCOMPARE(search.append(QStringLiteral("r"), names, 0), 0);
    QCOMPARE(search.append(QStringLiteral("e"), names, 0), 1);
    QCOMPARE(search.removeLast(names), 0);
    QCOMPARE(search.removeLast(names), 0);
    QCOMPARE(search.removeLast(names), -1);
    QVERIFY(search.isEmpty());
}

void tst_TypeAhead::lettersWithoutANameStay()
{
    const QStringList names{QStringLiteral("Grays"), QStringLiteral("Zebra")};
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(1000000);
    TypeAhead search;
    search.append(QStringLiteral("g"), names, -1);
    QCOMPARE(search.append(QStringLiteral("z"), names, 0), -1);
    QCOMPARE(search.text(), QStringLiteral("gz"));
    QVERIFY(search.goesOn());
    // But after a pause they are of no use
    QApplication::setKeyboardInputInterval(0);
    QVERIFY(!search.goesOn());
    QCOMPARE(search.append(QStringLiteral("z"), names, 0), 1);
    QCOMPARE(search.text(), QStringLiteral("z"));
    QCOMPARE(search.append(QStringLiteral("q"), names, 1), -1); // unless the next is of none, too
    QCOMPARE(search.text(), QStringLiteral("zq"));
    QApplication::setKeyboardInputInterval(interval);
}

void tst_TypeAhead::charactersOfTwoUnitsAreTakenBackWhole()
{
    const QString rainbow = QString::fromUtf8("\xF0\x9F\x8C\x88");
    TypeAhead search;
    QCOMPARE(search.append(rainbow, {QStringLiteral("a ") + rainbow}, -1), 0);
    search.removeLast({});
    QVERIFY(search.isEmpty());
}

void tst_TypeAhead::nothingIsFoundAmongNoNames()
{
    TypeAhead search;
    QCOMPARE(search.append(QStringLiteral("a"), {}, -1), -1);
    QCOMPARE(search.append(QStringLiteral("a"), {}, -1), -1);
    QCOMPARE(search.removeLast({}), -1);
    QVERIFY(!search.hasFound());
}

VT_TEST_MAIN(tst_TypeAhead)
#include "tst_TypeAhead.moc"
