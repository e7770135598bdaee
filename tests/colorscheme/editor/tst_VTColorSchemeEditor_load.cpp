#include "tests/support/EditorUnderTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"
#include "vtgiscore/VTApplication.h"

#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QMessageBox>
#include <QtTest>

using namespace EditorColors;
using namespace VTObjects;

class tst_VTColorSchemeEditor_load : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void aLoadedFileFillsTheWidgets_data();
    void aLoadedFileFillsTheWidgets();
    void loadingLeavesTheVisibleRows();
    void loadingChecksNoName();
    void loadingShowsTheFilesOwnColors();
    void loadingMoreColorsThanTheBoxHolds();
    void cancelingTheFileDialogChangesNothing();
    void anUnreadableFileIsReported_data();
    void anUnreadableFileIsReported();
    void noColorOfALoadedFileCanBeMovedUnselected();
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

void tst_VTColorSchemeEditor_load::loadFile(EditorUnderTest &test, const QString &file)
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

QString tst_VTColorSchemeEditor_load::savedScheme(RampPointer ramp, const QString &name)
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

void tst_VTColorSchemeEditor_load::aLoadedFileFillsTheWidgets_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << 0;
    QTest::newRow("HSV random") << 1;
    QTest::newRow("even") << 2;
    QTest::newRow("predefined") << 3;
}

void tst_VTColorSchemeEditor_load::aLoadedFileFillsTheWidgets()
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

void tst_VTColorSchemeEditor_load::loadingLeavesTheVisibleRows()
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

void tst_VTColorSchemeEditor_load::loadingChecksNoName()
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

void tst_VTColorSchemeEditor_load::loadingShowsTheFilesOwnColors()
{
    // The boxes change one after the other while a file is loaded, and each change previews.
    auto ramp = evenRamp(someColors, 5);
    ramp->setColor(2, {0, 255, 0});
    const QImage strip = stripOf(ramp.get());
    EditorUnderTest test(hsvRamp(44, someBounds, 7));
    loadFile(test, savedScheme(std::move(ramp), QStringLiteral("Saved")));
    QCOMPARE(test.preview(), strip);
}

void tst_VTColorSchemeEditor_load::loadingMoreColorsThanTheBoxHolds()
{
    EditorUnderTest test(evenRamp(someColors, 6));
    loadFile(test, savedScheme(randomRamp(5, 2500), QStringLiteral("Saved")));
    QCOMPARE(test.colors().size(), 2500);
    QCOMPARE(test.box("spinBox_level")->value(), 1000);
    const QVector<QColor> loaded = test.colors();
    QCOMPARE(outputColors(test.storedByOk()), loaded.mid(0, 1000));
}

void tst_VTColorSchemeEditor_load::cancelingTheFileDialogChangesNothing()
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

void tst_VTColorSchemeEditor_load::anUnreadableFileIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not a scheme") << "bad.vcs" << QByteArray("no scheme at all");
    QTest::newRow("empty") << "empty.vcs" << QByteArray();
    QTest::newRow("cut off") << "cut.vcs" << QByteArray("{\"format\":");
    // A backslash separates folders in paths of other systems, so it cannot be part of a name.
    QTest::newRow("a backslash in its name") << "back\\slash.vcs" << QByteArray();
}

void tst_VTColorSchemeEditor_load::anUnreadableFileIsReported()
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
    driver.next([&test, &path](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        QVERIFY(box);
        QCOMPARE(box->parentWidget(), &test.editor());
        QCOMPARE(box->windowTitle(), QStringLiteral("Open color scheme file"));
        QCOMPARE(box->text(), QStringLiteral("Failed to open file!"));
        QVERIFY2(
            box->informativeText().startsWith(QFileInfo(path).fileName() + QLatin1String(": ")),
            qPrintable(box->informativeText()));
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

void tst_VTColorSchemeEditor_load::noColorOfALoadedFileCanBeMovedUnselected()
{
    const QString path = savedScheme(evenRamp(someColors, 6), QStringLiteral("Saved"));
    EditorUnderTest fresh(evenRamp({Qt::red, Qt::blue}, 6));
    loadFile(fresh, path);
    QCOMPARE(fresh.enabledMoves(), QStringList());
    EditorUnderTest selected(evenRamp({Qt::red, Qt::blue}, 6));
    selected.select({1});
    loadFile(selected, path);
    QCOMPARE(selected.selectedRows(), QVector<int>());
    QCOMPARE(selected.enabledMoves(), QStringList());
    selected.select({0});
    QCOMPARE(selected.enabledMoves(), QStringList({"Bottom", "Down"}));
}

void tst_VTColorSchemeEditor_load::theFileDialogIsOurs()
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

void tst_VTColorSchemeEditor_load::theFileDialogStartsAtTheLastPath_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("followed");
    QTest::newRow("a folder") << "somewhere" << true;
    QTest::newRow("a data source") << "VTSDE30_somewhere" << false;
    QTest::newRow("another letter case") << "vtsde30_somewhere" << true;
}

void tst_VTColorSchemeEditor_load::theFileDialogStartsAtTheLastPath()
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

void tst_VTColorSchemeEditor_load::loadingWritesNoSetting()
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

VT_TEST_MAIN(tst_VTColorSchemeEditor_load)
#include "tst_VTColorSchemeEditor_load.moc"
