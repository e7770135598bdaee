#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QIcon>
#include <QSignalSpy>
#include <QtTest>

#include <stdexcept>

using VTObjects::VOColorSchemeGroup;

class tst_VTColorSchemeModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void itStartsEmptyWithFiveColumns();
    void aRowShowsNumberAndTexts();
    void onlyTheTextsAreForEditing();
    void thePreviewIsAnIconOfTheStrip();
    void aSelectedPreviewKeepsItsColors();
    void aSchemeWithoutRampHasNoPreview();
    void thePreviewOfALostRowIsAnError();
    void theTextsOfALostRowAreEmpty();
    void headersNameTheColumnsAndNumberTheRows();
    void onlyTheTextColumnsCanBeEdited();
    void editsGoIntoTheWorkingCopyAsTheyStand();
    void everyEditIsTakenAndNoneIsAnnounced();
    void otherRolesAreRefused();
    void settingAGroupResetsTheModelAndCopies();
    void anAppendedSchemeIsAnnouncedOnce();
    void rowsThatDoNotExistAreNeitherAnnouncedNorRemoved();
    void aRemovedSchemeIsGoneBeforeTheNotice();
};

void tst_VTColorSchemeModel::itStartsEmptyWithFiveColumns()
{
    VTColorSchemeModel model(nullptr);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 5);
    QVERIFY(model.group().schemes.empty());
}

void tst_VTColorSchemeModel::aRowShowsNumberAndTexts()
{
    VTColorSchemeModel model(nullptr);
    VOColorSchemeGroup group = makeGroup("g", {"a", "b"});
    group.schemes[1].author = L"someone";
    group.schemes[1].describe = L"something";
    model.setGroup(group);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.rowCount(model.index(0, 0)), 2);
    QCOMPARE(model.index(1, 0).data(), QVariant(2));
    QCOMPARE(model.index(1, 1).data(), QVariant());
    QCOMPARE(model.index(1, 2).data(), QVariant(QStringLiteral("b")));
    QCOMPARE(model.index(1, 3).data(), QVariant(QStringLiteral("someone")));
    QCOMPARE(model.index(1, 4).data(), QVariant(QStringLiteral("something")));
}

void tst_VTColorSchemeModel::onlyTheTextsAreForEditing()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    QVERIFY(!model.index(0, 0).data(Qt::EditRole).isValid());
    QVERIFY(!model.index(0, 1).data(Qt::EditRole).isValid());
    QCOMPARE(model.index(0, 2).data(Qt::EditRole), QVariant(QStringLiteral("a")));
    QCOMPARE(model.index(0, 3).data(Qt::EditRole), QVariant(QStringLiteral("Admin")));
    QCOMPARE(model.index(0, 4).data(Qt::EditRole), QVariant(QStringLiteral("Even")));
    for (int column = 0; column < 5; ++column) {
        for (const int role : {int(Qt::ToolTipRole), int(Qt::TextAlignmentRole),
                               int(Qt::SizeHintRole), int(Qt::UserRole)})
            QVERIFY(!model.index(0, column).data(role).isValid());
        QCOMPARE(model.index(0, column).data(Qt::DecorationRole).isValid(), column == 1);
    }
}

void tst_VTColorSchemeModel::thePreviewIsAnIconOfTheStrip()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    const QVariant decoration = model.index(0, 1).data(Qt::DecorationRole);
    QCOMPARE(decoration.userType(), int(QMetaType::QIcon));
    const QSize size(260, 23);
    const QPixmap strip = colorRampPreviewPixmap(model.group().schemes[0].colorRamp, size);
    QCOMPARE(decoration.value<QIcon>().pixmap(size).toImage(), strip.toImage());
    // Drawn anew: a change of the ramp shows at the next request.
    model.group().schemes[0].colorRamp->setColor(0, {1, 2, 3});
    const QImage now =
        model.index(0, 1).data(Qt::DecorationRole).value<QIcon>().pixmap(size).toImage();
    QCOMPARE(now.pixelColor(0, 0), QColor(1, 2, 3));
}

void tst_VTColorSchemeModel::aSelectedPreviewKeepsItsColors()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    const auto icon = model.index(0, 1).data(Qt::DecorationRole).value<QIcon>();
    QCOMPARE(icon.pixmap(QSize(260, 23), QIcon::Selected).toImage(),
             icon.pixmap(QSize(260, 23), QIcon::Normal).toImage());
}

void tst_VTColorSchemeModel::aSchemeWithoutRampHasNoPreview()
{
    VTColorSchemeModel model(nullptr);
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    delete group.schemes[0].colorRamp;
    group.schemes[0].colorRamp = nullptr;
    model.setGroup(group);
    QVERIFY(model.index(0, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
}

void tst_VTColorSchemeModel::thePreviewOfALostRowIsAnError()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a", "b"}));
    const QModelIndex lost = model.index(1, 1);
    model.removeScheme(1, QModelIndex());
    QVERIFY_EXCEPTION_THROWN(model.data(lost, Qt::DecorationRole), std::out_of_range);
}

void tst_VTColorSchemeModel::theTextsOfALostRowAreEmpty()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a", "b"}));
    const QModelIndex lost = model.index(1, 2);
    model.removeScheme(1, QModelIndex());
    QVERIFY(!model.data(lost, Qt::DisplayRole).isValid());
    QVERIFY(!model.data(lost, Qt::EditRole).isValid());
    QVERIFY(model.setData(lost, QStringLiteral("x"), Qt::EditRole));
    QCOMPARE(schemeNames(model.group()), QStringList{"a"});
}

