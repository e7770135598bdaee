#include "tests/support/EditorUnderTest.h"

#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QAccessible>
#include <QtTest>

using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::describeColor;
using vtcontrolcolorscheme::describeColorRamp;

using namespace EditorColors;
using namespace VTObjects;

class tst_VTColorSchemeEditor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aSchemeIsShown_data();
    void aSchemeIsShown();
    void theBoundsOfAnHsvSchemeAreShown();
    void componentsAreCutTowardZero();
    void anEvenSchemeListsItsSourcesAndNotItsColors();
    void thePreviewStartsWithTheSchemesOwnRamp();
    void openingEmitsNothingAndChangesNothing();
    void aSchemeWithoutRampOpensAsTheDefaultRamp();
    void levelsThatTheBoxCannotHoldAreShownAsTheNearest_data();
    void levelsThatTheBoxCannotHoldAreShownAsTheNearest();
    void anIndexThatNamesNoSchemeOpensAndWritesNothing_data();
    void anIndexThatNamesNoSchemeOpensAndWritesNothing();
    void withoutAGroupItOpensAndWritesNothing_data();
    void withoutAGroupItOpensAndWritesNothing();
    void theColorsHaveWords();
    void thePreviewHasWords();
    void theNameFieldAndItsWarningHaveWords();
    void itGoesAwayWithASelection();
};

void tst_VTColorSchemeEditor::aSchemeIsShown_data()
{
    addKinds();
}

void tst_VTColorSchemeEditor::aSchemeIsShown()
{
    QFETCH(VOColorRamp::ColorRampType, kind);
    EditorUnderTest test(rampOf(kind));
    QCOMPARE(test.nameField()->text(), QStringLiteral("Mine"));
    QCOMPARE(test.part<QLineEdit>("lineEdit_author")->text(), QStringLiteral("Admin"));
    QCOMPARE(test.part<QLineEdit>("lineEdit_describe")->text(), QStringLiteral("Even"));
    QCOMPARE(test.part<QComboBox>("comboBox_type")->currentIndex(), int(kind));
    QCOMPARE(test.box("spinBox_level")->value(), 12);
    if (kind == VOColorRamp::RandomRamp || kind == VOColorRamp::RandomHsvRamp) {
        QCOMPARE(test.box("spinBox_seed")->value(), 7);
        QCOMPARE(test.colors(), outputColors(test.scheme().colorRamp));
    }
    if (kind == VOColorRamp::EvenRamp)
        QCOMPARE(test.colors(), defaultSources);
    if (kind == VOColorRamp::PredefineRamp)
        QCOMPARE(test.colors(), QVector<QColor>({Qt::red, Qt::green, Qt::blue, Qt::black}));
    QCOMPARE(test.preview(), stripOf(test.scheme().colorRamp));
}

void tst_VTColorSchemeEditor::theBoundsOfAnHsvSchemeAreShown()
{
    EditorUnderTest test(hsvRamp(7, someBounds, 12));
    QCOMPARE(test.hsvValues(), QVector<int>({10, 120, 20, 80, 30, 90}));
    QCOMPARE(test.colors().size(), 12);
}

void tst_VTColorSchemeEditor::componentsAreCutTowardZero()
{
    rgb_color<float> sources[] = {{12.9F, 0.5F, 254.99F}, {0.0F, 255.0F, 1.0F}};
    auto ramp = std::make_unique<VOEvenColorRamp>();
    ramp->setSourceColor(2, sources);
    ramp->split(2);
    EditorUnderTest even(std::move(ramp));
    QCOMPARE(even.colors(), QVector<QColor>({QColor(12, 0, 254), QColor(0, 255, 1)}));
    QCOMPARE(even.colors().first().alpha(), 255);

    auto random = randomRamp(1, 2);
    random->setColor(0, sources[0]);
    EditorUnderTest test(std::move(random));
    QCOMPARE(test.colors().first(), QColor(12, 0, 254));
}

void tst_VTColorSchemeEditor::anEvenSchemeListsItsSourcesAndNotItsColors()
{
    auto ramp = evenRamp({Qt::red, Qt::blue}, 5);
    ramp->setColor(0, {1, 2, 3});
    EditorUnderTest test(std::move(ramp));
    QCOMPARE(test.colors(), QVector<QColor>({Qt::red, Qt::blue}));
}

