#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolTip>
#include <QtTest>

#include <memory>

using namespace VTObjects;

namespace {

/// The label that shows what is typed: the one that is neither the title nor a header. Null if
/// nothing is.
QLabel *typedIn(const QWidget *chooser)
{
    const QStringList others{QStringLiteral("Select groups:"), QStringLiteral("Favorite"),
                             QStringLiteral("Default"), QStringLiteral("Custom")};
    for (QLabel *label : chooser->findChildren<QLabel *>()) {
        if (!others.contains(label->text()))
            return label;
    }
    return nullptr;
}

QString focusedIn(const QWidget *chooser)
{
    const auto *button = qobject_cast<QPushButton *>(chooser->focusWidget());
    return button ? button->text() : QString();
}

} // namespace

/// The chooser without a mouse.
class tst_VTColorSchemeGroupMenu_keys : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void keysGoFromGroupToGroup();
    void keysGoToTheEndsAndByPages_data();
    void keysGoToTheEndsAndByPages();
    void typingFindsAGroup();
    void escapeClearsTheLettersFirst();
    void escapeChangesNothing();
    void pointerAndKeysShareOneGroup();
    void cutNameIsToldInFull();

private:
    void open(const ModalDriver::Handler &handler);

    std::unique_ptr<TestStore> store;
    std::unique_ptr<QWidget> window;
    VTColorSchemeGroupButton *bar = nullptr;
    VOColorSchemeManager *records = nullptr;
};

void tst_VTColorSchemeGroupMenu_keys::init()
{
    store = std::make_unique<TestStore>();
    records = VOColorSchemeManager::instance();
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Mine"), {}));
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Yours"), {}));
    records->favoriteTeam.groups.push_back(makeGroup(QStringLiteral("Best"), {}));
    const VTColorSchemeComboBox fillsTheCaptions;
    window = std::make_unique<QWidget>();
    window->setGeometry(350, 40, 300, 200);
    bar = new VTColorSchemeGroupButton(window.get());
    bar->setGeometry(30, 20, 150, 24);
    window->show();
}

