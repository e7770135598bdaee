#include "tests/colorscheme/editor/EditorUnderTest.h"

#include "colorscheme/model/colorConversion.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"
#include "vtgiscore/VTApplication.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QMessageBox>
#include <QtTest>

#include <functional>

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

    void anUnusableNameIsWarnedAbout_data();
    void anUnusableNameIsWarnedAbout();
    void theNewSchemesOwnNameCountsAsTaken();
    void theWarningGoesWithTheReason();
    void theNameIsNotCheckedBeforeItIsEdited();

    void okWritesTheScheme();
    void okStoresTheNameUntrimmed();
    void okReplacesTheRampAndLeavesTheOtherSchemes();
    void theOldRampGoesOnceTheNewOneStandsInItsPlace();
    void cancelLeavesAnEditedScheme();
    void cancelRemovesANewScheme();
    void cancelRemovesANewSchemeWhereverItStands();
    void escapeAndTheTitleBarLeaveANewScheme_data();
    void escapeAndTheTitleBarLeaveANewScheme();
    void escapeLeavesAnEditedScheme();
    void savingIsNotItsBusiness();

    void aLoadedFileFillsTheWidgets_data();
    void aLoadedFileFillsTheWidgets();
    void loadingLeavesTheVisibleRows();
    void loadingChecksNoName();
    void loadingShowsTheFilesOwnColors();
    void loadingMoreColorsThanTheBoxHolds();
    void cancelingTheFileDialogChangesNothing();
    void anUnreadableFileIsReported_data();
    void anUnreadableFileIsReported();
    void theFileDialogIsOurs();
    void theFileDialogStartsAtTheLastPath_data();
    void theFileDialogStartsAtTheLastPath();
    void loadingWritesNoSetting();

private:
    /// Chooses a file in the toolkit's own dialog; an empty name cancels it.
    void loadFile(EditorUnderTest &test, const QString &file);
    QString savedScheme(RampPointer ramp, const QString &name);

    std::unique_ptr<TestStore> store;
};

