#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "tests/support/TestMain.h"
#include "vomap/VOEvenColorRamp.h"

#include <QColor>
#include <QtTest>

using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::describeColor;
using vtcontrolcolorscheme::describeColorRamp;
using VTObjects::rgb_color;
using VTObjects::VOEvenColorRamp;

class tst_describeColorRamp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void colorIsCalledByItsNearestName_data();
    void colorIsCalledByItsNearestName();
    void defaultRampIsDescribed();
    void rampIsDescribedByItsEndsAndItsMiddle_data();
    void rampIsDescribedByItsEndsAndItsMiddle();
    void nullRampHasNoColors();
};

void tst_describeColorRamp::colorIsCalledByItsNearestName_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("name");
    const struct
    {
        QRgb rgb;
        const char *name;
    } rows[] = {
        {0x000000, "black"},      {0x404040, "dark gray"},   {0x808080, "gray"},
        {0xd0d0d0, "pale gray"},  {0xffffff, "white"},       {0xff0000, "red"},
        {0x8b0000, "dark red"},   {0xffff00, "yellow"},      {0x00ff00, "green"},
        {0x006400, "dark green"}, {0x0000ff, "blue"},        {0x00008b, "dark blue"},
        {0x00ffff, "turquoise"},  {0x8b4513, "brown"},       {0xffa500, "orange"},
        {0xffc0cb, "pale pink"},  {0xffffe0, "pale yellow"}, {0xadd8e6, "pale blue"},
        {0x9400d3, "violet"},     {0xff69b4, "pink"},        {0x90ee90, "pale green"},
    };
    for (const auto &row : rows) {
        const QColor color(row.rgb);
        QTest::newRow(qPrintable(color.name())) << color << QString::fromLatin1(row.name);
    }
}

void tst_describeColorRamp::colorIsCalledByItsNearestName()
{
    QFETCH(QColor, color);
    QFETCH(QString, name);
    QCOMPARE(describeColor(color), name);
    // Alpha does not count.
    color.setAlpha(0);
    QCOMPARE(describeColor(color), name);
}

void tst_describeColorRamp::defaultRampIsDescribed()
{
    QCOMPARE(describeColorRamp(defaultColorRamp().get()),
             QStringLiteral("10 colors, from dark red through pale yellow to blue"));
}

void tst_describeColorRamp::rampIsDescribedByItsEndsAndItsMiddle_data()
{
    QTest::addColumn<QVector<QColor>>("colors");
    QTest::addColumn<QString>("description");
    const QColor red(Qt::red);
    const QColor paleYellow(0xffffbf);
    const QColor blue(Qt::blue);
    QTest::newRow("none") << QVector<QColor>() << QStringLiteral("No colors");
    QTest::newRow("one") << QVector<QColor>{red} << QStringLiteral("1 color, red");
    QTest::newRow("two") << QVector<QColor>{red, blue}
                         << QStringLiteral("2 colors, from red to blue");
    QTest::newRow("three") << QVector<QColor>{red, paleYellow, blue}
                           << QStringLiteral("3 colors, from red through pale yellow to blue");
    QTest::newRow("four: the earlier of the two in the middle")
        << QVector<QColor>{red, paleYellow, blue, blue}
        << QStringLiteral("4 colors, from red through pale yellow to blue");
    QTest::newRow("there and back") << QVector<QColor>{red, blue, red}
                                    << QStringLiteral("3 colors, from red through blue to red");
    QTest::newRow("middle as the end")
        << QVector<QColor>{red, blue, blue} << QStringLiteral("3 colors, from red to blue");
    QTest::newRow("all alike") << QVector<QColor>{red, red, red}
                               << QStringLiteral("3 colors, all red");
}

void tst_describeColorRamp::rampIsDescribedByItsEndsAndItsMiddle()
{
    QFETCH(QVector<QColor>, colors);
    QFETCH(QString, description);
    VOEvenColorRamp ramp;
    for (const QColor &color : colors) {
        ramp.addColor(rgb_color<float>(static_cast<float>(color.red()),
                                       static_cast<float>(color.green()),
                                       static_cast<float>(color.blue())));
    }
    QCOMPARE(describeColorRamp(&ramp), description);
}

void tst_describeColorRamp::nullRampHasNoColors()
{
    QCOMPARE(describeColorRamp(nullptr), QStringLiteral("No colors"));
}

VT_TEST_GUILESS_MAIN(tst_describeColorRamp)
#include "tst_describeColorRamp.moc"
