#include "colorscheme/picker/VTSchemeMenuActionWidget.h"
#include "tests/support/DropDown.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include <QBoxLayout>
#include <QCursor>
#include <QLabel>
#include <QToolTip>
#include <QtTest>

#include <memory>

namespace {

const QString blue = QStringLiteral("QLabel{background-color:rgba(51,153,255,255);}");
const QString white = QStringLiteral("QLabel{background-color:rgba(255,255,255,255);}");

QPixmap strip(int width)
{
    QPixmap pixmap(width, 20);
    pixmap.fill(Qt::green);
    return pixmap;
}

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class tst_VTSchemeMenuActionWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nameLiesAboveTheStripWithoutGaps();
    void everyPartFollowsThePointer();
    void pointerTurnsOnlyTheNameBlueAndLeavesItWhite();
    void everyEntryThatAProgramEntersTurnsBlue_data();
    void everyEntryThatAProgramEntersTurnsBlue();
    void highlightingFromCodeLooksLikeThePointer();
    void labelsGoWithTheEntry();
    void nameIsNoMarkup();
    void longNameEndsWithDotsAndIsToldInFull();
    void nameOfSeveralLinesShowsItsBeginningOnOne();
    void toolTipIsShownOfAllParts();
    void markTakesRoomFromTheName();
    void nameStaysDarkInADarkTheme();
};

void tst_VTSchemeMenuActionWidget::nameLiesAboveTheStripWithoutGaps()
{
    VTSchemeMenuActionWidget entry(nullptr);
    const QList<QLabel *> labels = entry.findChildren<QLabel *>();
    QCOMPARE(labels.size(), 2);
    QCOMPARE(labels[0]->minimumHeight(), 17);
    QCOMPARE(labels[1]->minimumHeight(), 20);
    auto *layout = qobject_cast<QVBoxLayout *>(entry.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->itemAt(0)->widget(), labels[0]);
    QCOMPARE(layout->itemAt(1)->widget(), labels[1]);

    entry.showScheme(QStringLiteral("Blues"), strip(140));
    QCOMPARE(labels[0]->text(), QStringLiteral("Blues"));
    QCOMPARE(labels[1]->pixmap(Qt::ReturnByValue).size(), QSize(140, 20));
    QCOMPARE(entry.accessibleName(), QStringLiteral("Blues"));
    entry.adjustSize();
    entry.grab(); // lays the parts out
    QCOMPARE(labels[0]->geometry().topLeft(), QPoint(0, 0));
    QCOMPARE(labels[1]->y(), labels[0]->height());
    QCOMPARE(labels[1]->width(), 140);
}

void tst_VTSchemeMenuActionWidget::everyPartFollowsThePointer()
{
    VTSchemeMenuActionWidget entry(nullptr);
    QVERIFY(entry.hasMouseTracking());
    for (const QLabel *label : entry.findChildren<QLabel *>())
        QVERIFY(label->hasMouseTracking());
    QCOMPARE(entry.cursor().shape(), Qt::PointingHandCursor);
}

void tst_VTSchemeMenuActionWidget::pointerTurnsOnlyTheNameBlueAndLeavesItWhite()
{
    VTSchemeMenuActionWidget entry(nullptr);
    const QList<QLabel *> labels = entry.findChildren<QLabel *>();
    QCOMPARE(labels[0]->styleSheet(), QString());

    send(&entry, QEvent::Enter);
    QCOMPARE(labels[0]->styleSheet(), blue);
    QCOMPARE(labels[1]->styleSheet(), QString());

    send(&entry, QEvent::Leave);
    QCOMPARE(labels[0]->styleSheet(), white);
    QCOMPARE(labels[1]->styleSheet(), QString());
}

void tst_VTSchemeMenuActionWidget::everyEntryThatAProgramEntersTurnsBlue_data()
{
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("withAPlace");
    QTest::newRow("bare event, hidden") << false << false;
    QTest::newRow("bare event, shown") << true << false;
    QTest::newRow("with a place, hidden") << false << true;
    QTest::newRow("with a place, shown") << true << true;
}

// No pointer moves: it lies on an entry that was not entered by it.
void tst_VTSchemeMenuActionWidget::everyEntryThatAProgramEntersTurnsBlue()
{
    QFETCH(bool, shown);
    QFETCH(bool, withAPlace);
    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    VTColorSchemeMenu menu(QStringLiteral("g"), makeGroup(QStringLiteral("g"), names), nullptr);
    const DropDown parts(&menu);
    if (shown) {
        menu.popup(QPoint(100, 100));
        QCursor::setPos(parts.entry(0)->mapToGlobal(QPoint(60, 20)));
        QCoreApplication::processEvents();
        QTest::keyClick(&menu, Qt::Key_End);
        QCOMPARE(parts.highlighted(), QList<int>{2});
    }
    for (const int index : {0, 1, 2, 2, 1, 0, 0}) {
        QWidget *const entry = parts.entry(index);
        const QPoint corner(1, 1);
        QEvent bare(QEvent::Enter);
        QEnterEvent placed(corner, entry->mapTo(&menu, corner), entry->mapToGlobal(corner));
        QCoreApplication::sendEvent(entry, withAPlace ? &placed : &bare);
        QCOMPARE(parts.highlighted(), QList<int>{index});
        QCOMPARE(parts.name(index)->styleSheet(), blue);
        send(entry, QEvent::Leave);
        QCOMPARE(parts.name(index)->styleSheet(), white);
        QCOMPARE(parts.highlighted(), QList<int>());
        QCoreApplication::sendEvent(entry, withAPlace ? &placed : &bare);
        QCOMPARE(parts.highlighted(), QList<int>{index});
    }
}