void tst_VTColorSchemeGroupMenu_keys::cleanup()
{
    window.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

void tst_VTColorSchemeGroupMenu_keys::open(const ModalDriver::Handler &handler)
{
    ModalDriver driver;
    driver.next(handler);
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeGroupMenu_keys::keysGoToTheEndsAndByPages_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<int>("current"); // of 109 groups, from 0
    QTest::addColumn<int>("pages");   // further down
    QTest::newRow("Home") << QVector<int>{Qt::Key_Home} << 0 << 0;
    QTest::newRow("End") << QVector<int>{Qt::Key_End} << 108 << 0;
    QTest::newRow("End, Home") << QVector<int>{Qt::Key_End, Qt::Key_Home} << 0 << 0;
    QTest::newRow("Home, PageDown") << QVector<int>{Qt::Key_Home, Qt::Key_PageDown} << 0 << 1;
    QTest::newRow("End, PageDown") << QVector<int>{Qt::Key_End, Qt::Key_PageDown} << 108 << 0;
    QTest::newRow("End, PageUp") << QVector<int>{Qt::Key_End, Qt::Key_PageUp} << 108 << -1;
    QTest::newRow("PageUp") << QVector<int>{Qt::Key_PageUp} << 108 << 0;
    QTest::newRow("Home, PageUp") << QVector<int>{Qt::Key_Home, Qt::Key_PageUp} << 0 << 0;
}

void tst_VTColorSchemeGroupMenu_keys::keysGoToTheEndsAndByPages()
{
    QFETCH(QVector<int>, keys);
    QFETCH(int, current);
    QFETCH(int, pages);
    for (int i = 0; i < 100; ++i)
        records->customTeam.groups.push_back(makeGroup(QStringLiteral("group %1").arg(i), {}));
    open([&](QWidget *opened) {
        const QList<QPushButton *> groups = opened->findChildren<QPushButton *>();
        QCOMPARE(groups.size(), 109);
        const int page = opened->height() / (groups[0]->height() + 2);
        QVERIFY(page > 5);
        int place = -1;
        for (int key : keys) {
            QTest::keyClick(opened, static_cast<Qt::Key>(key));
            place = groups.indexOf(qobject_cast<QPushButton *>(opened->focusWidget()));
            QVERIFY(place >= 0);
            const QRect seen(groups[place]->mapTo(opened, QPoint(0, 0)), groups[place]->size());
            QVERIFY(opened->rect().contains(seen));
        }
        // The title takes some of a page
        const int expected = current + pages * page;
        QVERIFY2(pages == 0 ? place == expected : qAbs(place - expected) <= 2,
                 qPrintable(QString::number(place)));
        opened->close();
    });
}

void tst_VTColorSchemeGroupMenu_keys::typingFindsAGroup()
{
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    open([](QWidget *opened) {
        QVERIFY(!typedIn(opened));
        QTest::keyClicks(opened, QStringLiteral("r u"));
        QCOMPARE(focusedIn(opened), QStringLiteral("For unique"));
        QVERIFY(typedIn(opened));
        QCOMPARE(typedIn(opened)->text(), QStringLiteral("r u"));
        QVERIFY(typedIn(opened)->isVisible());
        QVERIFY(typedIn(opened)->width() > 50);
        QVERIFY(typedIn(opened)->height() > 10);
        // Over no group and no header
        for (const QPushButton *group : opened->findChildren<QPushButton *>())
            QVERIFY(!group->geometry().intersects(typedIn(opened)->geometry()));
        QTest::keyClicks(opened->focusWidget(), QStringLiteral("x"));
        QVERIFY(typedIn(opened)->font().strikeOut());
        QTest::keyClick(opened->focusWidget(), Qt::Key_Backspace);
        QVERIFY(!typedIn(opened)->font().strikeOut());
        QTest::keyClicks(opened->focusWidget(), QStringLiteral("nique ran"));
        QCOMPARE(focusedIn(opened), QStringLiteral("For unique range"));
        QTest::keyClick(opened->focusWidget(), Qt::Key_Return);
    });
    QCOMPARE(told.count(), 1);
    QCOMPARE(bar->text(), QStringLiteral("For unique range"));
}

void tst_VTColorSchemeGroupMenu_keys::escapeClearsTheLettersFirst()
{
    open([](QWidget *opened) {
        QTest::keyClicks(opened, QStringLiteral("mine"));
        QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
        QVERIFY(opened->isVisible());
        QVERIFY(!typedIn(opened));
        QVERIFY(opened->findChild<QLabel *>()->isVisible()); // the title
        QCOMPARE(focusedIn(opened), QStringLiteral("Mine"));
        QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
        QVERIFY(!opened->isVisible());
    });
}

void tst_VTColorSchemeGroupMenu_keys::pointerAndKeysShareOneGroup()
{
    const auto litIn = [](const QWidget *chooser) {
        QStringList result;
        for (QPushButton *group : chooser->findChildren<QPushButton *>()) {
            const QImage image = group->grab().toImage();
            if (image.pixelColor(image.width() - 3, 3) == QColor(51, 153, 255))
                result.append(group->text());
        }
        return result;
    };
    open([&litIn](QWidget *opened) {
        QCOMPARE(litIn(opened), QStringList());
        QPushButton *const mine = groupOf(opened, QStringLiteral("Mine"));
        QTest::mouseMove(mine, QPoint(20, 10));
        QCOMPARE(litIn(opened), QStringList(QStringLiteral("Mine")));
        QTest::keyClick(opened->focusWidget(), Qt::Key_Down);
        QCOMPARE(litIn(opened), QStringList(QStringLiteral("Yours")));
        QTest::mouseMove(mine, QPoint(21, 10));
        QCOMPARE(litIn(opened), QStringList(QStringLiteral("Mine")));
        QTest::mouseMove(opened, QPoint(1, 1));
        QCOMPARE(litIn(opened), QStringList());
        QTest::keyClick(opened, Qt::Key_Return); // nothing is lit up, nothing is chosen
        QVERIFY(opened->isVisible());
        opened->close();
    });
}

void tst_VTColorSchemeGroupMenu_keys::cutNameIsToldInFull()
{
    const QString name =
        QStringLiteral("a name that is much longer than any chooser can show, yes");
    records->customTeam.groups.push_back(makeGroup(name, {}));
    bar->setText(name);
    const auto told = [](QWidget *widget) {
        QHelpEvent help(QEvent::ToolTip, widget->rect().center(),
                        widget->mapToGlobal(widget->rect().center()));
        QApplication::sendEvent(widget, &help);
        return QToolTip::text();
    };
    QVERIFY(told(bar).contains(name));
    open([&](QWidget *opened) {
        QVERIFY(told(groupOf(opened, name)).contains(name));
        QToolTip::hideText();
        QCOMPARE(groupOf(opened, QStringLiteral("Mine"))->toolTip(), QString());
        opened->close();
    });
}

void tst_VTColorSchemeGroupMenu_keys::keysGoFromGroupToGroup()
{
    for (int i = 0; i < 100; ++i)
        records->customTeam.groups.push_back(makeGroup(QStringLiteral("group %1").arg(i), {}));
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        const QList<QPushButton *> groups = opened->findChildren<QPushButton *>();
        const auto focused = [opened] {
            return qobject_cast<QPushButton *>(opened->focusWidget());
        };
        QVERIFY(!focused());
        QTest::keyClick(opened, Qt::Key_Return); // nothing to choose yet
        QVERIFY(opened->isVisible());
        QTest::keyClick(opened, Qt::Key_Down);
        QCOMPARE(focused(), groups.first());
        QTest::keyClick(focused(), Qt::Key_Down);
        QCOMPARE(focused(), groups[1]);
        QTest::keyClick(focused(), Qt::Key_Tab);
        QCOMPARE(focused(), groups[2]);
        QTest::keyClick(focused(), Qt::Key_Backtab);
        QTest::keyClick(focused(), Qt::Key_Up);
        QCOMPARE(focused(), groups.first());
        QTest::keyClick(focused(), Qt::Key_Up); // around the end
        QCOMPARE(focused(), groups.last());
        const QRect place(focused()->mapTo(opened, QPoint(0, 0)), focused()->size());
        QVERIFY(opened->rect().contains(place)); // scrolled to
        QTest::keyClick(focused(), Qt::Key_Return);
        QVERIFY(!opened->isVisible());
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told.count(), 1);
    QCOMPARE(bar->text(), QStringLiteral("group 99"));

    driver.next([](QWidget *opened) {
        QTest::keyClick(opened, Qt::Key_Tab);
        QTest::keyClick(opened->focusWidget(), Qt::Key_Space);
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(bar->text(), QStringLiteral("Best"));
}

void tst_VTColorSchemeGroupMenu_keys::escapeChangesNothing()
{
    bar->setText(QStringLiteral("Mine"));
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QTest::keyClick(opened, Qt::Key_Down);
        QTest::keyClick(opened->focusWidget(), Qt::Key_Escape);
        QVERIFY(!opened->isVisible());
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told.count(), 0);
    QCOMPARE(bar->text(), QStringLiteral("Mine"));
}

VT_TEST_MAIN(tst_VTColorSchemeGroupMenu_keys)
#include "tst_VTColorSchemeGroupMenu_keys.moc"