void tst_VTColorSchemeEditor::thePreviewStartsWithTheSchemesOwnRamp()
{
    // A colour of its own in an even ramp is lost by a rebuild.
    auto ramp = evenRamp({Qt::red, Qt::blue}, 5);
    ramp->setColor(2, {0, 255, 0});
    EditorUnderTest test(std::move(ramp));
    QCOMPARE(test.preview(), stripOf(test.scheme().colorRamp));
    QCOMPARE(test.preview().pixelColor(257, 15), QColor(0, 255, 0));
    test.run("onPreview");
    QCOMPARE(test.preview(), stripOf(evenRamp({Qt::red, Qt::blue}, 5).get()));
}

void tst_VTColorSchemeEditor::openingEmitsNothingAndChangesNothing()
{
    EditorUnderTest test(hsvRamp(3, {90, 10, 80, 20, 70, 30}, 6));
    const auto *ramp = static_cast<VORandomColorRampForHsv *>(test.scheme().colorRamp);
    QCOMPARE(ramp->seed, 3);
    QCOMPARE(ramp->minH, 90);
    QCOMPARE(ramp->maxV, 30);
    QCOMPARE(test.warning(), QString());
    QVERIFY(test.ok()->isEnabled());
    QCOMPARE(test.enabledMoves(), QStringList({"Top", "Bottom", "Up", "Down"}));
    QCOMPARE(test.selectedRows(), QVector<int>());
}

void tst_VTColorSchemeEditor::aSchemeWithoutRampOpensAsTheDefaultRamp()
{
    EditorUnderTest test(nullptr);
    QCOMPARE(test.part<QComboBox>("comboBox_type")->currentIndex(), int(VOColorRamp::EvenRamp));
    QCOMPARE(test.box("spinBox_level")->value(), 10);
    QCOMPARE(test.colors(), defaultSources);
    QCOMPARE(test.preview(), stripOf(defaultColorRamp().get()));
    QCOMPARE(test.nameField()->text(), QStringLiteral("Mine"));
    QVERIFY(!test.scheme().colorRamp); // opening is no edit

    for (int kind = 0; kind < 4; ++kind) {
        test.chooseType(static_cast<VOColorRamp::ColorRampType>(kind));
        QVERIFY(!test.scheme().colorRamp);
    }
    test.chooseType(VOColorRamp::EvenRamp);
    VOColorRamp *stored = test.storedByOk();
    QVERIFY(stored);
    QCOMPARE(outputColors(stored), outputColors(defaultColorRamp().get()));
}

void tst_VTColorSchemeEditor::levelsThatTheBoxCannotHoldAreShownAsTheNearest_data()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("kind");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("shown");
    const char *names[] = {"random", "HSV random", "even", "predefined"};
    for (int kind = 0; kind < 4; ++kind) {
        for (const auto &[level, shown] :
             {std::pair{0, 2}, {1, 2}, {2, 2}, {1000, 1000}, {1001, 1000}, {3000, 1000}}) {
            QTest::addRow("%s of level %d", names[kind], level)
                << static_cast<VOColorRamp::ColorRampType>(kind) << level << shown;
        }
    }
}

void tst_VTColorSchemeEditor::levelsThatTheBoxCannotHoldAreShownAsTheNearest()
{
    QFETCH(VOColorRamp::ColorRampType, kind);
    QFETCH(int, level);
    QFETCH(int, shown);
    RampPointer ramp = rampOf(kind);
    ramp->split(static_cast<unsigned int>(level));
    EditorUnderTest test(std::move(ramp));
    QCOMPARE(test.box("spinBox_level")->value(), shown);
    QCOMPARE(test.preview(), stripOf(test.scheme().colorRamp));
    if (kind == VOColorRamp::RandomRamp || kind == VOColorRamp::RandomHsvRamp)
        QCOMPARE(test.colors().size(), level);
    VOColorRamp *stored = test.storedByOk();
    QCOMPARE(int(stored->getLevel()), shown);
    QCOMPARE(stored->category(), kind);
}

void tst_VTColorSchemeEditor::anIndexThatNamesNoSchemeOpensAndWritesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none") << -1;
    QTest::newRow("behind the last") << 2;
}

void tst_VTColorSchemeEditor::anIndexThatNamesNoSchemeOpensAndWritesNothing()
{
    QFETCH(int, index);
    VOColorSchemeGroup group =
        makeGroup(QStringLiteral("Group"), {QStringLiteral("A"), QStringLiteral("B")});
    VTColorSchemeEditor editor(index, &group, true, nullptr);
    QVERIFY(QMetaObject::invokeMethod(&editor, "onTypeChanged", Q_ARG(int, 1)));
    QVERIFY(QMetaObject::invokeMethod(&editor, "onOk"));
    QCOMPARE(editor.result(), int(QDialog::Rejected));
    QVERIFY(QMetaObject::invokeMethod(&editor, "onClose"));
    QCOMPARE(schemeNames(group), QStringList({"A", "B"}));
}

