#include "apps/mapviewer/layers/AsciiGridReader.h"
#include "tests/support/TestMain.h"

#include <QtTest>

#include <cmath>

using namespace mapviewer;

class tst_AsciiGridReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsCellsFromTheNorthWest();
    void readsEveryFormOfHeader_data();
    void readsEveryFormOfHeader();
    void centerMeansHalfACellFurther();
    void noDataBecomesNaN();
    void withoutTheKeyNoDataIsMinus9999();
    void valuesMayBeWrappedAnywhere();
    void refusesWithTheLine_data();
    void refusesWithTheLine();
    void messageNamesFileAndLine();
    void messageWithoutLineNamesTheFile();
    void valueAtCoversWholeCells();
};

static const char *const Good = "ncols 3\nnrows 2\nxllcorner 10\nyllcorner 20\ncellsize 5\n"
                                "NODATA_value -1\n1 2 3\n4 -1 6.5\n";

void tst_AsciiGridReader::readsCellsFromTheNorthWest()
{
    FileProblem problem;
    const auto grid = readAsciiGrid(Good, &problem);
    QVERIFY2(grid, qPrintable(problem.text));
    QCOMPARE(grid->columns, 3);
    QCOMPARE(grid->rows, 2);
    QCOMPARE(grid->extent(), QRectF(10, 20, 15, 10));
    QCOMPARE(grid->at(0, 0), 1.0F);
    QCOMPARE(grid->at(0, 2), 3.0F);
    QCOMPARE(grid->at(1, 2), 6.5F);
    QCOMPARE(grid->range().first, 1.0F);
    QCOMPARE(grid->range().second, 6.5F);
}

void tst_AsciiGridReader::readsEveryFormOfHeader_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("other order") << QByteArray(
        "cellsize 5\nyllcorner 20\nNODATA_value -1\nxllcorner 10\nnrows 1\nncols 2\n");
    QTest::newRow("capitals") << QByteArray(
        "NCOLS 2\nNROWS 1\nXLLCORNER 10\nYLLCORNER 20\nCELLSIZE 5\nnodata_VALUE -1\n");
    QTest::newRow("tabs, blanks and carriage returns") << QByteArray(
        "ncols\t2\r\n  nrows   1\r\nxllcorner 10\r\nyllcorner 20\r\n\r\ncellsize 5\r\n");
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBF"
                      "ncols 2\nnrows 1\nxllcorner 10\nyllcorner 20\ncellsize 5\n");
    QTest::newRow("signs and exponents")
        << QByteArray("ncols +2\nnrows 1\nxllcorner 1e1\nyllcorner +2.0E+1\ncellsize 5\n");
}

void tst_AsciiGridReader::readsEveryFormOfHeader()
{
    QFETCH(QByteArray, header);
    FileProblem problem;
    const auto grid = readAsciiGrid(header + "7 8\n", &problem);
    QVERIFY2(grid, qPrintable(problem.text));
    QCOMPARE(grid->extent(), QRectF(10, 20, 10, 5));
    QCOMPARE(grid->at(0, 1), 8.0F);
}

void tst_AsciiGridReader::centerMeansHalfACellFurther()
{
    FileProblem problem;
    const auto grid =
        readAsciiGrid("ncols 1\nnrows 1\nxllcenter 10\nyllcenter 20\ncellsize 4\n5\n", &problem);
    QVERIFY2(grid, qPrintable(problem.text));
    QCOMPARE(grid->extent(), QRectF(8, 18, 4, 4));
}

void tst_AsciiGridReader::noDataBecomesNaN()
{
    FileProblem problem;
    const auto grid = readAsciiGrid(Good, &problem);
    QVERIFY(grid);
    QVERIFY(std::isnan(grid->at(1, 1)));
    QVERIFY(!std::isnan(grid->at(1, 0)));
}

void tst_AsciiGridReader::withoutTheKeyNoDataIsMinus9999()
{
    FileProblem problem;
    const auto grid = readAsciiGrid(
        "ncols 2\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\n-9999 -1\n", &problem);
    QVERIFY(grid);
    QVERIFY(std::isnan(grid->at(0, 0)));
    QCOMPARE(grid->at(0, 1), -1.0F);
}

void tst_AsciiGridReader::valuesMayBeWrappedAnywhere()
{
    FileProblem problem;
    const auto grid = readAsciiGrid(
        "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1\n2 3\n\n4", &problem);
    QVERIFY2(grid, qPrintable(problem.text));
    QCOMPARE(grid->at(1, 0), 3.0F);
    QCOMPARE(grid->at(1, 1), 4.0F);
}

