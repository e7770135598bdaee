#include "tests/support/EditorUnderTest.h"

#include "colorscheme/model/colorConversion.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

class tst_VTColorSchemeEditor_ramp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void theListReplacesTheFirstRandomColors_data();
    void theListReplacesTheFirstRandomColors();
    void anHsvRampTakesSeedAndBounds();
    void evenKindsTakeTheListAsSources_data();
    void evenKindsTakeTheListAsSources();
    void anEmptyListIsFineUnderEveryKind_data();
    void anEmptyListIsFineUnderEveryKind();
    void colorsAreStoredWithoutAlpha();
    void aKindThatDoesNotExistGivesNoRamp();
    void thePreviewIsWhatOkStores_data();
    void thePreviewIsWhatOkStores();
    void boundsUpsideDownAreStoredAsTheyAre();

private:
    std::unique_ptr<TestStore> store;
};

void tst_VTColorSchemeEditor_ramp::theListReplacesTheFirstRandomColors_data()
{
    QTest::addColumn<bool>("hsv");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("listed");
    for (const bool hsv : {false, true}) {
        const char *kind = hsv ? "HSV random" : "random";
        QTest::addRow("%s, level 5, three colors", kind) << hsv << 5 << 3;
        QTest::addRow("%s, level 2, four colors", kind) << hsv << 2 << 4;
        QTest::addRow("%s, level 4, four colors", kind) << hsv << 4 << 4;
        QTest::addRow("%s, level 5, no colors", kind) << hsv << 5 << 0;
    }
}

void tst_VTColorSchemeEditor_ramp::theListReplacesTheFirstRandomColors()
{
    QFETCH(bool, hsv);
    QFETCH(int, level);
    QFETCH(int, listed);
    EditorUnderTest test(hsv ? hsvRamp(7, someBounds, 3) : randomRamp(7, 3));
    test.setColors(someColors.mid(0, listed));
    test.box("spinBox_level")->setValue(level);
    VOColorRamp *stored = test.storedByOk();

    const auto count = static_cast<unsigned int>(level);
    QVector<QColor> expected =
        outputColors((hsv ? hsvRamp(7, someBounds, count) : randomRamp(7, count)).get());
    for (int i = 0; i < std::min(level, listed); ++i)
        expected[i] = someColors[i];
    QCOMPARE(outputColors(stored), expected);
    QCOMPARE(stored->category(), hsv ? VOColorRamp::RandomHsvRamp : VOColorRamp::RandomRamp);
    const auto *random = dynamic_cast<VORandomColorRamp *>(stored);
    QVERIFY(random);
    QCOMPARE(random->seed, 7);
}

void tst_VTColorSchemeEditor_ramp::anHsvRampTakesSeedAndBounds()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.chooseType(VOColorRamp::RandomHsvRamp);
    int value = 11;
    for (const char *name : {"spinBox_seed", "spinBox_minh", "spinBox_maxh", "spinBox_mins",
                             "spinBox_maxs", "spinBox_minv", "spinBox_maxv"})
        test.box(name)->setValue(value++);
    const auto *ramp = dynamic_cast<VORandomColorRampForHsv *>(test.storedByOk());
    QVERIFY(ramp);
    QCOMPARE(ramp->seed, 11);
    QCOMPARE(ramp->minH, 12);
    QCOMPARE(ramp->maxH, 13);
    QCOMPARE(ramp->minS, 14);
    QCOMPARE(ramp->maxS, 15);
    QCOMPARE(ramp->minV, 16);
    QCOMPARE(ramp->maxV, 17);
    QVERIFY(ramp->paramsChanged);
}

void tst_VTColorSchemeEditor_ramp::evenKindsTakeTheListAsSources_data()
{
    QTest::addColumn<bool>("predefined");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("listed");
    for (const bool predefined : {false, true}) {
        const char *kind = predefined ? "predefined" : "even";
        QTest::addRow("%s, level 10, two colors", kind) << predefined << 10 << 2;
        QTest::addRow("%s, level 2, four colors", kind) << predefined << 2 << 4;
        QTest::addRow("%s, level 1000, one color", kind) << predefined << 1000 << 1;
    }
}

