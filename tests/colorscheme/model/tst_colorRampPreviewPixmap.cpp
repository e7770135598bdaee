#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "tests/support/TestMain.h"

#include "vomap/VOColorRamp.h"
#include "vomap/VOEvenColorRamp.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QPainter>
#include <QtTest>

#include <limits>

using namespace VTObjects;

namespace {

/// A ramp of any length that keeps no colours: each one tells its index, up to 16,777,216 of them.
/// It records how it was used.
class IndexRamp : public VOColorRamp
{
public:
    explicit IndexRamp(unsigned int level)
        : level(level)
    {
    }

    static QRgb rgbAt(unsigned int index)
    {
        return qRgb(int(index >> 16 & 0xff), int(index >> 8 & 0xff), int(index & 0xff));
    }
    static qint64 indexOf(QRgb rgb)
    {
        return qRed(rgb) * qint64(65536) + qGreen(rgb) * 256 + qBlue(rgb);
    }

    bool split(unsigned int /*count*/) override { return changed = true; }
    rgb_color<float> getColor(unsigned int index) override
    {
        ++reads;
        outOfRange = outOfRange || index >= level;
        const QRgb rgb = rgbAt(index);
        return rgb_color<float>(float(qRed(rgb)), float(qGreen(rgb)), float(qBlue(rgb)));
    }
    void setColor(unsigned int /*index*/, rgb_color<float> /*color*/) override { changed = true; }
    void addColor(rgb_color<float> /*color*/) override { changed = true; }
    void deleteColor(unsigned int /*index*/) override { changed = true; }
    void deleteAll() override { changed = true; }
    unsigned int getLevel() override { return level; }
    VOColorRamp *clone() override { return new IndexRamp(*this); }
    ColorRampType category() override { return EvenRamp; }

    qint64 reads = 0;
    bool outOfRange = false;
    bool changed = false;

private:
    unsigned int level;
};

/// The strip as drawn step by step: directly, or on a growing image of one column a colour that is
/// then scaled down without smoothing.
QPixmap drawnStepByStep(IndexRamp &ramp, QSize size)
{
    const int n = int(ramp.getLevel());
    const int w = size.width();
    const QSize workingSize = n > w ? size * (double(n) / w) : size;
    QPixmap pixmap(workingSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    VTSymbolUtils::drawStippledBackground(
        &painter, QRect(QPoint(0, 0), QPoint(pixmap.width() - 1, pixmap.height() - 1)));
    const int q = n > w ? 1 : w / n;
    const int r = n > w ? 0 : w % n;
    int left = 0;
    for (int i = 0; i < n; ++i) {
        const int bandWidth = i < r ? q + 1 : q;
        painter.setPen(Qt::black);
        painter.fillRect(left, 0, bandWidth, pixmap.height(),
                         QColor(IndexRamp::rgbAt(unsigned(i))));
        left += bandWidth;
    }
    painter.end();
    return n > w ? pixmap.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation) : pixmap;
}

/// The index of the colour of each column, after checking that all rows agree and nothing shines
/// through.
QVector<qint64> columnIndices(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    QVector<qint64> indices;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb top = image.pixel(x, 0);
        if (qAlpha(top) != 255)
            return {};
        for (int y = 1; y < image.height(); ++y) {
            if (image.pixel(x, y) != top)
                return {};
        }
        indices.append(IndexRamp::indexOf(top));
    }
    return indices;
}

/// The widths of the bands from left to right, for bands in the order of their indices.
QVector<int> bandWidths(const QPixmap &pixmap)
{
    const QVector<qint64> indices = columnIndices(pixmap);
    QVector<int> widths;
    for (const qint64 index : indices) {
        if (index == widths.size())
            widths.append(1);
        else if (index == widths.size() - 1)
            ++widths.last();
        else
            return {};
    }
    return widths;
}

} // namespace