namespace {

const QVector<QColor> someColors{QColor(10, 20, 30), QColor(40, 50, 60), QColor(70, 80, 90),
                                 QColor(100, 110, 120)};
const HsvBounds someBounds{10, 120, 20, 80, 30, 90};

void type(QLineEdit *field, const QString &text)
{
    const bool onKeyboard = std::all_of(text.cbegin(), text.cend(),
                                        [](QChar letter) { return letter.unicode() < 128; });
    if (onKeyboard) {
        QTest::keyClicks(field, text);
        return;
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(field, &event);
}

} // namespace

void tst_VTColorSchemeEditor_ramp::loadFile(EditorUnderTest &test, const QString &file)
{
    ModalDriver driver;
    driver.next([&file](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        if (file.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QVERIFY(field);
        field->setText(file);
        QTest::keyClick(field, Qt::Key_Return);
    });
    test.run("onLoadScheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

QString tst_VTColorSchemeEditor_ramp::savedScheme(RampPointer ramp, const QString &name)
{
    VOColorScheme scheme;
    scheme.name = toVOString(name);
    scheme.author = L"An author";
    scheme.describe = L"From a file";
    scheme.colorRamp = ramp.release();
    const QString path = store->path(QStringLiteral("saved.vcs"));
    if (!VOColorSchemeManager::saveFile(scheme, toVOString(path)))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

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

void tst_VTColorSchemeEditor_ramp::anUnusableNameIsWarnedAbout_data()
{
    QTest::addColumn<bool>("added");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("warning");
    const QString empty = QStringLiteral("The name cannot be empty!");
    const QString taken = QStringLiteral("The name already exists!");
    for (const bool added : {false, true}) {
        const char *mode = added ? "adding" : "editing";
        QTest::addRow("%s: nothing left", mode) << added << QString() << empty;
        QTest::addRow("%s: blanks only", mode) << added << QString("   ") << empty;
        QTest::addRow("%s: a new name", mode) << added << QString("Fresh") << QString();
        QTest::addRow("%s: another scheme's name", mode) << added << QString("After") << taken;
        QTest::addRow("%s: another scheme's name in blanks", mode)
            << added << QString("  Before ") << taken;
        QTest::addRow("%s: another letter case", mode) << added << QString("AFTER") << QString();
        QTest::addRow("%s: blanks around a new name", mode)
            << added << QString(" Fresh ") << QString();
        QTest::addRow("%s: a name of many scripts", mode)
            << added << QString::fromUtf8("Höhe 高度 \U0001F30D") << QString();
    }
    QTest::newRow("editing: its own name") << false << QString("Mine") << QString();
    QTest::newRow("editing: its own name in blanks") << false << QString(" Mine ") << QString();
    QTest::newRow("adding: its own first name") << true << QString("add_scheme1") << taken;
}

void tst_VTColorSchemeEditor_ramp::anUnusableNameIsWarnedAbout()
{
    QFETCH(bool, added);
    QFETCH(QString, typed);
    QFETCH(QString, warning);
    EditorUnderTest test(evenRamp(someColors, 6),
                         added ? EditorUnderTest::AddMode : EditorUnderTest::EditMode);
    test.nameField()->selectAll();
    QTest::keyClick(test.nameField(), Qt::Key_Delete);
    QCOMPARE(test.warning(), QStringLiteral("The name cannot be empty!"));
    type(test.nameField(), typed);
    QCOMPARE(test.nameField()->text(), typed);
    QCOMPARE(test.warning(), warning);
    QCOMPARE(test.ok()->isEnabled(), warning.isEmpty());
}

void tst_VTColorSchemeEditor_ramp::theNewSchemesOwnNameCountsAsTaken()
{
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    QVERIFY(test.ok()->isEnabled());
    QTest::keyClicks(test.nameField(), QStringLiteral("x"));
    QVERIFY(test.ok()->isEnabled());
    QTest::keyClick(test.nameField(), Qt::Key_Backspace);
    QCOMPARE(test.nameField()->text(), QStringLiteral("add_scheme1"));
    QCOMPARE(test.warning(), QStringLiteral("The name already exists!"));
    QVERIFY(!test.ok()->isEnabled());
}

void tst_VTColorSchemeEditor_ramp::theWarningGoesWithTheReason()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->selectAll();
    QTest::keyClicks(test.nameField(), QStringLiteral("After"));
    QVERIFY(!test.ok()->isEnabled());
    QTest::keyClicks(test.nameField(), QStringLiteral("wards"));
    QCOMPARE(test.warning(), QString());
    QVERIFY(test.ok()->isEnabled());
}

void tst_VTColorSchemeEditor_ramp::theNameIsNotCheckedBeforeItIsEdited()
{
    VOColorSchemeGroup group =
        makeGroup(QStringLiteral("Group"), {QStringLiteral("Same"), QStringLiteral("Same")});
    VTColorSchemeEditor editor(1, &group, false, nullptr);
    QVERIFY(editor.findChild<QPushButton *>(QStringLiteral("pushButton_ok"))->isEnabled());
}

void tst_VTColorSchemeEditor_ramp::okWritesTheScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->setText(QString::fromUtf8("Höhe \U0001F30D"));
    test.part<QLineEdit>("lineEdit_author")->setText(QStringLiteral("An author"));
    test.part<QLineEdit>("lineEdit_describe")->setText(QStringLiteral("A description"));
    test.box("spinBox_level")->setValue(77);
    QSignalSpy accepted(&test.editor(), &QDialog::accepted);
    QTest::mouseClick(test.ok(), Qt::LeftButton);
    QCOMPARE(accepted.size(), 1);
    QCOMPARE(test.editor().result(), int(QDialog::Accepted));
    QCOMPARE(toQString(test.scheme().name), QString::fromUtf8("Höhe \U0001F30D"));
    QCOMPARE(toQString(test.scheme().author), QStringLiteral("An author"));
    QCOMPARE(toQString(test.scheme().describe), QStringLiteral("A description"));
    QCOMPARE(outputColors(test.scheme().colorRamp), outputColors(evenRamp(someColors, 77).get()));
}

void tst_VTColorSchemeEditor_ramp::okStoresTheNameUntrimmed()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.nameField()->selectAll();
    QTest::keyClicks(test.nameField(), QStringLiteral(" Fresh "));
    QTest::mouseClick(test.ok(), Qt::LeftButton);
    QCOMPARE(toQString(test.scheme().name), QStringLiteral(" Fresh "));
}

void tst_VTColorSchemeEditor_ramp::okReplacesTheRampAndLeavesTheOtherSchemes()
{
    bool gone = false;
    class WatchedRamp : public VOEvenColorRamp
    {
    public:
        explicit WatchedRamp(bool &goneFlag)
            : gone(goneFlag)
        {
        }
        ~WatchedRamp() override { gone = true; }

    private:
        bool &gone;
    };
    auto ramp = std::make_unique<WatchedRamp>(gone);
    ramp->split(3);
    EditorUnderTest test(std::move(ramp));
    const VOColorRamp *other = test.group.schemes[0].colorRamp;
    test.run("onPreview");
    QVERIFY(!gone);
    QVERIFY(test.storedByOk());
    QVERIFY(gone);
    QCOMPARE(test.group.schemes.size(), std::size_t(3));
    QCOMPARE(test.group.schemes[0].colorRamp, other);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ramp::theOldRampGoesOnceTheNewOneStandsInItsPlace()
{
    class AskingRamp : public VOEvenColorRamp
    {
    public:
        explicit AskingRamp(std::function<void()> onGoing)
            : going(std::move(onGoing))
        {
        }
        ~AskingRamp() override { going(); }

    private:
        std::function<void()> going;
    };
    const VOColorScheme *scheme = nullptr;
    QString seen;
    auto ramp = std::make_unique<AskingRamp>([&] {
        if (scheme->colorRamp->category() == VOColorRamp::RandomRamp)
            seen = toQString(scheme->name);
    });
    ramp->split(3);
    EditorUnderTest test(std::move(ramp));
    scheme = &test.scheme();
    test.nameField()->setText(QStringLiteral("Other"));
    test.chooseType(VOColorRamp::RandomRamp);
    test.run("onOk");
    QCOMPARE(seen, QStringLiteral("Other"));
}

void tst_VTColorSchemeEditor_ramp::cancelLeavesAnEditedScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    const VOColorRamp *ramp = test.scheme().colorRamp;
    test.nameField()->setText(QStringLiteral("Other"));
    test.chooseType(VOColorRamp::RandomRamp);
    test.run("onAddColor");
    QSignalSpy rejected(&test.editor(), &QDialog::rejected);
    QTest::mouseClick(test.part<QPushButton>("pushButton_cancel"), Qt::LeftButton);
    QCOMPARE(rejected.size(), 1);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
    QCOMPARE(test.scheme().colorRamp, ramp);
    QCOMPARE(outputColors(test.scheme().colorRamp), outputColors(evenRamp(someColors, 6).get()));
}

void tst_VTColorSchemeEditor_ramp::cancelRemovesANewScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    QSignalSpy rejected(&test.editor(), &QDialog::rejected);
    QTest::mouseClick(test.part<QPushButton>("pushButton_cancel"), Qt::LeftButton);
    QCOMPARE(rejected.size(), 1);
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ramp::cancelRemovesANewSchemeWhereverItStands()
{
    VOColorSchemeGroup group = makeGroup(
        QStringLiteral("Group"), {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    VTColorSchemeEditor editor(1, &group, true, nullptr);
    QVERIFY(QMetaObject::invokeMethod(&editor, "onClose"));
    QCOMPARE(schemeNames(group), QStringList({"A", "C"}));
}

void tst_VTColorSchemeEditor_ramp::escapeAndTheTitleBarLeaveANewScheme_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("Escape") << true;
    QTest::newRow("the title bar's button") << false;
}

void tst_VTColorSchemeEditor_ramp::escapeAndTheTitleBarLeaveANewScheme()
{
    QFETCH(bool, escape);
    EditorUnderTest test(evenRamp(someColors, 6), EditorUnderTest::AddMode);
    const VOColorRamp *ramp = test.scheme().colorRamp;
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        test.run("onAddColor");
        if (escape)
            QTest::keyClick(window, Qt::Key_Escape);
        else
            window->close();
    });
    QCOMPARE(test.editor().exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After", "add_scheme1"}));
    QCOMPARE(test.scheme().colorRamp, ramp);
}

void tst_VTColorSchemeEditor_ramp::escapeLeavesAnEditedScheme()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    ModalDriver driver;
    driver.next([&](QWidget *window) {
        test.nameField()->setText(QStringLiteral("Other"));
        QTest::keyClick(window, Qt::Key_Escape);
    });
    QCOMPARE(test.editor().exec(), int(QDialog::Rejected));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(test.group), QStringList({"Before", "Mine", "After"}));
}

