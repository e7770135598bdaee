#include "colorscheme/editor/ColorRowDelegate_p.h"
#include "colorscheme/editor/VTColorModel.h"
#include "tests/support/EditorUnderTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/WatchingStyle.h"

#include <QHeaderView>
#include <QTableView>
#include <QtTest>

using vtcontrolcolorscheme::ColorRowDelegate;

class tst_ColorRowDelegate : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aSelectedSwatchKeepsItsColor();
    void everyNumberCanBeRead_data();
    void everyNumberCanBeRead();
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

void tst_ColorRowDelegate::everyNumberCanBeRead_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("pixels");
    for (const int rows : {9, 10, 100, 1000}) {
        QTest::addRow("%d, as it comes", rows) << rows << 0 << 0;
        for (const int size : {12, 16, 24}) {
            QTest::addRow("%d, %d points", rows, size) << rows << size << 0;
            QTest::addRow("%d, %d pixels", rows, size) << rows << 0 << size;
        }
    }
}

// Nor does the toolkit complain, which would fail the test.
void tst_ColorRowDelegate::everyNumberCanBeRead()
{
    QFETCH(int, rows);
    QFETCH(int, points);
    QFETCH(int, pixels);
    WatchingStyle style;
    EditorUnderTest test(evenRamp(QVector<QColor>(rows, QColor(1, 2, 3)), 9));
    QTableView *const view = test.view();
    view->setStyle(&style);
    QFont font = view->font();
    if (points > 0)
        font.setPointSize(points);
    else if (pixels > 0)
        font.setPixelSize(pixels);
    view->setFont(font);
    test.editor().show();
    QVERIFY(QTest::qWaitForWindowExposed(&test.editor()));
    view->scrollToBottom();
    view->grab();
    QVERIFY(style.fits.contains(QString::number(rows)));
    QVERIFY(style.fits.value(QString::number(rows)));
    QCOMPARE(view->columnWidth(0), 25);
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
