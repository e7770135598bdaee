#include "tests/support/ComboBoxTest.h"

#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "tests/support/TestMain.h"
#include "vomap/VOEvenColorRamp.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QtTest>

#include <memory>

using namespace VTObjects;

Q_DECLARE_METATYPE(QVector<QPointF>)

namespace {

/// What a picker's face must show, painted from plain numbers onto a button of the same look.
class ReferenceFace : public QToolButton
{
public:
    double separator = 0;
    double bottom = 0;
    QVector<QPointF> arrow;
    QRectF target;
    QPixmap strip;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QToolButton::paintEvent(event);
        QPainter painter(this);
        painter.drawLine(QPointF(separator, 5), QPointF(separator, bottom));
        painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
        painter.drawPolygon(arrow.constData(), arrow.size(), Qt::OddEvenFill);
        painter.setPen(Qt::white);
        painter.drawLine(QPointF(separator - 1, 5), QPointF(separator - 1, bottom));
        if (!strip.isNull())
            painter.drawPixmap(target, strip, QRectF(0, 0, 140, 20));
    }
};

/// A ramp of 13 colours, so that the strip's bands differ in width.
std::unique_ptr<VOEvenColorRamp> manyColored()
{
    auto ramp = std::make_unique<VOEvenColorRamp>();
    for (int i = 0; i < 13; ++i)
        ramp->addColor(rgb_color<float>(float(i * 20), float(250 - i * 10), float(i % 2 * 200)));
    return ramp;
}

void makeReference(ReferenceFace &reference, QSize size, double separator,
                   const QVector<QPointF> &arrow, QSize strip)
{
    reference.setStyleSheet(QLatin1String(faceStyle));
    forceSize(&reference, size);
    reference.separator = separator;
    reference.bottom = size.height() - 5;
    reference.arrow = arrow;
    reference.target = QRectF(QPointF(3, 3), QSizeF(strip));
}

using Points = QVector<QPointF>;

} // namespace

class tst_VTColorSchemeComboBox_face : public ComboBoxTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void theFaceIsExact_data();
    void theFaceIsExact();
    void theFaceIsExactInEveryState_data();
    void theFaceIsExactInEveryState();
    void theArrowPointsDownAndTheSeparatorIsEtched();
};

void tst_VTColorSchemeComboBox_face::theFaceIsExact_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("separator");
    QTest::addColumn<Points>("arrow");
    QTest::addColumn<QSize>("strip"); // its place in the face, from (3, 3)
    QTest::newRow("150 x 20") << QSize(150, 20) << 138.0 << Points{{141, 8}, {147, 8}, {144, 11}}
                              << QSize(134, 15);
    QTest::newRow("40 x 21") << QSize(40, 21) << 32.0 << Points{{32, 8.5}, {39, 8.5}, {35.5, 11.5}}
                             << QSize(28, 16);
    QTest::newRow("40 x 20") << QSize(40, 20) << 32.0 << Points{{33, 8}, {39, 8}, {36, 11}}
                             << QSize(28, 15);
    QTest::newRow("151 x 21") << QSize(151, 21) << 139.0
                              << Points{{141, 8.5}, {148, 8.5}, {144.5, 11.5}} << QSize(135, 16);
    QTest::newRow("59 x 20, a fifth in fractions")
        << QSize(59, 20) << 47.2 << Points{{50.1, 8}, {56.1, 8}, {53.1, 11}} << QSize(43, 15);
    QTest::newRow("58 x 21, a fifth in fractions")
        << QSize(58, 21) << 46.4 << Points{{48.2, 8.5}, {55.2, 8.5}, {51.7, 11.5}} << QSize(42, 16);
    QTest::newRow("60 x 22, just the cap")
        << QSize(60, 22) << 48.0 << Points{{51, 9}, {57, 9}, {54, 12}} << QSize(44, 17);
    QTest::newRow("23 x 20, narrower than the arrow")
        << QSize(23, 20) << 18.4 << Points{{17.7, 8}, {23.7, 8}, {20.7, 11}} << QSize(14, 15);
    QTest::newRow("240 x 30") << QSize(240, 30) << 228.0 << Points{{231, 13}, {237, 13}, {234, 16}}
                              << QSize(224, 25);
    QTest::newRow("241 x 33") << QSize(241, 33) << 229.0
                              << Points{{231, 14.5}, {238, 14.5}, {234.5, 17.5}} << QSize(225, 28);
    QTest::newRow("1000 x 50") << QSize(1000, 50) << 988.0
                               << Points{{991, 23}, {997, 23}, {994, 26}} << QSize(984, 45);
}