void tst_VTColorSchemeEditor_ramp::savingIsNotItsBusiness()
{
    VOColorSchemeManager *records = VOColorSchemeManager::instance();
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Own"), {QStringLiteral("A")}));
    QVERIFY(records->save());
    {
        VTColorSchemeEditor editor(0, &records->customTeam.groups.back(), false, nullptr);
        editor.findChild<QLineEdit *>(QStringLiteral("lineEdit"))->setText(QStringLiteral("B"));
        QVERIFY(QMetaObject::invokeMethod(&editor, "onOk"));
        QCOMPARE(schemeNames(records->customTeam.groups.back()), QStringList({"B"}));
    }
    QVERIFY(records->load());
    QCOMPARE(schemeNames(records->customTeam.groups.back()), QStringList({"A"}));
}

void tst_VTColorSchemeEditor_ramp::aLoadedFileFillsTheWidgets_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << 0;
    QTest::newRow("HSV random") << 1;
    QTest::newRow("even") << 2;
    QTest::newRow("predefined") << 3;
}

void tst_VTColorSchemeEditor_ramp::aLoadedFileFillsTheWidgets()
{
    QFETCH(int, kind);
    RampPointer ramps[] = {randomRamp(33, 6), hsvRamp(44, someBounds, 7), evenRamp(someColors, 8),
                           predefinedRamp(someColors, 9)};
    const QImage strip = stripOf(ramps[kind].get());
    const QVector<QColor> listed =
        kind < 2 ? outputColors(ramps[kind].get()) : QVector<QColor>(someColors);
    const QString file = savedScheme(std::move(ramps[kind]), QStringLiteral("Saved"));

    EditorUnderTest test(evenRamp({Qt::red, Qt::blue}, 3));
    const VOColorRamp *ramp = test.scheme().colorRamp;
    loadFile(test, file);
    QCOMPARE(test.nameField()->text(), QStringLiteral("Saved"));
    QCOMPARE(test.part<QLineEdit>("lineEdit_author")->text(), QStringLiteral("An author"));
    QCOMPARE(test.part<QLineEdit>("lineEdit_describe")->text(), QStringLiteral("From a file"));
    QCOMPARE(test.part<QComboBox>("comboBox_type")->currentIndex(), kind);
    QCOMPARE(test.box("spinBox_level")->value(), 6 + kind);
    QCOMPARE(test.colors(), listed);
    QCOMPARE(test.preview(), strip);
    if (kind < 2)
        QCOMPARE(test.box("spinBox_seed")->value(), kind == 0 ? 33 : 44);
    if (kind == 1)
        QCOMPARE(test.box("spinBox_maxv")->value(), someBounds.maxV);
    // The scheme waits for OK.
    QCOMPARE(test.scheme().colorRamp, ramp);
    QCOMPARE(toQString(test.scheme().name), QStringLiteral("Mine"));
    QCOMPARE(stripOf(test.storedByOk()), strip);
    QCOMPARE(toQString(test.scheme().name), QStringLiteral("Saved"));
}