void tst_VTColorSchemeModel::headersNameTheColumnsAndNumberTheRows()
{
    VTColorSchemeModel model(nullptr);
    const QStringList titles{"", "ColorRamp", "Name", "Author", "Describe"};
    for (int column = 0; column < 5; ++column)
        QCOMPARE(model.headerData(column, Qt::Horizontal), QVariant(titles[column]));
    QVERIFY(!model.headerData(-1, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(5, Qt::Horizontal).isValid());
    QCOMPARE(model.headerData(0, Qt::Vertical), QVariant(1));
    QCOMPARE(model.headerData(41, Qt::Vertical), QVariant(42));
    QVERIFY(!model.headerData(2, Qt::Horizontal, Qt::EditRole).isValid());
    QVERIFY(!model.headerData(2, Qt::Vertical, Qt::ToolTipRole).isValid());
}

void tst_VTColorSchemeModel::onlyTheTextColumnsCanBeEdited()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    const Qt::ItemFlags fixed = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
    QCOMPARE(model.flags(model.index(0, 0)), fixed);
    QCOMPARE(model.flags(model.index(0, 1)), fixed);
    for (int column = 2; column < 5; ++column)
        QCOMPARE(model.flags(model.index(0, column)), fixed | Qt::ItemIsEditable);
}

void tst_VTColorSchemeModel::editsGoIntoTheWorkingCopyAsTheyStand()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a", "b"}));
    QVERIFY(model.setData(model.index(1, 2), QStringLiteral(" a ")));
    QVERIFY(model.setData(model.index(1, 3), QStringLiteral("x")));
    QVERIFY(model.setData(model.index(1, 4), QString()));
    const auto &scheme = model.group().schemes[1];
    QCOMPARE(toQString(scheme.name), QStringLiteral(" a "));
    QCOMPARE(toQString(scheme.author), QStringLiteral("x"));
    QCOMPARE(toQString(scheme.describe), QString());
    // Nobody judges here, not even a name that is taken.
    QVERIFY(model.setData(model.index(1, 2), QStringLiteral("a")));
    QCOMPARE(schemeNames(model.group()), (QStringList{"a", "a"}));
}

void tst_VTColorSchemeModel::everyEditIsTakenAndNoneIsAnnounced()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    for (int column = 0; column < 5; ++column)
        QVERIFY(model.setData(model.index(0, column), QStringLiteral("z"), Qt::EditRole));
    QVERIFY(model.setData(QModelIndex(), QStringLiteral("z"), Qt::EditRole));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(schemeNames(model.group()), QStringList{"z"});
}

void tst_VTColorSchemeModel::otherRolesAreRefused()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    QVERIFY(!model.setData(model.index(0, 2), QStringLiteral("z"), Qt::DisplayRole));
    QVERIFY(!model.setData(model.index(0, 2), QStringLiteral("z"), Qt::UserRole));
    QCOMPARE(schemeNames(model.group()), QStringList{"a"});
}

void tst_VTColorSchemeModel::settingAGroupResetsTheModelAndCopies()
{
    VTColorSchemeModel model(nullptr);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    VOColorSchemeGroup group = makeGroup("g", {"a"});
    model.setGroup(group);
    QCOMPARE(reset.count(), 1);
    QVERIFY(model.group().schemes[0].colorRamp != group.schemes[0].colorRamp);
    model.group().schemes[0].name = L"changed";
    QCOMPARE(schemeNames(group), QStringList{"a"});
    QCOMPARE(toQString(model.group().name), QStringLiteral("g"));
}

void tst_VTColorSchemeModel::anAppendedSchemeIsAnnouncedOnce()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a"}));
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.group().schemes.push_back(makeScheme("b"));
    QCOMPARE(inserted.count(), 0);
    model.insertSchemeRow(1, QModelIndex());
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted[0][1].toInt(), 1);
    QCOMPARE(inserted[0][2].toInt(), 1);
    QCOMPARE(schemeNames(model.group()), (QStringList{"a", "b"}));
}

void tst_VTColorSchemeModel::rowsThatDoNotExistAreNeitherAnnouncedNorRemoved()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a", "b"}));
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    for (const int row : {-1, 2, 1000}) {
        model.insertSchemeRow(row, QModelIndex());
        model.removeScheme(row, QModelIndex());
    }
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(removed.count(), 0);
    QCOMPARE(model.rowCount(), 2);
}

void tst_VTColorSchemeModel::aRemovedSchemeIsGoneBeforeTheNotice()
{
    VTColorSchemeModel model(nullptr);
    model.setGroup(makeGroup("g", {"a", "b", "c"}));
    QStringList atNotice;
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [&] { atNotice = schemeNames(model.group()); });
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.removeScheme(1, QModelIndex());
    QCOMPARE(atNotice, (QStringList{"a", "c"}));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed[0][1].toInt(), 1);
    QCOMPARE(removed[0][2].toInt(), 1);
}

VT_TEST_MAIN(tst_VTColorSchemeModel)
#include "tst_VTColorSchemeModel.moc"
