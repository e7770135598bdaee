#include "tests/support/EditorUnderTest.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vtcontrolbase/VTColorMenu.h"

#include <QFileDialog>
#include <QtTest>

#include <random>
#include <set>

using namespace VTObjects;

/// Random sequences of everything a user can do, each step against what the list should be then.
class tst_editorSequences : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyStepKeepsListAndPreviewRight_data();
    void everyStepKeepsListAndPreviewRight();
};

namespace {

class Walk
{
public:
    explicit Walk(unsigned int seed, TestStore &testStore)
        : random(seed)
        , store(testStore)
        , test(startRamp(), EditorUnderTest::EditMode)
    {
        QObject::connect(test.view()->selectionModel(), &QItemSelectionModel::selectionChanged,
                         &context, [this] { noteMoves(); });
    }

    void step();
    /// What the last step was.
    QByteArray name;
    QVector<QColor> expected;
    QStringList expectedMoves{"Top", "Bottom", "Up", "Down"};
    bool hasBeenSelected = false; // until then all moves are enabled
    bool isPreviewRebuilt = true;

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }
    EditorUnderTest &editor() { return test; }

private:
    RampPointer anyRamp(unsigned int level);
    RampPointer startRamp() { return anyRamp(static_cast<unsigned int>(below(20))); }
    QColor anyColor() { return QColor(below(256), below(256), below(256)); }
    void noteMoves();
    void exchange(int row, int other);
    void selectSome();
    void deleteSelected();
    void loadFile();
    void pickColor();
    void setNumber();

    std::mt19937 random;
    TestStore &store;
    EditorUnderTest test;
    QObject context; // goes before the editor
};

RampPointer Walk::anyRamp(unsigned int level)
{
    QVector<QColor> sources;
    for (int count = below(6); count > 0; --count)
        sources.append(anyColor());
    switch (below(5)) {
    case 0:
        return randomRamp(below(2000) - 500, level);
    case 1:
        return hsvRamp(below(2000),
                       {below(500), below(500), below(120), below(120), below(120), below(120)},
                       level);
    case 2:
        return evenRamp(sources, level);
    case 3:
        return predefinedRamp(sources, level);
    default:
        return nullptr;
    }
}

void Walk::noteMoves()
{
    const QVector<int> rows = test.selectedRows();
    hasBeenSelected = true;
    expectedMoves.clear();
    if (rows.size() != 1)
        return;
    const bool first = rows.first() == 0;
    const bool last = !first && rows.first() == test.model()->rowCount() - 1;
    if (!first)
        expectedMoves.append(QStringLiteral("Top"));
    if (!last)
        expectedMoves.append(QStringLiteral("Bottom"));
    if (!first)
        expectedMoves.append(QStringLiteral("Up"));
    if (!last)
        expectedMoves.append(QStringLiteral("Down"));
}

void Walk::exchange(int row, int other)
{
    if (row >= 0 && other >= 0 && row < expected.size() && other < expected.size())
        std::swap(expected[row], expected[other]);
}

void Walk::selectSome()
{
    std::set<int> rows;
    const int count = expected.isEmpty() ? 0 : below(std::min(4, expected.size()) + 1);
    for (int i = 0; i < count; ++i)
        rows.insert(below(expected.size()));
    test.select(QVector<int>(rows.cbegin(), rows.cend()));
    if (!expected.isEmpty() && below(3) == 0) {
        test.view()->selectionModel()->setCurrentIndex(
            test.model()->index(below(expected.size()), below(2)), QItemSelectionModel::NoUpdate);
    }
}

void Walk::deleteSelected()
{
    const int fewest = test.part<QComboBox>("comboBox_type")->currentIndex() > 1 ? 2 : 0;
    QVector<int> rows = test.selectedRows();
    bool isDeleted = false;
    while (!rows.isEmpty() && expected.size() > fewest) {
        expected.remove(rows.takeLast());
        isDeleted = true;
    }
    test.run("onDeleteColor");
    if (isDeleted)
        noteMoves();
}

void Walk::loadFile()
{
    VOColorScheme scheme = makeScheme(QStringLiteral("Saved"));
    RampPointer ramp = anyRamp(static_cast<unsigned int>(below(30)));
    if (ramp) {
        delete scheme.colorRamp;
        scheme.colorRamp = ramp.release();
    }
    const QString file = store.path(QStringLiteral("saved.vcs"));
    QVERIFY(VOColorSchemeManager::saveFile(scheme, toVOString(file)));
    ModalDriver driver;
    driver.next([&file](QWidget *window) {
        auto *field = window->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QVERIFY(field);
        field->setText(file);
        QTest::keyClick(field, Qt::Key_Return);
    });
    test.run("onLoadScheme");
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    noteMoves();
    auto *even = dynamic_cast<VOEvenColorRamp *>(scheme.colorRamp);
    expected.clear();
    for (unsigned int i = 0; even && i < even->getSourceColorCount(); ++i) {
        const rgb_color<float> color = even->getSourceColor(static_cast<int>(i));
        expected.append(QColor(int(color.red), int(color.green), int(color.blue)));
    }
    if (!even)
        expected = outputColors(scheme.colorRamp);
    isPreviewRebuilt = false;
    QCOMPARE(test.preview(), stripOf(scheme.colorRamp));
}

