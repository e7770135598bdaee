#include "tests/colorscheme/editor/EditorUnderTest.h"

#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"

#include <QAccessible>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QToolBar>
#include <QtTest>

using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::describeColor;
using vtcontrolcolorscheme::describeColorRamp;

using namespace VTObjects;

Q_DECLARE_METATYPE(VTObjects::VOColorRamp::ColorRampType)

class tst_VTColorSchemeEditor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSlotsStandInTheirOrder();
    void itIsAModalDialogWithACloseButton();
    void theTitleTellsAddingFromEditing();
    void partsStandInTheirOrder();
    void theFormHasTheseWidgets_data();
    void theFormHasTheseWidgets();
    void theSchemeInformationIsAGrid();
    void theBoundsStandInColumns();
    void theToolBarHasTheCommandsInTheirOrder();
    void theToolBarIsFlatAndFixed();
    void theColorViewSelectsRowsAndEditsNothing();
    void theColumnsAreANumberAndTheRest();
    void numbersBoxesHaveTheirRanges_data();
    void numbersBoxesHaveTheirRanges();
    void theKindsAreNumberedAsTheRampsAre();
    void labelsNameTheirFields();
    void aSchemeIsShown_data();
    void aSchemeIsShown();
    void theBoundsOfAnHsvSchemeAreShown();
    void componentsAreCutTowardZero();
    void anEvenSchemeListsItsSourcesAndNotItsColors();
    void thePreviewStartsWithTheSchemesOwnRamp();
    void thePreviewHasItsPlaceToThePixel();
    void openingEmitsNothingAndChangesNothing();
    void aSchemeWithoutRampOpensAsTheDefaultRamp();
    void levelsThatTheBoxCannotHoldAreShownAsTheNearest_data();
    void levelsThatTheBoxCannotHoldAreShownAsTheNearest();
    void anIndexThatNamesNoSchemeOpensAndWritesNothing_data();
    void anIndexThatNamesNoSchemeOpensAndWritesNothing();
    void withoutAGroupItOpensAndWritesNothing_data();
    void withoutAGroupItOpensAndWritesNothing();
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
    void theColorsHaveWords();
    void thePreviewHasWords();
    void theNameFieldAndItsWarningHaveWords();
    void itGoesAwayWithASelection();
};

namespace {

const QVector<QColor> defaultSources{{196, 69, 57}, {255, 255, 191}, {48, 95, 207}};
const HsvBounds someBounds{10, 120, 20, 80, 30, 90};

QStringList childTexts(const QAction *separatorOrAction)
{
    return {separatorOrAction->isSeparator() ? QStringLiteral("|") : separatorOrAction->text()};
}

/// The names of the embedded icons that cannot be told from this one.
QStringList iconsThatLookLike(const QIcon &icon)
{
    const QImage picture = icon.pixmap(24, 24, QIcon::Normal, QIcon::Off).toImage();
    QStringList found;
    const QFileInfoList files = QDir(QStringLiteral(":/icon")).entryInfoList();
    for (const QFileInfo &file : files) {
        if (QIcon(file.filePath()).pixmap(24, 24).toImage() == picture)
            found.append(file.completeBaseName());
    }
    return found;
}

RampPointer rampOf(VOColorRamp::ColorRampType kind)
{
    switch (kind) {
    case VOColorRamp::RandomRamp:
        return randomRamp(7, 12);
    case VOColorRamp::RandomHsvRamp:
        return hsvRamp(7, someBounds, 12);
    case VOColorRamp::EvenRamp:
        return evenRamp(defaultSources, 12);
    case VOColorRamp::PredefineRamp:
        return predefinedRamp({Qt::red, Qt::green, Qt::blue, Qt::black}, 12);
    }
    return nullptr;
}

void addKinds()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("kind");
    QTest::newRow("random") << VOColorRamp::RandomRamp;
    QTest::newRow("HSV random") << VOColorRamp::RandomHsvRamp;
    QTest::newRow("even") << VOColorRamp::EvenRamp;
    QTest::newRow("predefined") << VOColorRamp::PredefineRamp;
}