void tst_VTColorSchemeEditor_ramp::evenKindsTakeTheListAsSources()
{
    QFETCH(bool, predefined);
    QFETCH(int, level);
    QFETCH(int, listed);
    const QVector<QColor> sources = someColors.mid(0, listed);
    EditorUnderTest test(randomRamp(7, 3));
    test.chooseType(predefined ? VOColorRamp::PredefineRamp : VOColorRamp::EvenRamp);
    test.setColors(sources);
    test.box("spinBox_level")->setValue(level);
    auto *ramp = dynamic_cast<VOEvenColorRamp *>(test.storedByOk());
    QVERIFY(ramp);
    QCOMPARE(ramp->category(), predefined ? VOColorRamp::PredefineRamp : VOColorRamp::EvenRamp);
    QCOMPARE(int(ramp->getSourceColorCount()), listed);
    for (int i = 0; i < listed; ++i)
        QCOMPARE(toQColor(ramp->getSourceColor(i)), sources[i]);
    QCOMPARE(outputColors(ramp),
             outputColors(evenRamp(sources, static_cast<unsigned int>(level)).get()));
}

void tst_VTColorSchemeEditor_ramp::anEmptyListIsFineUnderEveryKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << 0;
    QTest::newRow("HSV random") << 1;
    QTest::newRow("even") << 2;
    QTest::newRow("predefined") << 3;
}

void tst_VTColorSchemeEditor_ramp::anEmptyListIsFineUnderEveryKind()
{
    QFETCH(int, kind);
    EditorUnderTest test(evenRamp(someColors, 6));
    test.setColors({});
    test.chooseType(static_cast<VOColorRamp::ColorRampType>(kind));
    test.box("spinBox_level")->setValue(9);
    for (const char *slot : {"onDeleteColor", "onColorAntitone", "onSelectAll", "onInvetSelect",
                             "onTop", "onBottom", "onUp", "onDown"})
        test.run(slot);
    const QImage shown = test.preview();
    VOColorRamp *stored = test.storedByOk();
    QCOMPARE(int(stored->category()), kind);
    QCOMPARE(int(stored->getLevel()), 9);
    QCOMPARE(shown, stripOf(stored));
}

void tst_VTColorSchemeEditor_ramp::colorsAreStoredWithoutAlpha()
{
    EditorUnderTest test(evenRamp(someColors, 2));
    test.setColors({QColor(1, 2, 3, 4), QColor(5, 6, 7, 0)});
    VOColorRamp *stored = test.storedByOk();
    QCOMPARE(stored->getColor(0), rgb_color<float>(1, 2, 3));
    QCOMPARE(stored->getColor(1), rgb_color<float>(5, 6, 7));
}

void tst_VTColorSchemeEditor_ramp::aKindThatDoesNotExistGivesNoRamp()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.part<QComboBox>("comboBox_type")->setCurrentIndex(-1);
    test.run("onPreview");
    QVERIFY(test.preview().isNull());
    QVERIFY(!test.storedByOk());
}

void tst_VTColorSchemeEditor_ramp::thePreviewIsWhatOkStores_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("level");
    for (int kind = 0; kind < 4; ++kind) {
        for (const int level : {2, 3, 514, 515, 516, 1000})
            QTest::addRow("kind %d, level %d", kind, level) << kind << level;
    }
}

void tst_VTColorSchemeEditor_ramp::thePreviewIsWhatOkStores()
{
    QFETCH(int, kind);
    QFETCH(int, level);
    EditorUnderTest test(evenRamp(someColors, 6));
    test.chooseType(static_cast<VOColorRamp::ColorRampType>(kind));
    test.box("spinBox_level")->setValue(level);
    const QImage shown = test.preview();
    QCOMPARE(shown.size(), QSize(515, 30));
    QCOMPARE(shown, stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditor_ramp::boundsUpsideDownAreStoredAsTheyAre()
{
    EditorUnderTest test(hsvRamp(7, {1000, 0, 1000, 0, 1000, 0}, 50));
    test.setColors({});
    test.run("onPreview");
    const QImage shown = test.preview();
    const auto *ramp = dynamic_cast<VORandomColorRampForHsv *>(test.storedByOk());
    QVERIFY(ramp);
    QCOMPARE(ramp->minH, 1000);
    QCOMPARE(ramp->maxH, 0);
    QCOMPARE(shown, stripOf(test.scheme().colorRamp));
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_ramp)
#include "tst_VTColorSchemeEditor_ramp.moc"