void Walk::pickColor()
{
    if (expected.isEmpty())
        return;
    const int row = below(expected.size());
    const QColor color = below(3) == 0 ? expected[row] : anyColor();
    isPreviewRebuilt = isPreviewRebuilt || color != expected[row];
    expected[row] = color;
    ModalDriver driver;
    driver.next([&color](QWidget *window) {
        auto *menu = qobject_cast<VTColorMenu *>(window);
        QVERIFY(menu);
        menu->setColor(color);
        menu->close();
    });
    QVERIFY(QMetaObject::invokeMethod(&test.editor(), "onColorDoubleClicked",
                                      Q_ARG(QModelIndex, test.model()->index(row, 1))));
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void Walk::setNumber()
{
    const char *boxes[] = {"spinBox_level", "spinBox_seed", "spinBox_minh", "spinBox_maxh",
                           "spinBox_mins",  "spinBox_maxs", "spinBox_minv", "spinBox_maxv"};
    QSpinBox *box = test.box(boxes[below(8)]);
    const int limits[] = {3, 20, 600, 1200};
    const int former = box->value();
    box->setValue(below(limits[below(4)]));
    isPreviewRebuilt = isPreviewRebuilt || box->value() != former;
}

void Walk::step()
{
    expected = test.colors();
    const bool wasRebuilt = isPreviewRebuilt;
    isPreviewRebuilt = true;
    const int row = test.view()->currentIndex().row();
    const int count = expected.size();
    static const char *const commands[] = {
        "onAddColor", "onColorAntitone", "onTop",         "onBottom", "onUp",
        "onDown",     "onSelectAll",     "onInvetSelect", "onPreview"};
    const int choice = below(18);
    if (choice < 9) {
        name = commands[choice];
        if (name == "onAddColor")
            expected.append(QColor(15, 225, 255));
        else if (name == "onColorAntitone")
            std::reverse(expected.begin(), expected.end());
        else if (name == "onTop")
            exchange(row, 0);
        else if (name == "onBottom")
            exchange(row, count - 1);
        else if (name == "onUp")
            exchange(row, row - 1);
        else if (name == "onDown")
            exchange(row, row + 1);
        QVector<int> complement;
        const QVector<int> selected = test.selectedRows();
        for (int i = 0; i < count; ++i) {
            if (!selected.contains(i))
                complement.append(i);
        }
        test.run(name.constData());
        if (name == "onAddColor" && hasBeenSelected)
            noteMoves();
        if (name == "onInvetSelect")
            QCOMPARE(test.selectedRows(), complement);
        if (name == "onSelectAll")
            QCOMPARE(test.selectedRows().size(), count);
        // Neither a selection nor a move that does nothing draws anew what a file showed.
        if (!wasRebuilt && name != "onAddColor" && name != "onColorAntitone" && name != "onPreview")
            isPreviewRebuilt = false;
        return;
    }
    isPreviewRebuilt = wasRebuilt;
    if (choice < 12) {
        name = "select";
        selectSome();
    } else if (choice < 14) {
        name = "delete";
        deleteSelected();
        isPreviewRebuilt = isPreviewRebuilt || expected.size() < count;
    } else if (choice == 14) {
        name = "kind";
        test.chooseType(static_cast<VOColorRamp::ColorRampType>(below(4)));
        isPreviewRebuilt = true;
    } else if (choice == 15) {
        name = "number";
        setNumber();
    } else if (choice == 16) {
        name = "color";
        pickColor();
    } else {
        name = "load";
        loadFile();
    }
}

} // namespace

void tst_editorSequences::everyStepKeepsListAndPreviewRight_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_editorSequences::everyStepKeepsListAndPreviewRight()
{
    QFETCH(unsigned int, seed);
    TestStore store;
    Walk walk(seed, store);
    EditorUnderTest &test = walk.editor();
    test.editor().show();
    test.run("onPreview");
    for (int i = 0; i < 150; ++i) {
        walk.step();
        if (QTest::currentTestFailed())
            return;
        const QByteArray where = QByteArray("step ") + QByteArray::number(i) + ": " + walk.name;
        QVERIFY2(test.colors() == walk.expected, where.constData());
        QVERIFY2(test.model()->rowCount() == test.colors().size(), where.constData());
        QVERIFY2(test.enabledMoves() == walk.expectedMoves, where.constData());
        QVERIFY2(test.view()->selectionMode() == QAbstractItemView::ExtendedSelection,
                 where.constData());
        if (walk.isPreviewRebuilt) {
            const QImage shown = test.preview();
            QVERIFY2(shown == stripOf(test.storedByOk()), where.constData());
        }
        if (i % 10 == 0)
            QCoreApplication::processEvents();
    }
}

VT_TEST_MAIN(tst_editorSequences)
#include "tst_editorSequences.moc"