QVector<int> hsvValues(const EditorUnderTest &test)
{
    QVector<int> values;
    for (const char *name : {"spinBox_minh", "spinBox_maxh", "spinBox_mins", "spinBox_maxs",
                             "spinBox_minv", "spinBox_maxv"})
        values.append(test.box(name)->value());
    return values;
}

} // namespace

void tst_VTColorSchemeEditor::theSlotsStandInTheirOrder()
{
    const QMetaObject &meta = VTColorSchemeEditor::staticMetaObject;
    QStringList slotNames;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
        slotNames.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(slotNames,
             QStringList({"onOk()", "onClose()", "onNameChanged(QString)", "onPreview()",
                          "onLoadScheme()", "onAddColor()", "onDeleteColor()", "onSelectAll()",
                          "onInvetSelect()", "onColorAntitone()", "onTop()", "onUp()", "onBottom()",
                          "onDown()", "onSelectionChanged(QItemSelection,QItemSelection)",
                          "onColorDoubleClicked(QModelIndex)", "onTypeChanged(int)"}));
    QCOMPARE(QString::fromLatin1(meta.superClass()->className()), QStringLiteral("QDialog"));
}

void tst_VTColorSchemeEditor::itIsAModalDialogWithACloseButton()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QDialog plain;
    plain.setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint); // the toolkit adds the title
    QCOMPARE(test.editor().windowFlags(), plain.windowFlags());
    QVERIFY(!(plain.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(test.editor().objectName(), QStringLiteral("VTColorSchemeEditorBase"));
    QCOMPARE(test.editor().minimumWidth(), 555);
    QCOMPARE(test.editor().maximumWidth(), 555);
    QVERIFY(!test.editor().parentWidget());

    QWidget parent;
    const VTColorSchemeEditor child(1, &test.group, false, &parent);
    QCOMPARE(child.parentWidget(), &parent);
    QVERIFY(child.isWindow());
}

void tst_VTColorSchemeEditor::theTitleTellsAddingFromEditing()
{
    EditorUnderTest edited(evenRamp(defaultSources, 10), EditorUnderTest::EditMode);
    QCOMPARE(edited.editor().windowTitle(), QStringLiteral("Color scheme editor"));
    EditorUnderTest added(evenRamp(defaultSources, 10), EditorUnderTest::AddMode);
    QCOMPARE(added.editor().windowTitle(), QStringLiteral("Add color scheme"));
}

void tst_VTColorSchemeEditor::partsStandInTheirOrder()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    auto *outer = qobject_cast<QVBoxLayout *>(test.editor().layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QStringLiteral("verticalLayout_6"));
    const QStyle *style = test.editor().style();
    QCOMPARE(outer->contentsMargins(),
             QMargins(style->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &test.editor()), 0,
                      style->pixelMetric(QStyle::PM_LayoutRightMargin, nullptr, &test.editor()),
                      style->pixelMetric(QStyle::PM_LayoutBottomMargin, nullptr, &test.editor())));
    QCOMPARE(outer->count(), 4);

    auto *upper = qobject_cast<QVBoxLayout *>(outer->itemAt(0)->layout());
    QVERIFY(upper);
    QCOMPARE(upper->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(upper->spacing(), 0);
    QCOMPARE(upper->count(), 2);
    QCOMPARE(upper->itemAt(0)->widget()->objectName(), QStringLiteral("toolbar"));
    QCOMPARE(upper->itemAt(1)->widget()->objectName(), QStringLiteral("colorView"));

    QCOMPARE(outer->itemAt(1)->widget()->objectName(), QStringLiteral("groupBox"));
    auto *previewLayout = qobject_cast<QVBoxLayout *>(outer->itemAt(1)->widget()->layout());
    QVERIFY(previewLayout);
    QCOMPARE(previewLayout->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(previewLayout->count(), 1);
    QCOMPARE(previewLayout->itemAt(0)->widget()->objectName(), QStringLiteral("previewLabel"));

    QCOMPARE(outer->itemAt(2)->widget()->objectName(), QStringLiteral("groupBox_2"));

    auto *buttons = qobject_cast<QHBoxLayout *>(outer->itemAt(3)->layout());
    QVERIFY(buttons);
    QCOMPARE(buttons->objectName(), QStringLiteral("horizontalLayout_2"));
    QCOMPARE(buttons->count(), 3);
    const QSpacerItem *spacer = buttons->itemAt(0)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(buttons->itemAt(1)->widget()->objectName(), QStringLiteral("pushButton_ok"));
    QCOMPARE(buttons->itemAt(2)->widget()->objectName(), QStringLiteral("pushButton_cancel"));
}

void tst_VTColorSchemeEditor::theFormHasTheseWidgets_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *className, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(className) << QString::fromLatin1(text);
    };
    row("toolbar", "QToolBar", "result toolbar");
    row("colorView", "QTableView", "");
    row("groupBox", "QGroupBox", "Preview");
    row("previewLabel", "QLabel", "");
    row("groupBox_2", "QGroupBox", "Scheme information");
    row("label", "QLabel", "Name:");
    row("nameWidget", "VTLineEditWidget", "");
    row("label_3", "QLabel", "Type:");
    row("comboBox_type", "QComboBox", "");
    row("label_2", "QLabel", "Author:");
    row("lineEdit_author", "QLineEdit", "");
    row("label_4", "QLabel", "Level:");
    row("spinBox_level", "QSpinBox", "");
    row("label_5", "QLabel", "Describe:");
    row("lineEdit_describe", "QLineEdit", "");
    row("label_seed", "QLabel", "Seed:");
    row("spinBox_seed", "QSpinBox", "");
    row("groupBox_hsv", "QGroupBox", "");
    row("label_6", "QLabel", "Hue(H):");
    row("label_9", "QLabel", "Saturation(S):");
    row("label_10", "QLabel", "Value(V):");
    row("label_7", "QLabel", "Min_H");
    row("label_11", "QLabel", "Min_S");
    row("label_13", "QLabel", "Min_V");
    row("label_8", "QLabel", "Max_H");
    row("label_12", "QLabel", "Max_S");
    row("label_14", "QLabel", "Max_V");
    row("spinBox_minh", "QSpinBox", "");
    row("spinBox_mins", "QSpinBox", "");
    row("spinBox_minv", "QSpinBox", "");
    row("spinBox_maxh", "QSpinBox", "");
    row("spinBox_maxs", "QSpinBox", "");
    row("spinBox_maxv", "QSpinBox", "");
    row("pushButton_ok", "QPushButton", "Ok");
    row("pushButton_cancel", "QPushButton", "Cancel");
}

