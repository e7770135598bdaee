#include "tests/support/EditorUnderTest.h"

#include "tests/support/TestMain.h"

#include <QGroupBox>
#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

class tst_VTColorSchemeEditor_kinds : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theRowsAndTheSizeFollowTheKind_data();
    void theRowsAndTheSizeFollowTheKind();
    void aShownDialogFollowsTheKind();
    void pickingRandomSetsItsSeed_data();
    void pickingRandomSetsItsSeed();
    void pickingTheHsvKindSetsItsBounds_data();
    void pickingTheHsvKindSetsItsBounds();
    void pickingAKindPreviewsOnce();
    void pickingAKindKeepsTheColorsAndTheScheme();
    void aKindThatDoesNotExistChangesNothing();
    void settingTheBoxByCodeIsNoChoice();
    void everyNumberBoxRefreshesThePreview_data();
    void everyNumberBoxRefreshesThePreview();
    void everyCommandRunsItsSlot_data();
    void everyCommandRunsItsSlot();
};

void tst_VTColorSchemeEditor_kinds::theRowsAndTheSizeFollowTheKind_data()
{
    addKinds();
}

void tst_VTColorSchemeEditor_kinds::theRowsAndTheSizeFollowTheKind()
{
    QFETCH(VOColorRamp::ColorRampType, kind);
    const auto check = [kind](const EditorUnderTest &test, const QSize &size) {
        const bool hsv = kind == VOColorRamp::RandomHsvRamp;
        const bool seeded = hsv || kind == VOColorRamp::RandomRamp;
        QCOMPARE(test.part<QLabel>("label_seed")->isHidden(), !seeded);
        QCOMPARE(test.box("spinBox_seed")->isHidden(), !seeded);
        QCOMPARE(test.part<QGroupBox>("groupBox_hsv")->isHidden(), !hsv);
        QCOMPARE(size, hsv ? QSize(555, 515) : QSize(555, 450));
    };
    EditorUnderTest opened(rampOf(kind));
    check(opened, opened.editor().size());
    for (int other = 0; other < 4; ++other) {
        EditorUnderTest picked(rampOf(static_cast<VOColorRamp::ColorRampType>(other)));
        picked.chooseType(kind);
        check(picked, picked.editor().size());
    }
}

void tst_VTColorSchemeEditor_kinds::aShownDialogFollowsTheKind()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    QCOMPARE(test.editor().size(), QSize(555, 450));
    test.chooseType(VOColorRamp::RandomHsvRamp);
    QCOMPARE(test.editor().size(), QSize(555, 515));
    QCoreApplication::processEvents();
    QCOMPARE(test.editor().size(), QSize(555, 515));
    test.chooseType(VOColorRamp::PredefineRamp);
    QCOMPARE(test.editor().size(), QSize(555, 450));
    QCoreApplication::processEvents();
    QCOMPARE(test.editor().size(), QSize(555, 450));
}

void tst_VTColorSchemeEditor_kinds::pickingRandomSetsItsSeed_data()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("stored");
    QTest::addColumn<int>("seed");
    QTest::newRow("stored as random") << VOColorRamp::RandomRamp << 7;
    QTest::newRow("stored as HSV random") << VOColorRamp::RandomHsvRamp << 2;
    QTest::newRow("stored as even") << VOColorRamp::EvenRamp << 2;
    QTest::newRow("stored as predefined") << VOColorRamp::PredefineRamp << 2;
}

void tst_VTColorSchemeEditor_kinds::pickingRandomSetsItsSeed()
{
    QFETCH(VOColorRamp::ColorRampType, stored);
    QFETCH(int, seed);
    EditorUnderTest test(rampOf(stored));
    test.box("spinBox_seed")->setValue(555);
    test.chooseType(VOColorRamp::RandomRamp);
    QCOMPARE(test.box("spinBox_seed")->value(), seed);
    QVERIFY(!test.box("spinBox_seed")->signalsBlocked());
}

void tst_VTColorSchemeEditor_kinds::pickingTheHsvKindSetsItsBounds_data()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("stored");
    QTest::addColumn<int>("seed");
    QTest::addColumn<QVector<int>>("bounds");
    const QVector<int> initial{1, 100, 1, 99, 1, 99};
    QTest::newRow("stored as random") << VOColorRamp::RandomRamp << 1 << initial;
    QTest::newRow("stored as HSV random")
        << VOColorRamp::RandomHsvRamp << 7 << QVector<int>{10, 120, 20, 80, 30, 90};
    QTest::newRow("stored as even") << VOColorRamp::EvenRamp << 1 << initial;
    QTest::newRow("stored as predefined") << VOColorRamp::PredefineRamp << 1 << initial;
}

void tst_VTColorSchemeEditor_kinds::pickingTheHsvKindSetsItsBounds()
{
    QFETCH(VOColorRamp::ColorRampType, stored);
    QFETCH(int, seed);
    QFETCH(QVector<int>, bounds);
    EditorUnderTest test(rampOf(stored));
    const auto boxes = test.editor().findChildren<QSpinBox *>();
    for (QSpinBox *box : boxes) {
        if (box->objectName() != QLatin1String("spinBox_level"))
            box->setValue(555);
    }
    test.chooseType(VOColorRamp::RandomHsvRamp);
    QCOMPARE(test.box("spinBox_seed")->value(), seed);
    QCOMPARE(test.hsvValues(), bounds);
    for (const QSpinBox *box : boxes)
        QVERIFY(!box->signalsBlocked());
}

