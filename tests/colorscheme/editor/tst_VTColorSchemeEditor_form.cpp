#include "tests/support/EditorUnderTest.h"

#include "colorscheme/manager/VTLineEditWidget.h"
#include "tests/support/TestMain.h"

#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QToolBar>
#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

namespace {

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

} // namespace

class tst_VTColorSchemeEditor_form : public QObject
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
    void thePreviewHasItsPlaceToThePixel();
};

void tst_VTColorSchemeEditor_form::theSlotsStandInTheirOrder()
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

void tst_VTColorSchemeEditor_form::itIsAModalDialogWithACloseButton()
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

void tst_VTColorSchemeEditor_form::theTitleTellsAddingFromEditing()
{
    EditorUnderTest edited(evenRamp(defaultSources, 10), EditorUnderTest::EditMode);
    QCOMPARE(edited.editor().windowTitle(), QStringLiteral("Color scheme editor"));
    EditorUnderTest added(evenRamp(defaultSources, 10), EditorUnderTest::AddMode);
    QCOMPARE(added.editor().windowTitle(), QStringLiteral("Add color scheme"));
}

void tst_VTColorSchemeEditor_form::partsStandInTheirOrder()
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

void tst_VTColorSchemeEditor_form::theFormHasTheseWidgets_data()
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

void tst_VTColorSchemeEditor_form::theFormHasTheseWidgets()
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

void tst_VTColorSchemeEditor_form::theSchemeInformationIsAGrid()
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

void tst_VTColorSchemeEditor_form::theBoundsStandInColumns()
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

void tst_VTColorSchemeEditor_form::theToolBarHasTheCommandsInTheirOrder()
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

void tst_VTColorSchemeEditor_form::theToolBarIsFlatAndFixed()
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

void tst_VTColorSchemeEditor_form::theColorViewSelectsRowsAndEditsNothing()
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

void tst_VTColorSchemeEditor_form::theColumnsAreANumberAndTheRest()
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

void tst_VTColorSchemeEditor_form::numbersBoxesHaveTheirRanges_data()
{
    QTest::addColumn<int>("minimum");
    QTest::newRow("spinBox_level") << 2;
    for (const char *name : {"spinBox_seed", "spinBox_minh", "spinBox_mins", "spinBox_minv",
                             "spinBox_maxh", "spinBox_maxs", "spinBox_maxv"})
        QTest::newRow(name) << 0;
}

void tst_VTColorSchemeEditor_form::numbersBoxesHaveTheirRanges()
{
    QFETCH(int, minimum);
    EditorUnderTest test(evenRamp(defaultSources, 10));
    const QSpinBox *box = test.box(QTest::currentDataTag());
    QCOMPARE(box->minimum(), minimum);
    QCOMPARE(box->maximum(), 1000);
}

void tst_VTColorSchemeEditor_form::theKindsAreNumberedAsTheRampsAre()
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

void tst_VTColorSchemeEditor_form::labelsNameTheirFields()
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

void tst_VTColorSchemeEditor_form::thePreviewHasItsPlaceToThePixel()
{
    EditorUnderTest test(evenRamp(defaultSources, 10));
    test.editor().show();
    const auto *preview = test.part<QLabel>("previewLabel");
    QCOMPARE(preview->height(), 30);
    QVERIFY(preview->width() >= 515);
    QVERIFY(preview->parentWidget()->rect().contains(preview->geometry()));
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_form)
#include "tst_VTColorSchemeEditor_form.moc"