void tst_VTColorSchemeEditor::theFormHasTheseWidgets()
{
    QFETCH(QString, className);
    QFETCH(QString, text);
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QList<QWidget *> found;
    const auto widgets = test.editor().findChildren<QWidget *>(QTest::currentDataTag());
    for (QWidget *widget : widgets) {
        // The name field has a label of its own.
        if (!qobject_cast<VTLineEditWidget *>(widget->parentWidget()))
            found.append(widget);
    }
    QCOMPARE(found.size(), 1);
    QWidget *widget = found.first();
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), className);
    if (const auto *label = qobject_cast<QLabel *>(widget))
        QCOMPARE(label->text(), text);
    if (const auto *box = qobject_cast<QGroupBox *>(widget))
        QCOMPARE(box->title(), text);
    if (const auto *button = qobject_cast<QPushButton *>(widget))
        QCOMPARE(button->text(), text);
    if (const auto *bar = qobject_cast<QToolBar *>(widget))
        QCOMPARE(bar->windowTitle(), text);
}

void tst_VTColorSchemeEditor::theSchemeInformationIsAGrid()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    auto *grid = qobject_cast<QGridLayout *>(test.part<QWidget>("groupBox_2")->layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    const QVector<QStringList> rows{
        {"label", "nameWidget", "label_3", "comboBox_type"},
        {"label_2", "lineEdit_author", "label_4", "spinBox_level"},
        {"label_5", "lineEdit_describe", "label_seed", "spinBox_seed"},
        {"groupBox_hsv", "groupBox_hsv", "groupBox_hsv", "groupBox_hsv"},
    };
    QCOMPARE(grid->rowCount(), rows.size());
    QCOMPARE(grid->columnCount(), 4);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < 4; ++column)
            QCOMPARE(grid->itemAtPosition(row, column)->widget()->objectName(), rows[row][column]);
    }
    const QSizePolicy policy = test.part<QComboBox>("comboBox_type")->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Fixed);
}