class tst_colorRampPreviewPixmap : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNullRampGivesANullPixmap();
    void aRampWithoutColorsGivesANullPixmap();
    void anEmptySizeGivesANullPixmap_data();
    void anEmptySizeGivesANullPixmap();
    void theFirstBandsTakeWhatIsLeftOver_data();
    void theFirstBandsTakeWhatIsLeftOver();
    void everyPixelIsAsDrawnStepByStep_data();
    void everyPixelIsAsDrawnStepByStep();
    void manyLevelsAndWidthsAreAsDrawnStepByStep();
    void everyNumberOfColorsUpToTheWidthIsAsDrawnStepByStep();
    void shrinkingKeepsHardEdges();
    void manyColorsShowTheOneAtEachPixelsPlace_data();
    void manyColorsShowTheOneAtEachPixelsPlace();
    void theCostsDependOnThePixelsAndNotOnTheColors_data();
    void theCostsDependOnThePixelsAndNotOnTheColors();
    void fractionsAreCutOff_data();
    void fractionsAreCutOff();
    void theStripIsOpaque();
    void theRampIsOnlyRead();
};

void tst_colorRampPreviewPixmap::aNullRampGivesANullPixmap()
{
    QVERIFY(colorRampPreviewPixmap(nullptr, QSize(140, 20)).isNull());
}

void tst_colorRampPreviewPixmap::aRampWithoutColorsGivesANullPixmap()
{
    VOEvenColorRamp ramp;
    QVERIFY(colorRampPreviewPixmap(&ramp, QSize(140, 20)).isNull());
}

void tst_colorRampPreviewPixmap::anEmptySizeGivesANullPixmap_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("no width") << QSize(0, 20);
    QTest::newRow("negative width") << QSize(-140, 20);
    QTest::newRow("no height") << QSize(140, 0);
    QTest::newRow("negative height") << QSize(140, -20);
    QTest::newRow("both negative") << QSize(-140, -20);
    QTest::newRow("invalid") << QSize();
}

void tst_colorRampPreviewPixmap::anEmptySizeGivesANullPixmap()
{
    QFETCH(QSize, size);
    IndexRamp few(3);
    QVERIFY(colorRampPreviewPixmap(&few, size).isNull());
    IndexRamp many(3000);
    QVERIFY(colorRampPreviewPixmap(&many, size).isNull());
}

void tst_colorRampPreviewPixmap::theFirstBandsTakeWhatIsLeftOver_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QVector<int>>("widths");
    QTest::newRow("ten share 140 evenly") << 10 << QSize(140, 20) << QVector<int>(10, 14);
    QTest::newRow("three share 100") << 3 << QSize(100, 20) << QVector<int>{34, 33, 33};
    QTest::newRow("seven share 10") << 7 << QSize(10, 3) << QVector<int>{2, 2, 2, 1, 1, 1, 1};
    QTest::newRow("one fills all") << 1 << QSize(140, 20) << QVector<int>{140};
    QTest::newRow("a color a pixel") << 140 << QSize(140, 20) << QVector<int>(140, 1);
    QTest::newRow("one pixel more")
        << 139 << QSize(140, 20) << (QVector<int>{2} + QVector<int>(138, 1));
    QTest::newRow("one pixel in all") << 1 << QSize(1, 1) << QVector<int>{1};
}

void tst_colorRampPreviewPixmap::theFirstBandsTakeWhatIsLeftOver()
{
    QFETCH(int, level);
    QFETCH(QSize, size);
    QFETCH(QVector<int>, widths);
    IndexRamp ramp{unsigned(level)};
    const QPixmap pixmap = colorRampPreviewPixmap(&ramp, size);
    QCOMPARE(pixmap.size(), size);
    QCOMPARE(bandWidths(pixmap), widths);
}