void tst_VTColorSchemeEditor_kinds::pickingAKindPreviewsOnce()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QStringList changed;
    const auto boxes = test.editor().findChildren<QSpinBox *>();
    for (const QSpinBox *box : boxes)
        connect(box, qOverload<int>(&QSpinBox::valueChanged), box,
                [&changed, box] { changed.append(box->objectName()); });
    test.chooseType(VOColorRamp::RandomHsvRamp);
    test.chooseType(VOColorRamp::RandomRamp);
    QCOMPARE(changed, QStringList());
}

void tst_VTColorSchemeEditor_kinds::pickingAKindKeepsTheColorsAndTheScheme()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    for (const auto kind : {VOColorRamp::RandomHsvRamp, VOColorRamp::RandomRamp,
                            VOColorRamp::PredefineRamp, VOColorRamp::EvenRamp}) {
        test.chooseType(kind);
        QCOMPARE(test.colors(), defaultSources);
        QCOMPARE(test.scheme().colorRamp->category(), VOColorRamp::EvenRamp);
        const QImage shown = test.preview();
        test.run("onPreview");
        QCOMPARE(shown, test.preview());
    }
}

void tst_VTColorSchemeEditor_kinds::aKindThatDoesNotExistChangesNothing()
{
    EditorUnderTest test(hsvRamp(7, someBounds, 12));
    for (const int index : {-1, 4, 1000}) {
        QVERIFY(QMetaObject::invokeMethod(&test.editor(), "onTypeChanged", Q_ARG(int, index)));
        QVERIFY(!test.part<QGroupBox>("groupBox_hsv")->isHidden());
        QCOMPARE(test.editor().size(), QSize(555, 515));
        QCOMPARE(test.hsvValues(), QVector<int>({10, 120, 20, 80, 30, 90}));
    }
}

void tst_VTColorSchemeEditor_kinds::settingTheBoxByCodeIsNoChoice()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QImage before = test.preview();
    test.part<QComboBox>("comboBox_type")->setCurrentIndex(VOColorRamp::RandomHsvRamp);
    QVERIFY(test.part<QGroupBox>("groupBox_hsv")->isHidden());
    QCOMPARE(test.preview(), before);
}

void tst_VTColorSchemeEditor_kinds::everyNumberBoxRefreshesThePreview_data()
{
    QTest::addColumn<QString>("box");
    for (const char *name : {"spinBox_level", "spinBox_seed", "spinBox_minh", "spinBox_mins",
                             "spinBox_minv", "spinBox_maxh", "spinBox_maxs", "spinBox_maxv"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_VTColorSchemeEditor_kinds::everyNumberBoxRefreshesThePreview()
{
    QFETCH(QString, box);
    EditorUnderTest test(hsvRamp(7, someBounds, 12));
    test.setColors({});
    test.run("onPreview");
    const QImage before = test.preview();
    auto *numberBox = test.part<QSpinBox>(qPrintable(box));
    numberBox->selectAll();
    QTest::keyClicks(numberBox, QStringLiteral("55"));
    QCOMPARE(numberBox->value(), 55);
    QVERIFY(test.preview() != before);
    QCOMPARE(test.preview(), stripOf(test.storedByOk()));
}

void tst_VTColorSchemeEditor_kinds::everyCommandRunsItsSlot_data()
{
    QTest::addColumn<QVector<QColor>>("expected");
    QTest::addColumn<QVector<int>>("selection");
    const QColor r(Qt::red);
    const QColor g(Qt::green);
    const QColor b(Qt::blue);
    const QColor c(Qt::cyan);
    const QColor added(15, 225, 255);
    QTest::newRow("actionAdd_color") << QVector<QColor>{r, g, b, c, added} << QVector<int>{2};
    QTest::newRow("actionDelete_color") << QVector<QColor>{r, g, c} << QVector<int>{};
    QTest::newRow("actionSelect_all") << QVector<QColor>{r, g, b, c} << QVector<int>{0, 1, 2, 3};
    QTest::newRow("actionInvert_select") << QVector<QColor>{r, g, b, c} << QVector<int>{0, 1, 3};
    QTest::newRow("actionColor_antitone") << QVector<QColor>{c, b, g, r} << QVector<int>{};
    QTest::newRow("actionTop") << QVector<QColor>{b, g, r, c} << QVector<int>{0};
    QTest::newRow("actionBottom") << QVector<QColor>{r, g, c, b} << QVector<int>{3};
    QTest::newRow("actionUp") << QVector<QColor>{r, b, g, c} << QVector<int>{1};
    QTest::newRow("actionDown") << QVector<QColor>{r, g, c, b} << QVector<int>{3};
}

void tst_VTColorSchemeEditor_kinds::everyCommandRunsItsSlot()
{
    QFETCH(QVector<QColor>, expected);
    QFETCH(QVector<int>, selection);
    EditorUnderTest test(evenRamp({Qt::red, Qt::green, Qt::blue, Qt::cyan}, 8));
    test.select({2});
    test.part<QAction>(QTest::currentDataTag())->trigger();
    QCOMPARE(test.colors(), expected);
    QCOMPARE(test.selectedRows(), selection);
    QCOMPARE(test.preview(), stripOf(evenRamp(expected, 8).get()));
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_kinds)
#include "tst_VTColorSchemeEditor_kinds.moc"