void tst_VTColorSchemeEditor::theBoundsStandInColumns()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    auto *groupBox = test.part<QGroupBox>("groupBox_hsv");
    QCOMPARE(groupBox->minimumHeight(), 85);
    QCOMPARE(groupBox->maximumHeight(), 85);
    auto *outer = qobject_cast<QHBoxLayout *>(groupBox->layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(outer->contentsMargins(), QMargins(1, 2, 1, 1));
    QCOMPARE(outer->count(), 3);

    auto *captions = outer->itemAt(0)->layout();
    QCOMPARE(captions->objectName(), QStringLiteral("verticalLayout_5"));
    QCOMPARE(captions->count(), 3);
    const QStringList captionNames{"label_6", "label_9", "label_10"};
    for (int i = 0; i < 3; ++i)
        QCOMPARE(captions->itemAt(i)->widget()->objectName(), captionNames[i]);

    const QVector<QVector<QStringList>> columns{
        {{"verticalLayout_3"},
         {"horizontalLayout_3", "label_7", "spinBox_minh"},
         {"horizontalLayout_4", "label_11", "spinBox_mins"},
         {"horizontalLayout_5", "label_13", "spinBox_minv"}},
        {{"verticalLayout_4"},
         {"horizontalLayout_6", "label_8", "spinBox_maxh"},
         {"horizontalLayout_7", "label_12", "spinBox_maxs"},
         {"horizontalLayout_8", "label_14", "spinBox_maxv"}},
    };
    for (int column = 0; column < 2; ++column) {
        auto *vertical = qobject_cast<QVBoxLayout *>(outer->itemAt(column + 1)->layout());
        QVERIFY(vertical);
        QCOMPARE(vertical->objectName(), columns[column][0][0]);
        QCOMPARE(vertical->count(), 3);
        for (int row = 0; row < 3; ++row) {
            auto *horizontal = qobject_cast<QHBoxLayout *>(vertical->itemAt(row)->layout());
            QVERIFY(horizontal);
            const QStringList names = columns[column][row + 1];
            QCOMPARE(horizontal->objectName(), names[0]);
            QCOMPARE(horizontal->count(), 2);
            QCOMPARE(horizontal->itemAt(0)->widget()->objectName(), names[1]);
            QCOMPARE(horizontal->itemAt(1)->widget()->objectName(), names[2]);
        }
    }
}

void tst_VTColorSchemeEditor::theToolBarHasTheCommandsInTheirOrder()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QStringList texts;
    QStringList names;
    QStringList icons;
    const QList<QAction *> actions = test.part<QToolBar>("toolbar")->actions();
    for (const QAction *action : actions) {
        texts += childTexts(action);
        if (action->isSeparator())
            continue;
        names.append(action->objectName());
        icons += iconsThatLookLike(action->icon());
        QVERIFY2(action->isEnabled(), qPrintable(action->text()));
    }
    QCOMPARE(texts, QStringList({"Load scheme", "Add color", "Delete color", "|", "Select all",
                                 "Invert select", "Color antitone", "|", "Top", "Bottom", "|", "Up",
                                 "Down"}));
    QCOMPARE(icons, QStringList({"LoadScheme", "AddColor", "DeleteColor", "SelectAll",
                                 "InvertSelect", "Antitone", "Top", "Bottom", "Up", "Down"}));
    QCOMPARE(names, QStringList({"actionLoad_scheme", "actionAdd_color", "actionDelete_color",
                                 "actionSelect_all", "actionInvert_select", "actionColor_antitone",
                                 "actionTop", "actionBottom", "actionUp", "actionDown"}));
}

