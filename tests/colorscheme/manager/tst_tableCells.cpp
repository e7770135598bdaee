#include "colorscheme/manager/VTColorSchemeModel.h"
#include "colorscheme/manager/VTColorSchemeView.h"
#include "tests/support/ManagerTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/WatchingStyle.h"

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QStyleOptionViewItem>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

using VTObjects::toVOString;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

/// What can be read in the cells of the scheme table and of the tree beside it.
class tst_tableCells : public ManagerTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup();

    void rowNumbersAreReadable_data();
    void rowNumbersAreReadable();
    void aLongTextIsOneLine_data();
    void aLongTextIsOneLine();
    void aCutTextIsShownWholeOnHovering_data();
    void aCutTextIsShownWholeOnHovering();
    void aCutGroupNameIsShownWholeOnHovering();
    void theCurrentGroupCanBeRead_data();
    void theCurrentGroupCanBeRead();
    void aHeaderShowsItsBeginning();
    void aTextOpensForEditingAtItsBeginning_data();
    void aTextOpensForEditingAtItsBeginning();
};

namespace {

const char *const longText = "Elevation of the sea floor between the shelf and the deep sea";

/// Remembers what the sections of a header show.
class HeaderTexts : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(option);
        if (element == CE_Header && header)
            texts[header->section] = header->text;
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QMap<int, QString> texts;
};

VOColorSchemeGroup groupOf(int count)
{
    VOColorSchemeGroup group;
    group.schemes.assign(std::size_t(count), makeScheme(QStringLiteral("a")));
    return group;
}

/// Hovers over a cell, without the time that it takes: what can be read then.
QString toolTipOver(QAbstractItemView *view, const QModelIndex &index)
{
    const QPoint place = view->visualRect(index).center();
    QHelpEvent event(QEvent::ToolTip, place, view->viewport()->mapToGlobal(place));
    QApplication::sendEvent(view->viewport(), &event);
    if (!QToolTip::isVisible())
        return QString();
    const QString shown = QToolTip::text();
    if (!Qt::mightBeRichText(shown))
        return shown;
    QTextDocument document; // a text that is too long for one line of the screen
    document.setHtml(shown);
    return document.toPlainText();
}

/// The rows of a cell in which anything is drawn on its ground.
int inkRows(const QImage &cell)
{
    int rows = 0;
    for (int y = 0; y < cell.height(); ++y) {
        bool ink = false;
        for (int x = 1; x < cell.width() - 1 && !ink; ++x)
            ink = qGray(cell.pixel(x, y)) < 128;
        rows += ink ? 1 : 0;
    }
    return rows;
}

} // namespace

void tst_tableCells::cleanup()
{
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    tearDown();
}

void tst_tableCells::rowNumbersAreReadable_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("pixels");
    for (const int rows : {9, 10, 100, 1000, 12000}) {
        QTest::addRow("%d, as it comes", rows) << rows << 0 << 0;
        for (const int size : {12, 16, 24}) {
            QTest::addRow("%d, %d points", rows, size) << rows << size << 0;
            QTest::addRow("%d, %d pixels", rows, size) << rows << 0 << size;
        }
    }
}

void tst_tableCells::rowNumbersAreReadable()
{
    QFETCH(int, rows);
    QFETCH(int, points);
    QFETCH(int, pixels);
    WatchingStyle style;
    VTColorSchemeView view(nullptr);
    view.setStyle(&style);
    QFont font = view.font();
    if (points > 0)
        font.setPointSize(points);
    else if (pixels > 0)
        font.setPixelSize(pixels);
    view.setFont(font);
    view.setGroup(1, 0, groupOf(rows));
    view.resize(790, 300);
    view.scrollToBottom();
    view.grab();
    QVERIFY(style.fits.contains(QString::number(rows)));
    QVERIFY(style.fits.value(QString::number(rows)));
    QCOMPARE(view.columnWidth(0), 25);
}

void tst_tableCells::aLongTextIsOneLine_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    const char *const fields[] = {"name", "author", "describe"};
    for (int column = 2; column < 5; ++column) {
        QTest::addRow("long %s", fields[column - 2]) << column << QString(longText).repeated(5);
        QTest::addRow("%s of two lines", fields[column - 2]) << column << QString("HHH\nHHH");
    }
}

void tst_tableCells::aLongTextIsOneLine()
{
    QFETCH(int, column);
    QFETCH(QString, text);
    VTColorSchemeView view(nullptr);
    view.setGroup(1, 0, groupOf(1));
    view.resize(790, 300);
    view.setRowHeight(0, 60);
    view.clearSelection();
    const QModelIndex cell = view.schemeModel()->index(0, column);
    view.schemeModel()->setData(cell, text);
    const QImage picture = view.viewport()->grab(view.visualRect(cell)).toImage();
    // Less than two lines have, and more than none.
    QVERIFY(inkRows(picture) > 4);
    QVERIFY(inkRows(picture) <= view.fontMetrics().height());
    // The model says what it always did.
    QCOMPARE(cell.data().toString(), text);
    QCOMPARE(cell.data(Qt::ToolTipRole), QVariant());
}