void tst_AsciiGridReader::refusesWithTheLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("part"); // of the message

    const QByteArray end = "1 2 3\n4 5 6\n";
    const QByteArray size = "ncols 3\nnrows 2\n";
    const QByteArray place = "xllcorner 10\nyllcorner 20\n";
    QTest::newRow("empty file") << QByteArray() << 1 << "lacks \"ncols\"";
    QTest::newRow("no header") << QByteArray("\n1 2 3\n") << 2 << "lacks \"ncols\"";
    QTest::newRow("unknown key") << size + "dx 3\n" + end << 3 << "\"dx\" is no key";
    QTest::newRow("key twice") << size + "NROWS 2\n" + end << 3 << "\"NROWS\" stands here a second";
    QTest::newRow("key without value") << size + "cellsize\n5\n"
                                       << 3 << "\"cellsize\" has no value";
    QTest::newRow("key at the end") << size + "cellsize" << 3 << "\"cellsize\" has no value";
    QTest::newRow("key with a text") << QByteArray("ncols 3\nnrows two\n") << 2 << "\"two\"";
    QTest::newRow("key with two values") << QByteArray("ncols 3 4\nnrows 2\n") << 1 << "lacks";
    QTest::newRow("nrows missing")
        << "ncols 3\n" + place + "cellsize 5\n" + end << 5 << "lacks \"nrows\"";
    QTest::newRow("cellsize missing") << size + place + end << 5 << "lacks \"cellsize\"";
    QTest::newRow("x missing") << size + "yllcorner 2\ncellsize 5\n" + end << 5
                               << "lacks \"xllcorner\"";
    QTest::newRow("y missing") << size + "xllcorner 2\ncellsize 5\n" + end << 5
                               << "lacks \"yllcorner\"";
    QTest::newRow("corner and center")
        << size + place + "xllcenter 12\ncellsize 5\n" + end << 5 << "exclude one another";
    QTest::newRow("mixed axes") << size + "xllcorner 10\nyllcenter 20\ncellsize 5\n" + end << 4
                                << "One axis";
    QTest::newRow("half a column") << "ncols 2.5\nnrows 2\n" + place + "cellsize 5\n" + end << 1
                                   << "\"ncols\" must be a whole number";
    QTest::newRow("no row") << "ncols 3\nnrows 0\n" + place + "cellsize 5\n" + end << 2
                            << "\"nrows\" must be a whole number";
    QTest::newRow("too many cells")
        << "nrows 10000\nncols 10000\n" + place + "cellsize 5\n" + end << 2 << "100000000 cells";
    QTest::newRow("cell without size")
        << size + place + "cellsize 0\n" + end << 5 << "greater than 0";
    QTest::newRow("infinite size") << size + place + "cellsize inf\n" + end << 5 << "not a number";
    QTest::newRow("a word among the values") << size + place + "cellsize 5\n1 2 3\n4 abc 6\n"
                                             << 7
                                             << "\"abc\" is not a number (row 2, "
                                                "column 2)";
    QTest::newRow("a decimal comma") << size + place + "cellsize 5\n1,5 2 3\n4 5 6\n"
                                     << 6 << "\"1,5\" is not a number (row 1, column 1)";
    QTest::newRow("NaN among the values") << size + place + "cellsize 5\n1 nan 3\n4 5 6\n"
                                          << 6 << "\"nan\" is not a number";
    QTest::newRow("two signs") << size + place + "cellsize 5\n1 +-2 3\n4 5 6\n" << 6 << "\"+-2\"";
    QTest::newRow("too large a value") << size + place + "cellsize 5\n1 1e39 3\n4 5 6\n"
                                       << 6 << "too large";
    QTest::newRow("one value too few") << size + place + "cellsize 5\n1 2 3\n4 5\n\n"
                                       << 7 << "after 5 of the 6 values";
    QTest::newRow("one value too many") << size + place + "cellsize 5\n1 2 3\n4 5 6\n7\n"
                                        << 8 << "more values than the 6";
}

void tst_AsciiGridReader::refusesWithTheLine()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(QString, part);
    FileProblem problem;
    QVERIFY(!readAsciiGrid(text, &problem));
    QCOMPARE(problem.line, line);
    QVERIFY2(problem.text.contains(part), qPrintable(problem.text));
}

void tst_AsciiGridReader::messageNamesFileAndLine()
{
    FileProblem problem;
    QVERIFY(!readAsciiGrid("ncols 3\nnrows x\n", &problem));
    QCOMPARE(problem.message(QStringLiteral("a.asc")),
             QStringLiteral("a.asc, line 2: The value \"x\" of \"nrows\" is not a number."));
}

void tst_AsciiGridReader::messageWithoutLineNamesTheFile()
{
    const FileProblem problem{0, QStringLiteral("Permission denied")};
    QCOMPARE(problem.message(QStringLiteral("a.asc")), QStringLiteral("a.asc: Permission denied"));
}

void tst_AsciiGridReader::valueAtCoversWholeCells()
{
    FileProblem problem;
    const auto grid = readAsciiGrid(Good, &problem);
    QVERIFY(grid);
    QCOMPARE(grid->valueAt({10.0, 29.9}), 1.0F);
    QCOMPARE(grid->valueAt({14.9, 25.0}), 1.0F);
    QCOMPARE(grid->valueAt({15.0, 25.0}), 2.0F);
    QCOMPARE(grid->valueAt({10.0, 20.0}), 4.0F);
    QVERIFY(std::isnan(grid->valueAt({9.9, 25.0})));
    QVERIFY(std::isnan(grid->valueAt({25.0, 25.0})));
    QVERIFY(std::isnan(grid->valueAt({12.0, 30.0})));
    QVERIFY(std::isnan(grid->valueAt({12.0, 19.9})));
}

VT_TEST_APPLESS_MAIN(tst_AsciiGridReader)
#include "tst_AsciiGridReader.moc"