void tst_VTColorSchemeEditor::theToolBarIsFlatAndFixed()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const auto *bar = test.part<QToolBar>("toolbar");
    QCOMPARE(bar->minimumHeight(), 30);
    QCOMPARE(bar->maximumHeight(), 30);
    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QVERIFY(!bar->isFloatable());
    QCOMPARE(bar->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(bar->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    const auto *previewBox = test.part<QGroupBox>("groupBox");
    QCOMPARE(previewBox->minimumHeight(), 60);
    QCOMPARE(previewBox->maximumHeight(), 60);
    const auto *preview = test.part<QLabel>("previewLabel");
    QCOMPARE(preview->minimumHeight(), 30);
    QCOMPARE(preview->maximumHeight(), 30);
}

void tst_VTColorSchemeEditor::theColorViewSelectsRowsAndEditsNothing()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QTableView *view = test.view();
    QCOMPARE(view->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QVERIFY(view->verticalHeader()->isHidden());
    QVERIFY(!view->horizontalHeader()->isHidden());
    QCOMPARE(view->iconSize(), QSize(500, 23));
    QCOMPARE(test.model()->QObject::parent(), &test.editor());
}

void tst_VTColorSchemeEditor::theColumnsAreANumberAndTheRest()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QTableView *view = test.view();
    const QHeaderView *header = view->horizontalHeader();
    QVERIFY(header->stretchLastSection());
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(view->columnWidth(0), 25);
    test.editor().show();
    QCOMPARE(view->columnWidth(0), 25);
    QCOMPARE(view->columnWidth(1), view->viewport()->width() - 25);
}

void tst_VTColorSchemeEditor::numbersBoxesHaveTheirRanges_data()
{
    QTest::addColumn<int>("minimum");
    QTest::newRow("spinBox_level") << 2;
    for (const char *name : {"spinBox_seed", "spinBox_minh", "spinBox_mins", "spinBox_minv",
                             "spinBox_maxh", "spinBox_maxs", "spinBox_maxv"})
        QTest::newRow(name) << 0;
}

void tst_VTColorSchemeEditor::numbersBoxesHaveTheirRanges()
{
    QFETCH(int, minimum);
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QSpinBox *box = test.box(QTest::currentDataTag());
    QCOMPARE(box->minimum(), minimum);
    QCOMPARE(box->maximum(), 1000);
}

void tst_VTColorSchemeEditor::theKindsAreNumberedAsTheRampsAre()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const auto *combo = test.part<QComboBox>("comboBox_type");
    QCOMPARE(combo->count(), 4);
    QCOMPARE(combo->itemText(VOColorRamp::RandomRamp), QStringLiteral("Random"));
    QCOMPARE(combo->itemText(VOColorRamp::RandomHsvRamp), QStringLiteral("RandomForHsv"));
    QCOMPARE(combo->itemText(VOColorRamp::EvenRamp), QStringLiteral("Even"));
    QCOMPARE(combo->itemText(VOColorRamp::PredefineRamp), QStringLiteral("Predefine"));
    for (int i = 0; i < 4; ++i) {
        QVERIFY(combo->itemIcon(i).isNull());
        QVERIFY(!combo->itemData(i).isValid());
    }
}

void tst_VTColorSchemeEditor::labelsNameTheirFields()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    QHash<QString, QString> buddies;
    const auto labels = test.editor().findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy())
            buddies.insert(label->text(), label->buddy()->objectName());
    }
    QCOMPARE(buddies.value(QStringLiteral("Name:")), QStringLiteral("nameWidget"));
    QCOMPARE(buddies.value(QStringLiteral("Type:")), QStringLiteral("comboBox_type"));
    QCOMPARE(buddies.value(QStringLiteral("Level:")), QStringLiteral("spinBox_level"));
    QCOMPARE(buddies.value(QStringLiteral("Seed:")), QStringLiteral("spinBox_seed"));
    QCOMPARE(buddies.value(QStringLiteral("Max_V")), QStringLiteral("spinBox_maxv"));
    QCOMPARE(buddies.size(), 12);
}

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
    QCOMPARE(hsvValues(test), QVector<int>({10, 120, 20, 80, 30, 90}));
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

