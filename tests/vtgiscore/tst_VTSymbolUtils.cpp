#include "tests/support/TestMain.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

class tst_VTSymbolUtils : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCheckerIsAlignedToTheRectanglesCorner();
    void theCheckerStaysInsideTheRectangle();
    void theCheckerIsLightAndHasTwoTones();
    void anEmptyRectangleDrawsNothing();
    void aSwatchIsExactInsideItsBorder();
    void aSwatchShowsTheCheckerThroughATranslucentColor();
    void anEmptySwatchIsNull();
};

namespace {

QImage checker(QSize size, QRect rect)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    VTSymbolUtils::drawStippledBackground(&painter, rect);
    return image;
}

} // namespace

void tst_VTSymbolUtils::theCheckerIsAlignedToTheRectanglesCorner()
{
    const QRect rect(3, 4, 23, 17);
    const QImage atOffset = checker(QSize(40, 30), rect);
    const QImage atOrigin = checker(rect.size(), QRect(QPoint(0, 0), rect.size()));
    QCOMPARE(atOffset.copy(rect), atOrigin);
}

void tst_VTSymbolUtils::theCheckerStaysInsideTheRectangle()
{
    const QRect rect(3, 4, 23, 17);
    const QImage image = checker(QSize(40, 30), rect);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, y) == QColor(Qt::magenta), !rect.contains(x, y));
    }
}

void tst_VTSymbolUtils::theCheckerIsLightAndHasTwoTones()
{
    const QImage image = checker(QSize(20, 20), QRect(0, 0, 20, 20));
    const QColor first = image.pixelColor(0, 0);
    const QColor second = image.pixelColor(5, 0);
    QVERIFY(first != second);
    QVERIFY(first.lightness() > 200 && second.lightness() > 200);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x)
            QCOMPARE(image.pixelColor(x, y), (x / 5 + y / 5) % 2 == 0 ? first : second);
    }
}

void tst_VTSymbolUtils::anEmptyRectangleDrawsNothing()
{
    const QImage image = checker(QSize(4, 4), QRect(1, 1, 0, 2));
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::magenta));
}

void tst_VTSymbolUtils::aSwatchIsExactInsideItsBorder()
{
    const QColor color(12, 200, 77);
    const QImage image = VTSymbolUtils::createColorPixmap(QSize(50, 23), color).toImage();
    QCOMPARE(image.size(), QSize(50, 23));
    for (int y = 0; y < 23; ++y) {
        for (int x = 0; x < 50; ++x) {
            const bool border = x == 0 || y == 0 || x == 49 || y == 22;
            QCOMPARE(image.pixelColor(x, y), border ? QColor(128, 128, 128) : color);
        }
    }
}

void tst_VTSymbolUtils::aSwatchShowsTheCheckerThroughATranslucentColor()
{
    const QImage image =
        VTSymbolUtils::createColorPixmap(QSize(20, 20), QColor(255, 0, 0, 128)).toImage();
    QVERIFY(image.pixelColor(2, 2) != image.pixelColor(7, 2));
    QCOMPARE(image.pixelColor(2, 2).alpha(), 255);
}

void tst_VTSymbolUtils::anEmptySwatchIsNull()
{
    QVERIFY(VTSymbolUtils::createColorPixmap(QSize(0, 20), Qt::red).isNull());
    QVERIFY(VTSymbolUtils::createColorPixmap(QSize(20, -1), Qt::red).isNull());
}

VT_TEST_MAIN(tst_VTSymbolUtils)
#include "tst_VTSymbolUtils.moc"
