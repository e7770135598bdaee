#include "colorscheme/editor/ColorRowDelegate_p.h"
#include "colorscheme/editor/VTColorModel.h"
#include "tests/support/TestMain.h"

#include <QHeaderView>
#include <QTableView>
#include <QtTest>

using vtcontrolcolorscheme::ColorRowDelegate;

class tst_ColorRowDelegate : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aSelectedSwatchKeepsItsColor();
    void aNumberFitsItsColumn_data();
    void aNumberFitsItsColumn();
};

namespace {

class OpenDelegate : public ColorRowDelegate
{
public:
    using ColorRowDelegate::ColorRowDelegate;
    using ColorRowDelegate::initStyleOption;
};

} // namespace

void tst_ColorRowDelegate::aSelectedSwatchKeepsItsColor()
{
    VTColorModel model(nullptr);
    model.setColors({QColor(250, 240, 10), QColor(200, 30, 30)});
    QTableView view;
    view.setModel(&model);
    view.setIconSize(QSize(500, 23));
    view.setItemDelegate(new ColorRowDelegate(&view));
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.resize(560, 200);
    view.horizontalHeader()->setStretchLastSection(true);
    view.selectRow(0);
    const QImage image = view.viewport()->grab().toImage();
    for (int row = 0; row < 2; ++row) {
        const QPoint center = view.visualRect(model.index(row, 1)).center();
        QCOMPARE(image.pixelColor(center), model.colors[row]);
    }
}

void tst_ColorRowDelegate::aNumberFitsItsColumn_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("shrunk");
    QTest::newRow("1") << 0 << false;
    QTest::newRow("1000") << 999 << true;
    QTest::newRow("123456") << 123455 << true;
}

void tst_ColorRowDelegate::aNumberFitsItsColumn()
{
    QFETCH(int, row);
    QFETCH(bool, shrunk);
    VTColorModel model(nullptr);
    model.colors.resize(row + 1);
    const OpenDelegate delegate(nullptr);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 25, 30);
    const QFont former = option.font;
    delegate.initStyleOption(&option, model.index(row, 0));
    QCOMPARE(option.text, QString::number(row + 1));
    const int margin = QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    QVERIFY(option.fontMetrics.horizontalAdvance(option.text) <= 25 - 2 * margin + 1);
    QCOMPARE(option.font.pointSizeF() < former.pointSizeF(), shrunk);
}

VT_TEST_MAIN(tst_ColorRowDelegate)
#include "tst_ColorRowDelegate.moc"