void tst_VTColorSchemeEditor::thePreviewHasItsPlaceToThePixel()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    test.editor().show();
    const auto *preview = test.part<QLabel>("previewLabel");
    QCOMPARE(preview->height(), 30);
    QVERIFY(preview->width() >= 515);
    QVERIFY(preview->parentWidget()->rect().contains(preview->geometry()));
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

void tst_VTColorSchemeEditor::theRowsAndTheSizeFollowTheKind_data()
{
    addKinds();
}

void tst_VTColorSchemeEditor::theRowsAndTheSizeFollowTheKind()
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

void tst_VTColorSchemeEditor::aShownDialogFollowsTheKind()
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

void tst_VTColorSchemeEditor::pickingRandomSetsItsSeed_data()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("stored");
    QTest::addColumn<int>("seed");
    QTest::newRow("stored as random") << VOColorRamp::RandomRamp << 7;
    QTest::newRow("stored as HSV random") << VOColorRamp::RandomHsvRamp << 2;
    QTest::newRow("stored as even") << VOColorRamp::EvenRamp << 2;
    QTest::newRow("stored as predefined") << VOColorRamp::PredefineRamp << 2;
}

void tst_VTColorSchemeEditor::pickingRandomSetsItsSeed()
{
    QFETCH(VOColorRamp::ColorRampType, stored);
    QFETCH(int, seed);
    EditorUnderTest test(rampOf(stored));
    test.box("spinBox_seed")->setValue(555);
    test.chooseType(VOColorRamp::RandomRamp);
    QCOMPARE(test.box("spinBox_seed")->value(), seed);
    QVERIFY(!test.box("spinBox_seed")->signalsBlocked());
}

void tst_VTColorSchemeEditor::pickingTheHsvKindSetsItsBounds_data()
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

void tst_VTColorSchemeEditor::pickingTheHsvKindSetsItsBounds()
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
    QCOMPARE(hsvValues(test), bounds);
    for (const QSpinBox *box : boxes)
        QVERIFY(!box->signalsBlocked());
}

void tst_VTColorSchemeEditor::pickingAKindPreviewsOnce()
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

void tst_VTColorSchemeEditor::pickingAKindKeepsTheColorsAndTheScheme()
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

void tst_VTColorSchemeEditor::aKindThatDoesNotExistChangesNothing()
{
    EditorUnderTest test(hsvRamp(7, someBounds, 12));
    for (const int index : {-1, 4, 1000}) {
        QVERIFY(QMetaObject::invokeMethod(&test.editor(), "onTypeChanged", Q_ARG(int, index)));
        QVERIFY(!test.part<QGroupBox>("groupBox_hsv")->isHidden());
        QCOMPARE(test.editor().size(), QSize(555, 515));
        QCOMPARE(hsvValues(test), QVector<int>({10, 120, 20, 80, 30, 90}));
    }
}

void tst_VTColorSchemeEditor::settingTheBoxByCodeIsNoChoice()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QImage before = test.preview();
    test.part<QComboBox>("comboBox_type")->setCurrentIndex(VOColorRamp::RandomHsvRamp);
    QVERIFY(test.part<QGroupBox>("groupBox_hsv")->isHidden());
    QCOMPARE(test.preview(), before);
}

void tst_VTColorSchemeEditor::everyNumberBoxRefreshesThePreview_data()
{
    QTest::addColumn<QString>("box");
    for (const char *name : {"spinBox_level", "spinBox_seed", "spinBox_minh", "spinBox_mins",
                             "spinBox_minv", "spinBox_maxh", "spinBox_maxs", "spinBox_maxv"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_VTColorSchemeEditor::everyNumberBoxRefreshesThePreview()
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

void tst_VTColorSchemeEditor::everyCommandRunsItsSlot_data()
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

void tst_VTColorSchemeEditor::everyCommandRunsItsSlot()
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