void tst_tableCells::aCutTextIsShownWholeOnHovering_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const QString text = QString(longText).repeated(2);
    QTest::newRow("name") << 2 << text << text;
    QTest::newRow("author") << 3 << text << text;
    QTest::newRow("description") << 4 << text << text;
    QTest::newRow("whole name") << 2 << QString("short") << QString();
    QTest::newRow("whole description") << 4 << QString("short") << QString();
    QTest::newRow("two lines") << 4 << QString("a\nb") << QString("a\nb");
}

void tst_tableCells::aCutTextIsShownWholeOnHovering()
{
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("DEM", {"a", "b"})};
    open();
    user->table->setColumnWidth(3, 100);
    user->model->setData(user->model->index(1, column), text);
    QCOMPARE(toolTipOver(user->table, user->model->index(0, column)), QString());
    QCOMPARE(toolTipOver(user->table, user->model->index(1, 1)), QString());
    QCOMPARE(toolTipOver(user->table, user->model->index(1, column)), toolTip);
}

void tst_tableCells::aCutGroupNameIsShownWholeOnHovering()
{
    VOColorSchemeManager::instance()->customTeam.groups = {makeGroup("Mine", {}),
                                                           makeGroup(longText, {})};
    open();
    QCOMPARE(toolTipOver(user->tree, user->node(1, 0)), QString());
    QCOMPARE(toolTipOver(user->tree, user->node(1, 1)), QString(longText));
    QCOMPARE(user->node(1, 1).data(Qt::ToolTipRole), QVariant());
}

void tst_tableCells::theCurrentGroupCanBeRead_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::newRow("as it comes") << QString();
    QTest::newRow("a dark host") << QString("QWidget{background-color:#2b2b2b;color:#eee}");
    QTest::newRow("a colored host") << QString("QWidget{background-color:#7a1f2b;color:#ffd}");
}

void tst_tableCells::theCurrentGroupCanBeRead()
{
    QFETCH(QString, styleSheet);
    VOColorSchemeManager::instance()->customTeam.groups = {makeGroup("HHHH", {}),
                                                           makeGroup("HHHH", {})};
    qApp->setStyleSheet(styleSheet);
    const auto reset = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    open();
    user->click(1, 0);
    const QImage picture = user->tree->viewport()->grab().toImage();
    // As much between text and ground as on the row below, but for what the pale blue takes.
    const auto contrast = [&](const QModelIndex &node) {
        const QRect rect = user->tree->visualRect(node).adjusted(24, 2, -2, -2);
        int darkest = 255;
        int lightest = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                const int gray = qGray(picture.pixel(x, y));
                darkest = qMin(darkest, gray);
                lightest = qMax(lightest, gray);
            }
        }
        return lightest - darkest;
    };
    QVERIFY(contrast(user->node(1, 1)) > 120);
    QVERIFY(contrast(user->node(1, 0)) > contrast(user->node(1, 1)) * 3 / 4);
}

void tst_tableCells::aHeaderShowsItsBeginning()
{
    VTColorSchemeView view(nullptr);
    QFont font = view.font();
    font.setPixelSize(24);
    view.setFont(font);
    view.horizontalHeader()->setFont(font);
    view.resize(790, 300);
    HeaderTexts style;
    view.horizontalHeader()->setStyle(&style);
    view.horizontalHeader()->resizeSection(1, 80);
    view.grab();
    const QString shown = style.texts.value(1);
    QVERIFY2(shown.startsWith(QLatin1String("Co")) && shown.endsWith(QChar(0x2026)),
             qPrintable(shown));
    QCOMPARE(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("ColorRamp"));
}

void tst_tableCells::aTextOpensForEditingAtItsBeginning_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << 2;
    QTest::newRow("author") << 3;
    QTest::newRow("description") << 4;
}

void tst_tableCells::aTextOpensForEditingAtItsBeginning()
{
    QFETCH(int, column);
    VOColorSchemeManager::instance()->defaultTeam.groups = {makeGroup("DEM", {"a"})};
    open();
    const QModelIndex cell = user->model->index(0, column);
    user->model->setData(cell, QString(longText).repeated(9));
    const QPoint place = user->table->visualRect(cell).center();
    QTest::mouseClick(user->table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(user->table->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QCOMPARE(field->cursorPosition(), 0);
    // What is typed still replaces it.
    QCOMPARE(field->selectedText(), field->text());
}

VT_TEST_MAIN(tst_tableCells)
#include "tst_tableCells.moc"
