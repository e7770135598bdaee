#include "apps/mapviewer/layers/NumberText.h"

#include "tests/support/TestMain.h"

#include <QtTest>

#include <algorithm>

using namespace mapviewer;

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreShort_data();
    void numbersAreShort();
    void labelsOfOneLegendAreNearEnough();
    void stepsAreRound_data();
    void stepsAreRound();
    void stepsBetweenHugeNumbersEnd();
};

static const QString minus(QChar(0x2212));

void tst_NumberText::numbersAreShort_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero") << -0.0 << "0";
    QTest::newRow("whole") << 12.0 << "12";
    QTest::newRow("thousands") << 1234567.0 << "1,234,567";
    QTest::newRow("negative") << -1204.4 << minus + "1,204";
    QTest::newRow("four digits") << 3.14159 << "3.142";
    QTest::newRow("no needless zeros") << 2.50 << "2.5";
    QTest::newRow("small") << 0.00123456 << "0.001235";
    QTest::newRow("tiny") << 1e-12 << "0";
}

void tst_NumberText::numbersAreShort()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(numberText(value), text);
}

void tst_NumberText::labelsOfOneLegendAreNearEnough()
{
    QCOMPARE(numberTexts({1.0, 2.4, 9.6}), QStringList({"1", "2.4", "9.6"}));
    QCOMPARE(numberTexts({100.2, 171.4, 350.0}), QStringList({"100", "171", "350"}));
    QCOMPARE(numberTexts({7.34}), QStringList({"7"}));
    QCOMPARE(numberTexts({1.0, 1.25, 1.5}), QStringList({"1", "1.25", "1.5"}));
    // The same number twice cannot be told apart and does not ask for more digits.
    QCOMPARE(numberTexts({3.0, 3.0, 4.0}), QStringList({"3", "3", "4"}));
    QCOMPARE(numberTexts({}), QStringList());
}

void tst_NumberText::stepsAreRound_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QVector<double>>("steps");
    QTest::newRow("tens") << 3.0 << 42.0 << QVector<double>{10, 20, 30, 40};
    QTest::newRow("across zero") << -1437.0 << 2205.0 << QVector<double>{-1000, 0, 1000, 2000};
    QTest::newRow("ends count") << 0.0 << 1.0 << QVector<double>{0, 0.2, 0.4, 0.6, 0.8, 1.0};
    QTest::newRow("empty range") << 1.0 << 1.0 << QVector<double>();
}

void tst_NumberText::stepsAreRound()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QVector<double>, steps);
    const QVector<double> found = tickValues(minimum, maximum, 6);
    QCOMPARE(found.size(), steps.size());
    for (int i = 0; i < steps.size(); ++i)
        QVERIFY(qAbs(found.at(i) - steps.at(i)) < 1e-9);
}

void tst_NumberText::stepsBetweenHugeNumbersEnd()
{
    // Neighbours at this size are 2 apart, so adding 1 to the lower one leaves it as it is.
    const double huge = 1e16;
    QVERIFY(huge + 1.0 <= huge);
    const QVector<double> found = tickValues(huge, huge + 4.0, 6);
    QVERIFY(found.size() <= 6);
    QVERIFY(found.contains(huge + 2.0));
    QVERIFY(std::is_sorted(found.begin(), found.end()));
    QVERIFY(found.first() >= huge && found.last() <= huge + 4.0);
}

VT_TEST_APPLESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"