void tst_VTColorSchemeEditor_ramp::loadingLeavesTheVisibleRows()
{
    EditorUnderTest even(evenRamp({Qt::red, Qt::blue}, 3));
    loadFile(even, savedScheme(hsvRamp(44, someBounds, 7), QStringLiteral("Saved")));
    QCOMPARE(even.part<QComboBox>("comboBox_type")->currentIndex(),
             int(VOColorRamp::RandomHsvRamp));
    QVERIFY(even.part<QGroupBox>("groupBox_hsv")->isHidden());
    QVERIFY(even.box("spinBox_seed")->isHidden());
    QCOMPARE(even.editor().size(), QSize(555, 450));

    EditorUnderTest hsv(hsvRamp(44, someBounds, 7));
    loadFile(hsv, savedScheme(evenRamp({Qt::red, Qt::blue}, 3), QStringLiteral("Saved")));
    QVERIFY(!hsv.part<QGroupBox>("groupBox_hsv")->isHidden());
    QVERIFY(!hsv.box("spinBox_seed")->isHidden());
    QCOMPARE(hsv.editor().size(), QSize(555, 515));
}

void tst_VTColorSchemeEditor_ramp::loadingChecksNoName()
{
    const QString file = savedScheme(evenRamp(someColors, 6), QStringLiteral("After"));
    EditorUnderTest test(evenRamp(someColors, 6));
    loadFile(test, file);
    QCOMPARE(test.nameField()->text(), QStringLiteral("After"));
    QCOMPARE(test.warning(), QString());
    QVERIFY(test.ok()->isEnabled());

    EditorUnderTest warned(evenRamp(someColors, 6));
    warned.nameField()->selectAll();
    QTest::keyClick(warned.nameField(), Qt::Key_Delete);
    loadFile(warned, savedScheme(evenRamp(someColors, 6), QStringLiteral("Fresh")));
    QCOMPARE(warned.nameField()->text(), QStringLiteral("Fresh"));
    QCOMPARE(warned.warning(), QStringLiteral("The name cannot be empty!"));
    QVERIFY(!warned.ok()->isEnabled());
}

