#include "colorscheme/model/cellText_p.h"
#include "tests/support/TestMain.h"

#include <QHelpEvent>
#include <QStandardItemModel>
#include <QTableView>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

using vtcontrolcolorscheme::oneLine;
using vtcontrolcolorscheme::showWholeText;
using vtcontrolcolorscheme::shrinkToFit;
using vtcontrolcolorscheme::textRoom;

class tst_cellText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { QToolTip::hideText(); }

    void numbersShrinkUntilTheyFit_data();
    void numbersShrinkUntilTheyFit();
    void whatFitsKeepsItsFont();
    void aTextIsOneLine_data();
    void aTextIsOneLine();
    void onlyACutTextHasAToolTip_data();
    void onlyACutTextHasAToolTip();
    void markupIsShownAsItIsWritten();
};

namespace {

QStyleOptionViewItem cellOf(const QWidget *widget, const QString &text, int width)
{
    QStyleOptionViewItem option;
    option.initFrom(widget);
    option.widget = widget;
    option.font = widget->font();
    option.fontMetrics = QFontMetrics(option.font);
    option.features |= QStyleOptionViewItem::HasDisplay;
    option.rect = QRect(0, 0, width, 25);
    option.text = text;
    return option;
}

} // namespace

void tst_cellText::numbersShrinkUntilTheyFit_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("pixels");
    for (const char *number : {"1", "10", "100", "1000", "10000"}) {
        for (const int size : {9, 14, 24}) {
            QTest::addRow("%s in %d points", number, size) << QString(number) << size << 0;
            QTest::addRow("%s in %d pixels", number, size) << QString(number) << 0 << size;
        }
    }
}

void tst_cellText::numbersShrinkUntilTheyFit()
{
    QFETCH(QString, number);
    QFETCH(int, points);
    QFETCH(int, pixels);
    QTableView view;
    QFont font = view.font();
    if (points > 0)
        font.setPointSize(points);
    else
        font.setPixelSize(pixels);
    view.setFont(font);
    QStyleOptionViewItem option = cellOf(&view, number, 25);
    shrinkToFit(option);
    QVERIFY(textRoom(option) > 0);
    QVERIFY(QFontMetricsF(option.font).horizontalAdvance(number) <= textRoom(option));
    QCOMPARE(option.fontMetrics, QFontMetrics(option.font));
}

void tst_cellText::whatFitsKeepsItsFont()
{
    QTableView view;
    QStyleOptionViewItem option = cellOf(&view, QStringLiteral("1000"), 200);
    const QFont font = option.font;
    shrinkToFit(option);
    QCOMPARE(option.font, font);
}

void tst_cellText::aTextIsOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("blanks stay") << QString("  a  b ") << QString("  a  b ");
    QTest::newRow("breaks") << QString("a\nb\rc\r\nd") << QString("a b c d");
    QTest::newRow("tabs") << QString("a\tb\v\f") << QString("a b  ");
    QTest::newRow("of other writing")
        << QString::fromUtf8("a\u2028b\u2029c\u0085d") << QString("a b c d");
}

void tst_cellText::aTextIsOneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(oneLine(text), line);
}

void tst_cellText::onlyACutTextHasAToolTip_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("viewWidth");
    QTest::addColumn<bool>("shown");
    const QString text = QStringLiteral("Elevation of the sea floor");
    QTest::newRow("whole") << text << 400 << 500 << false;
    QTest::newRow("cut by its cell") << text << 60 << 500 << true;
    QTest::newRow("cut by the view") << text << 400 << 60 << true;
    QTest::newRow("of two lines") << QString("a\nb") << 400 << 500 << true;
    QTest::newRow("empty") << QString() << 2 << 500 << false;
}

void tst_cellText::onlyACutTextHasAToolTip()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(int, viewWidth);
    QFETCH(bool, shown);
    QTableView view;
    view.resize(viewWidth, 100);
    view.show();
    const QPoint place(5, 5);
    const QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
    QCOMPARE(showWholeText(&event, &view, cellOf(&view, text, width), text), shown);
    QCOMPARE(QToolTip::isVisible() ? QToolTip::text() : QString(), shown ? text : QString());
}

void tst_cellText::markupIsShownAsItIsWritten()
{
    QTableView view;
    view.resize(500, 100);
    view.show();
    const QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), view.mapToGlobal(QPoint(5, 5)));
    for (const QString &text :
         {QStringLiteral("<b>not bold</b> & more"),
          QStringLiteral("<i> and a text that is far too long for the half of any screen ")
              .repeated(20)}) {
        QVERIFY(showWholeText(&event, &view, cellOf(&view, text, 40), text));
        QTextDocument document;
        document.setHtml(QToolTip::text());
        QCOMPARE(document.toPlainText(), text);
    }
}

VT_TEST_MAIN(tst_cellText)
#include "tst_cellText.moc"