void tst_VTSchemeMenuActionWidget::highlightingFromCodeLooksLikeThePointer()
{
    VTSchemeMenuActionWidget entry(nullptr);
    const QList<QLabel *> labels = entry.findChildren<QLabel *>();
    entry.setHighlighted(true);
    QCOMPARE(labels[0]->styleSheet(), blue);
    entry.setHighlighted(false);
    QCOMPARE(labels[0]->styleSheet(), white);
    QCOMPARE(labels[1]->styleSheet(), QString());
}

void tst_VTSchemeMenuActionWidget::labelsGoWithTheEntry()
{
    auto entry = std::make_unique<VTSchemeMenuActionWidget>(nullptr);
    const QList<QLabel *> labels = entry->findChildren<QLabel *>();
    const QPointer<QLabel> name = labels[0];
    const QPointer<QLabel> preview = labels[1];
    entry.reset();
    QVERIFY(name.isNull());
    QVERIFY(preview.isNull());
}

void tst_VTSchemeMenuActionWidget::nameIsNoMarkup()
{
    VTSchemeMenuActionWidget entry(nullptr);
    const QString name = QStringLiteral("<h1>Blues</h1>");
    entry.showScheme(name, strip(140));
    const QLabel *label = entry.findChildren<QLabel *>().constFirst();
    QCOMPARE(label->text(), name);
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

void tst_VTSchemeMenuActionWidget::longNameEndsWithDotsAndIsToldInFull()
{
    // Given two names that differ only in what has no room
    const QString start = QStringLiteral("a name that is much too long for its place, ");
    QImage images[2];
    for (int i = 0; i < 2; ++i) {
        VTSchemeMenuActionWidget entry(nullptr);
        entry.setFixedWidth(140);
        entry.showScheme(start + QString(5, QLatin1Char(i == 0 ? 'W' : 'i')), strip(140));
        QVERIFY(entry.toolTip().contains(start.trimmed()));
        images[i] = entry.grab().toImage();
    }
    // Then they look the same, and not like one that is cut off in a letter
    QCOMPARE(images[0], images[1]);
    VTSchemeMenuActionWidget other(nullptr);
    other.setFixedWidth(140);
    other.showScheme(QStringLiteral("a name"), strip(140));
    QVERIFY(other.grab().toImage() != images[0]);
    QCOMPARE(other.toolTip(), QString());
}

void tst_VTSchemeMenuActionWidget::nameOfSeveralLinesShowsItsBeginningOnOne()
{
    VTSchemeMenuActionWidget single(nullptr);
    VTSchemeMenuActionWidget several(nullptr);
    for (VTSchemeMenuActionWidget *entry : {&single, &several})
        entry->setFixedWidth(140);
    single.showScheme(QStringLiteral("one two three"), strip(140));
    const QString name = QStringLiteral("one\ntwo\tthree\n");
    several.showScheme(name, strip(140));
    QCOMPARE(several.sizeHint(), single.sizeHint());
    for (VTSchemeMenuActionWidget *entry : {&single, &several})
        entry->adjustSize();
    QCOMPARE(several.grab().toImage(), single.grab().toImage());
    // All of it is still there
    QCOMPARE(several.findChildren<QLabel *>().constFirst()->text(), name);
    QVERIFY(!several.toolTip().isEmpty());
    QCOMPARE(single.toolTip(), QString());
}

void tst_VTSchemeMenuActionWidget::toolTipIsShownOfAllParts()
{
    const QString name = QStringLiteral("a name that is much too long for its place");
    VTSchemeMenuActionWidget entry(nullptr);
    entry.setFixedWidth(140);
    entry.showScheme(name, strip(140));
    entry.show();
    for (QLabel *label : entry.findChildren<QLabel *>()) {
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(label, &help);
        QVERIFY(QToolTip::text().contains(name));
        QToolTip::hideText();
    }
}

void tst_VTSchemeMenuActionWidget::markTakesRoomFromTheName()
{
    VTSchemeMenuActionWidget entry(nullptr);
    entry.setFixedWidth(140);
    QVERIFY(!entry.isPicked());
    // A name that has all the room there is
    QString name;
    while (entry.findChildren<QLabel *>().constFirst()->fontMetrics().horizontalAdvance(
               name + QLatin1Char('i')) <= 138)
        name.append(QLatin1Char('i'));
    entry.showScheme(name, strip(140));
    QCOMPARE(entry.toolTip(), QString());
    entry.setPicked(true);
    QVERIFY(entry.isPicked());
    QVERIFY(entry.toolTip().contains(name));
    QCOMPARE(entry.findChildren<QLabel *>().constFirst()->styleSheet(), QString());
    entry.setPicked(false);
    QCOMPARE(entry.toolTip(), QString());
}

void tst_VTSchemeMenuActionWidget::nameStaysDarkInADarkTheme()
{
    QPalette theme;
    theme.setColor(QPalette::WindowText, Qt::white);
    QWidget window;
    window.setPalette(theme);
    VTSchemeMenuActionWidget entry(&window);
    entry.setHighlighted(false);
    const QLabel *label = entry.findChildren<QLabel *>().constFirst();
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::black));
}

VT_TEST_MAIN(tst_VTSchemeMenuActionWidget)
#include "tst_VTSchemeMenuActionWidget.moc"