void tst_VTColorSchemeEditor_ramp::loadingShowsTheFilesOwnColors()
{
    // The boxes change one after the other while a file is loaded, and each change previews.
    auto ramp = evenRamp(someColors, 5);
    ramp->setColor(2, {0, 255, 0});
    const QImage strip = stripOf(ramp.get());
    EditorUnderTest test(hsvRamp(44, someBounds, 7));
    loadFile(test, savedScheme(std::move(ramp), QStringLiteral("Saved")));
    QCOMPARE(test.preview(), strip);
}

void tst_VTColorSchemeEditor_ramp::loadingMoreColorsThanTheBoxHolds()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    loadFile(test, savedScheme(randomRamp(5, 2500), QStringLiteral("Saved")));
    QCOMPARE(test.colors().size(), 2500);
    QCOMPARE(test.box("spinBox_level")->value(), 1000);
    const QVector<QColor> loaded = test.colors();
    QCOMPARE(outputColors(test.storedByOk()), loaded.mid(0, 1000));
}

void tst_VTColorSchemeEditor_ramp::cancelingTheFileDialogChangesNothing()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    test.select({1});
    const QImage before = test.preview();
    loadFile(test, QString());
    QCOMPARE(test.nameField()->text(), QStringLiteral("Mine"));
    QCOMPARE(test.colors(), someColors);
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    QCOMPARE(test.preview(), before);
}