void tst_VTColorSchemeEditor::withoutAGroupItOpensAndWritesNothing_data()
{
    QTest::addColumn<bool>("added");
    QTest::newRow("adding") << true;
    QTest::newRow("editing") << false;
}

void tst_VTColorSchemeEditor::withoutAGroupItOpensAndWritesNothing()
{
    QFETCH(bool, added);
    VTColorSchemeEditor editor(0, nullptr, added, nullptr);
    QCOMPARE(editor.findChild<VTColorModel *>()->colors, defaultSources);
    QVERIFY(
        QMetaObject::invokeMethod(&editor, "onNameChanged", Q_ARG(QString, QStringLiteral("Any"))));
    QVERIFY(editor.findChild<QPushButton *>(QStringLiteral("pushButton_ok"))->isEnabled());
    QVERIFY(QMetaObject::invokeMethod(&editor, "onTypeChanged", Q_ARG(int, 1)));
    QVERIFY(QMetaObject::invokeMethod(&editor, "onOk"));
    QCOMPARE(editor.result(), int(QDialog::Rejected));
    QVERIFY(QMetaObject::invokeMethod(&editor, "onClose"));
}

void tst_VTColorSchemeEditor::theColorsHaveWords()
{
    EditorUnderTest test(evenRamp({Qt::red, Qt::black}, 4));
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(test.view());
    QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Colors"));
    const auto swatch = [list](int row) { return list->tableInterface()->cellAt(row, 1); };
    QCOMPARE(swatch(0)->text(QAccessible::Name), describeColor(Qt::red));
    QCOMPARE(swatch(0)->text(QAccessible::Description), QStringLiteral("#ff0000"));
    QCOMPARE(swatch(1)->text(QAccessible::Name), describeColor(Qt::black));
    QCOMPARE(list->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), QStringLiteral("2"));
    QVERIFY(swatch(0)->text(QAccessible::Name) != swatch(1)->text(QAccessible::Name));
    test.run("onColorAntitone");
    QCOMPARE(swatch(0)->text(QAccessible::Name), describeColor(Qt::black));
    test.run("onAddColor");
    QCOMPARE(swatch(2)->text(QAccessible::Description), QStringLiteral("#0fe1ff"));
}

void tst_VTColorSchemeEditor::thePreviewHasWords()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QAccessibleInterface *preview =
        QAccessible::queryAccessibleInterface(test.part<QLabel>("previewLabel"));
    QCOMPARE(preview->text(QAccessible::Name), QStringLiteral("Preview"));
    QCOMPARE(preview->text(QAccessible::Description),
             describeColorRamp(evenRamp(defaultSources, 10).get()));
    test.box("spinBox_level")->setValue(4);
    QCOMPARE(preview->text(QAccessible::Description),
             describeColorRamp(evenRamp(defaultSources, 4).get()));
}

void tst_VTColorSchemeEditor::theNameFieldAndItsWarningHaveWords()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QAccessibleInterface *field = QAccessible::queryAccessibleInterface(test.nameField());
    QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Name:"));
    QCOMPARE(field->text(QAccessible::Description), QString());
    test.nameField()->selectAll();
    QTest::keyClick(test.nameField(), Qt::Key_Delete);
    QCOMPARE(field->text(QAccessible::Description), QStringLiteral("The name cannot be empty!"));
    QTest::keyClicks(test.nameField(), QStringLiteral("Fresh"));
    QCOMPARE(field->text(QAccessible::Description), QString());
    QAccessibleInterface *level =
        QAccessible::queryAccessibleInterface(test.part<QSpinBox>("spinBox_level"));
    QCOMPARE(level->text(QAccessible::Name), QStringLiteral("Level:"));
}

void tst_VTColorSchemeEditor::itGoesAwayWithASelection()
{
    QWidget parent;
    VOColorSchemeGroup group = makeGroup(QStringLiteral("Group"), {QStringLiteral("A")});
    auto *editor = new VTColorSchemeEditor(0, &group, false, &parent);
    const QPointer<VTColorModel> model = editor->findChild<VTColorModel *>();
    QVERIFY(model);
    editor->show();
    QVERIFY(QMetaObject::invokeMethod(editor, "onSelectAll"));
    delete editor;
    QVERIFY(!model);
    QCOMPARE(group.schemes.size(), std::size_t(1));
}

VT_TEST_MAIN(tst_VTColorSchemeEditor)
#include "tst_VTColorSchemeEditor.moc"