void tst_VTColorSchemeComboBox_face::theFaceIsExact()
{
    QFETCH(QSize, size);
    QFETCH(double, separator);
    QFETCH(Points, arrow);
    QFETCH(QSize, strip);
    const auto ramp = manyColored();
    ReferenceFace reference;
    makeReference(reference, size, separator, arrow, strip);
    VTColorSchemeComboBox box;
    forceSize(&box, size);
    // Without a scheme
    QCOMPARE(box.size(), size);
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
    // And with one
    box.setColorRamp(ramp.get());
    reference.strip = colorRampPreviewPixmap(ramp.get(), QSize(140, 20));
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
}

void tst_VTColorSchemeComboBox_face::theFaceIsExactInEveryState_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("down");
    QTest::addColumn<QColor>("foreground");
    QTest::newRow("disabled") << false << false << QColor(Qt::black);
    QTest::newRow("pressed") << true << true << QColor(Qt::black);
    QTest::newRow("in a theme of light letters") << true << false << QColor(Qt::yellow);
}

void tst_VTColorSchemeComboBox_face::theFaceIsExactInEveryState()
{
    QFETCH(bool, enabled);
    QFETCH(bool, down);
    QFETCH(QColor, foreground);
    const auto ramp = manyColored();
    ReferenceFace reference;
    makeReference(reference, QSize(150, 20), 138, {{141, 8}, {147, 8}, {144, 11}}, QSize(134, 15));
    reference.strip = colorRampPreviewPixmap(ramp.get(), QSize(140, 20));
    VTColorSchemeComboBox box;
    box.setColorRamp(ramp.get());
    forceSize(&box, QSize(150, 20));
    for (QToolButton *button :
         {static_cast<QToolButton *>(&reference), static_cast<QToolButton *>(&box)}) {
        QPalette theme = button->palette();
        theme.setColor(QPalette::ButtonText, foreground);
        button->setPalette(theme);
        button->setEnabled(enabled);
        button->setDown(down);
    }
    if (!enabled) { // gray, as icons become
        QStyleOption option;
        option.initFrom(&reference);
        reference.strip =
            reference.style()->generatedIconPixmap(QIcon::Disabled, reference.strip, &option);
    }
    QCOMPARE(box.grab().toImage(), reference.grab().toImage());
}

void tst_VTColorSchemeComboBox_face::theArrowPointsDownAndTheSeparatorIsEtched()
{
    VTColorSchemeComboBox box;
    const QImage image = face(box);
    const QColor black(Qt::black);
    for (int y = 5; y < 15; ++y) {
        QCOMPARE(image.pixelColor(138, y), black);
        QCOMPARE(image.pixelColor(137, y), QColor(Qt::white));
    }
    QVERIFY(image.pixelColor(138, 4) != black);
    QVERIFY(image.pixelColor(138, 17) != black);
    // The arrow: wide above, its point below, nothing beside it.
    for (int x = 141; x <= 147; ++x)
        QCOMPARE(image.pixelColor(x, 8), black);
    QCOMPARE(image.pixelColor(144, 11), black);
    QVERIFY(image.pixelColor(141, 11) != black);
    QVERIFY(image.pixelColor(147, 11) != black);
    QVERIFY(image.pixelColor(144, 7) != black);
    QVERIFY(image.pixelColor(144, 12) != black);
}

VT_TEST_MAIN(tst_VTColorSchemeComboBox_face)
#include "tst_VTColorSchemeComboBox_face.moc"