void tst_colorRampPreviewPixmap::everyPixelIsAsDrawnStepByStep_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QSize>("size");
    QTest::newRow("face, default ramp") << 10 << QSize(140, 20);
    QTest::newRow("face, a remainder") << 11 << QSize(140, 20);
    QTest::newRow("face, a color a pixel") << 140 << QSize(140, 20);
    QTest::newRow("face, one color too many") << 141 << QSize(140, 20);
    QTest::newRow("face, 300 colors") << 300 << QSize(140, 20);
    QTest::newRow("face, twice the pixels") << 280 << QSize(140, 20);
    QTest::newRow("face, ten times the pixels") << 1400 << QSize(140, 20);
    QTest::newRow("editor, many") << 1000 << QSize(515, 30);
    QTest::newRow("one pixel wide") << 300 << QSize(1, 2);
    QTest::newRow("one pixel high") << 300 << QSize(140, 1);
    QTest::newRow("high") << 45 << QSize(30, 400);
    QTest::newRow("the step is odd") << 17933 << QSize(1079, 1);
    QTest::newRow("the step is whole but for its rounding") << 3382 << QSize(512, 1);
    QTest::newRow("the most that can be drawn so") << 32767 << QSize(140, 1);
}

void tst_colorRampPreviewPixmap::everyPixelIsAsDrawnStepByStep()
{
    QFETCH(int, level);
    QFETCH(QSize, size);
    IndexRamp ramp{unsigned(level)};
    const QPixmap pixmap = colorRampPreviewPixmap(&ramp, size);
    QCOMPARE(pixmap.size(), size);
    QVERIFY(!columnIndices(pixmap).isEmpty());
    // The format too: images of different formats are never equal.
    QCOMPARE(pixmap.toImage(), drawnStepByStep(ramp, size).toImage());
}

void tst_colorRampPreviewPixmap::manyLevelsAndWidthsAreAsDrawnStepByStep()
{
    // Pairs from all over the range, the same in every run.
    quint32 state = 1;
    const auto upTo = [&state](int limit) {
        state = state * 1664525U + 1013904223U;
        return 1 + int(state >> 8) % limit;
    };
    for (int i = 0; i < 1000; ++i) {
        const int level = upTo(i % 4 == 0 ? 32767 : 4000);
        // Drawn step by step the pixels are as many as the square of the level by the width.
        const int width = std::max(upTo(3000), int(qint64(level) * level / 1000000));
        IndexRamp ramp{unsigned(level)};
        const QSize size(width, 1);
        QVERIFY2(colorRampPreviewPixmap(&ramp, size).toImage() ==
                     drawnStepByStep(ramp, size).toImage(),
                 qPrintable(QStringLiteral("%1 colors, %2 pixels").arg(level).arg(width)));
    }
}

void tst_colorRampPreviewPixmap::everyNumberOfColorsUpToTheWidthIsAsDrawnStepByStep()
{
    const QSize size(140, 2);
    for (unsigned int level = 1; level <= 400; ++level) {
        IndexRamp ramp(level);
        QVERIFY2(colorRampPreviewPixmap(&ramp, size).toImage() ==
                     drawnStepByStep(ramp, size).toImage(),
                 qPrintable(QString::number(level)));
    }
}

void tst_colorRampPreviewPixmap::shrinkingKeepsHardEdges()
{
    VOEvenColorRamp ramp;
    for (int i = 0; i < 300; ++i)
        ramp.addColor(i % 2 == 0 ? rgb_color<float>(255, 0, 0) : rgb_color<float>(0, 0, 255));
    const QImage image = colorRampPreviewPixmap(&ramp, QSize(140, 20)).toImage();
    QSet<QRgb> shown;
    for (int x = 0; x < image.width(); ++x)
        shown.insert(image.pixel(x, 10));
    QCOMPARE(shown, QSet<QRgb>({qRgb(255, 0, 0), qRgb(0, 0, 255)}));
}

void tst_colorRampPreviewPixmap::manyColorsShowTheOneAtEachPixelsPlace_data()
{
    QTest::addColumn<unsigned int>("level");
    QTest::addColumn<int>("width");
    QTest::newRow("20,000 in a face") << 20000U << 140;
    QTest::newRow("one more than a painter's columns") << 32768U << 140;
    QTest::newRow("1,000,000 in a face") << 1000000U << 140;
    QTest::newRow("1,000,000 in a wide strip") << 1000000U << 4000;
    QTest::newRow("16,777,216 in a face") << 16777216U << 140;
}

