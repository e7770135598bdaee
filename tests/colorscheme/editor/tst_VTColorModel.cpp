#include "colorscheme/editor/VTColorModel.h"
#include "tests/support/TestMain.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QPixmap>
#include <QtTest>

class tst_VTColorModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aRowIsItsNumberAndASwatch();
    void nothingElseIsShown();
    void onlyTheSwatchesHaveAHeader();
    void rowsHaveNoRowsBelow();
    void itemsCanBeSelectedAndNotEdited();
    void anAppendedColorIsThereBeforeItIsAnnounced();
    void removingTakesOneRow();
    void removingARowThatDoesNotExistDoesNothing_data();
    void removingARowThatDoesNotExistDoesNothing();
    void settingTheColorsResetsTheModel();
    void settingItsOwnColorsKeepsThem();
};

namespace {

const QVector<QColor> threeColors{Qt::red, Qt::green, Qt::blue};

} // namespace

void tst_VTColorModel::aRowIsItsNumberAndASwatch()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.columnCount(), 2);
    const QVariant number = model.data(model.index(0, 0), Qt::DisplayRole);
    QCOMPARE(number.userType(), int(QMetaType::Int));
    QCOMPARE(number.toInt(), 1);
    QCOMPARE(model.data(model.index(2, 0), Qt::DisplayRole).toInt(), 3);

    const QVariant swatch = model.data(model.index(1, 1), Qt::DecorationRole);
    QCOMPARE(swatch.userType(), int(QMetaType::QPixmap));
    const QImage image = swatch.value<QPixmap>().toImage();
    QCOMPARE(image.size(), QSize(500, 23));
    QCOMPARE(image, VTSymbolUtils::createColorPixmap(QSize(500, 23), Qt::green).toImage());
    QCOMPARE(image.pixelColor(250, 11), QColor(Qt::green));
}

void tst_VTColorModel::nothingElseIsShown()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    for (int role = 0; role < Qt::UserRole + 2; ++role) {
        QCOMPARE(model.data(model.index(0, 0), role).isValid(), role == Qt::DisplayRole);
        QCOMPARE(model.data(model.index(0, 1), role).isValid(), role == Qt::DecorationRole);
        QVERIFY(!model.data(QModelIndex(), role).isValid());
    }
}

void tst_VTColorModel::onlyTheSwatchesHaveAHeader()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QCOMPARE(model.headerData(1, Qt::Horizontal), QVariant(QStringLiteral("Colors")));
    QVERIFY(!model.headerData(0, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(1, Qt::Vertical).isValid());
    QVERIFY(!model.headerData(1, Qt::Horizontal, Qt::DecorationRole).isValid());
}

void tst_VTColorModel::rowsHaveNoRowsBelow()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    QCOMPARE(model.columnCount(model.index(0, 0)), 2);
}

void tst_VTColorModel::itemsCanBeSelectedAndNotEdited()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    for (int column = 0; column < 2; ++column) {
        const Qt::ItemFlags flags = model.flags(model.index(0, column));
        QVERIFY(flags & Qt::ItemIsSelectable);
        QVERIFY(flags & Qt::ItemIsEnabled);
        QVERIFY(!(flags & Qt::ItemIsEditable));
        QVERIFY(!model.setData(model.index(0, column), QColor(Qt::black)));
    }
    QCOMPARE(model.colors, threeColors);
}

void tst_VTColorModel::anAppendedColorIsThereBeforeItIsAnnounced()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    int rowsWhenAnnounced = 0;
    connect(&model, &VTColorModel::rowsAboutToBeInserted, &model,
            [&] { rowsWhenAnnounced = model.rowCount(); });
    QSignalSpy inserted(&model, &VTColorModel::rowsInserted);
    model.appendColor(Qt::cyan);
    QCOMPARE(model.colors, QVector<QColor>({Qt::red, Qt::green, Qt::blue, Qt::cyan}));
    QCOMPARE(rowsWhenAnnounced, 4);
    QCOMPARE(inserted.size(), 1);
    QVERIFY(!inserted[0][0].toModelIndex().isValid());
    QCOMPARE(inserted[0][1].toInt(), 3);
    QCOMPARE(inserted[0][2].toInt(), 3);
}

void tst_VTColorModel::removingTakesOneRow()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QSignalSpy aboutToRemove(&model, &VTColorModel::rowsAboutToBeRemoved);
    QSignalSpy removed(&model, &VTColorModel::rowsRemoved);
    model.removeColorAt(1);
    QCOMPARE(model.colors, QVector<QColor>({Qt::red, Qt::blue}));
    QCOMPARE(aboutToRemove.size(), 1);
    QCOMPARE(removed.size(), 1);
    QVERIFY(!removed[0][0].toModelIndex().isValid());
    QCOMPARE(removed[0][1].toInt(), 1);
    QCOMPARE(removed[0][2].toInt(), 1);
}

void tst_VTColorModel::removingARowThatDoesNotExistDoesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("before the first") << -1;
    QTest::newRow("behind the last") << 3;
    QTest::newRow("far behind") << std::numeric_limits<int>::max();
    QTest::newRow("far before") << std::numeric_limits<int>::min();
}

void tst_VTColorModel::removingARowThatDoesNotExistDoesNothing()
{
    QFETCH(int, row);
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QSignalSpy removed(&model, &VTColorModel::rowsRemoved);
    model.removeColorAt(row);
    QCOMPARE(model.colors, threeColors);
    QCOMPARE(removed.size(), 0);
}

void tst_VTColorModel::settingTheColorsResetsTheModel()
{
    VTColorModel model(nullptr);
    QSignalSpy reset(&model, &VTColorModel::modelReset);
    int rowsBefore = -1;
    connect(&model, &VTColorModel::modelAboutToBeReset, &model,
            [&] { rowsBefore = model.rowCount(); });
    model.setColors(threeColors);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(rowsBefore, 0);
    QCOMPARE(model.colors, threeColors);
    model.setColors({});
    QCOMPARE(reset.size(), 2);
    QCOMPARE(model.rowCount(), 0);
}

void tst_VTColorModel::settingItsOwnColorsKeepsThem()
{
    VTColorModel model(nullptr);
    model.setColors(threeColors);
    QSignalSpy reset(&model, &VTColorModel::modelReset);
    model.setColors(model.colors);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(model.colors, threeColors);
}

VT_TEST_MAIN(tst_VTColorModel)
#include "tst_VTColorModel.moc"