void tst_VTColorSchemeEditor_ramp::anUnreadableFileIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not a scheme") << "bad.vcs" << QByteArray("no scheme at all");
    QTest::newRow("empty") << "empty.vcs" << QByteArray();
    QTest::newRow("cut off") << "cut.vcs" << QByteArray("{\"format\":");
    // A backslash separates folders in paths of other systems, so it cannot be part of a name.
    QTest::newRow("a backslash in its name") << "back\\slash.vcs" << QByteArray();
}

void tst_VTColorSchemeEditor_ramp::anUnreadableFileIsReported()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const QString path = store->path(name);
    if (name.contains(QLatin1Char('\\'))) {
        const QString good = savedScheme(evenRamp(someColors, 6), QStringLiteral("Saved"));
        QVERIFY(QFile::rename(good, path));
    } else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    EditorUnderTest test(evenRamp({Qt::red, Qt::blue}, 6));
    test.select({1});
    const QImage before = test.preview();
    ModalDriver driver;
    driver.next([&path](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        field->setText(path);
        QTest::keyClick(field, Qt::Key_Return);
    });
    driver.next([&test](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parentWidget(), &test.editor());
        QCOMPARE(box->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(box->text(), QStringLiteral("Failed to open file!"));
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->standardButtons(), QMessageBox::Close);
        QTest::mouseClick(box->button(QMessageBox::Close), Qt::LeftButton);
    });
    test.run("onLoadScheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(test.nameField()->text(), QStringLiteral("Mine"));
    QCOMPARE(test.colors(), QVector<QColor>({Qt::red, Qt::blue}));
    QCOMPARE(test.selectedRows(), QVector<int>({1}));
    QCOMPARE(test.preview(), before);
}

void tst_VTColorSchemeEditor_ramp::theFileDialogIsOurs()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    ModalDriver driver;
    driver.next([&test](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        QCOMPARE(dialog->parentWidget(), &test.editor());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(dialog->nameFilters(), QStringList({"*.vcs"}));
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    test.run("onLoadScheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeEditor_ramp::theFileDialogStartsAtTheLastPath_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("followed");
    QTest::newRow("a folder") << "somewhere" << true;
    QTest::newRow("a data source") << "VTSDE30_somewhere" << false;
    QTest::newRow("another letter case") << "vtsde30_somewhere" << true;
}

void tst_VTColorSchemeEditor_ramp::theFileDialogStartsAtTheLastPath()
{
    QFETCH(QString, folder);
    QFETCH(bool, followed);
    // Relative, so that the value itself begins as the row says.
    const QString former = QDir::currentPath();
    QVERIFY(QDir(store->path()).mkdir(folder));
    QVERIFY(QDir::setCurrent(store->path()));
    store->setLastOpenFilePath(folder);
    EditorUnderTest test(evenRamp(someColors, 6));
    QString start;
    ModalDriver driver;
    driver.next([&start](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        start = dialog->directory().canonicalPath();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    test.run("onLoadScheme");
    QVERIFY(QDir::setCurrent(former));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(start == QDir(store->path(folder)).canonicalPath(), followed);
}

void tst_VTColorSchemeEditor_ramp::loadingWritesNoSetting()
{
    store->setLastOpenFilePath(QStringLiteral("/nowhere"));
    const QString settings = VTApplication::vtgisSettingsFilePath();
    const auto content = [&settings] {
        QFile file(settings);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = content();
    QVERIFY(!before.isEmpty());
    EditorUnderTest test(evenRamp({Qt::red, Qt::blue}, 6));
    loadFile(test, savedScheme(evenRamp(someColors, 6), QStringLiteral("Saved")));
    QCOMPARE(test.colors(), someColors);
    QCOMPARE(content(), before);
}

VT_TEST_MAIN(tst_VTColorSchemeEditor_ramp)
#include "tst_VTColorSchemeEditor_ramp.moc"