void tst_colorRampPreviewPixmap::manyColorsShowTheOneAtEachPixelsPlace()
{
    QFETCH(unsigned int, level);
    QFETCH(int, width);
    IndexRamp ramp(level);
    const QVector<qint64> shown = columnIndices(colorRampPreviewPixmap(&ramp, QSize(width, 20)));
    QCOMPARE(shown.size(), width);
    QVERIFY(!ramp.outOfRange);
    for (int x = 0; x < width; ++x) {
        const qint64 place = (2 * x + 1) * qint64(level) / (2 * width); // at the pixel's centre
        QVERIFY2(qAbs(shown.at(x) - place) <= 1, qPrintable(QString::number(x)));
    }
}

void tst_colorRampPreviewPixmap::theCostsDependOnThePixelsAndNotOnTheColors_data()
{
    QTest::addColumn<unsigned int>("level");
    QTest::newRow("as many as pixels") << 140U;
    QTest::newRow("20,000") << 20000U;
    QTest::newRow("1,000,000") << 1000000U;
    QTest::newRow("more than an int holds") << std::numeric_limits<unsigned int>::max();
}

void tst_colorRampPreviewPixmap::theCostsDependOnThePixelsAndNotOnTheColors()
{
    QFETCH(unsigned int, level);
    IndexRamp ramp(level);
    QCOMPARE(colorRampPreviewPixmap(&ramp, QSize(140, 20)).size(), QSize(140, 20));
    QCOMPARE(ramp.reads, 140);
    QVERIFY(!ramp.outOfRange);
}

void tst_colorRampPreviewPixmap::fractionsAreCutOff_data()
{
    QTest::addColumn<double>("component");
    QTest::addColumn<int>("drawn");
    QTest::newRow("just below 255") << 254.9 << 254;
    QTest::newRow("255") << 255.0 << 255;
    QTest::newRow("a half") << 127.5 << 127;
    QTest::newRow("just above 128") << 128.01 << 128;
    QTest::newRow("just below 1") << 0.99 << 0;
}

void tst_colorRampPreviewPixmap::fractionsAreCutOff()
{
    QFETCH(double, component);
    QFETCH(int, drawn);
    VOEvenColorRamp ramp;
    ramp.addColor(rgb_color<float>(float(component), 0, 0));
    ramp.addColor(rgb_color<float>(0, float(component), 0));
    ramp.addColor(rgb_color<float>(0, 0, float(component)));
    // Both ways of drawing
    const QImage direct = colorRampPreviewPixmap(&ramp, QSize(3, 2)).toImage();
    QCOMPARE(direct.pixel(0, 0), qRgb(drawn, 0, 0));
    QCOMPARE(direct.pixel(1, 0), qRgb(0, drawn, 0));
    QCOMPARE(direct.pixel(2, 1), qRgb(0, 0, drawn));
    const QImage shrunk = colorRampPreviewPixmap(&ramp, QSize(1, 2)).toImage();
    QCOMPARE(shrunk.pixel(0, 0), qRgb(0, drawn, 0));
}

void tst_colorRampPreviewPixmap::theStripIsOpaque()
{
    for (const unsigned int level : {1U, 7U, 140U, 300U}) {
        IndexRamp ramp(level);
        const QImage image = colorRampPreviewPixmap(&ramp, QSize(140, 20)).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QCOMPARE(image.pixelColor(x, y).alpha(), 255);
        }
    }
}

void tst_colorRampPreviewPixmap::theRampIsOnlyRead()
{
    for (const unsigned int level : {1U, 7U, 140U, 300U}) {
        IndexRamp ramp(level);
        colorRampPreviewPixmap(&ramp, QSize(140, 20));
        QVERIFY(!ramp.changed);
        QVERIFY(!ramp.outOfRange);
        QCOMPARE(ramp.getLevel(), level);
    }
}

VT_TEST_MAIN(tst_colorRampPreviewPixmap)
#include "tst_colorRampPreviewPixmap.moc"
