#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/PickerWindowTest.h"
#include "tests/support/RealInput.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QApplication>
#include <QDialog>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <QtTest>

using RealInput::centerOf;

using namespace VTObjects;

namespace {

const QColor lit(51, 153, 255);

/// Where the blue shows that lights a name up, of all widgets of that kind.
template <typename Widget>
QVector<Widget *> litOnes(const QVector<Widget *> &widgets)
{
    QVector<Widget *> result;
    for (Widget *widget : widgets) {
        const QImage image = widget->grab().toImage();
        const int above = qRound(image.devicePixelRatio()); // the letters, and between the corners
        if (image.pixelColor(image.width() / 2, above) == lit)
            result.append(widget);
    }
    return result;
}

QVector<QLabel *> namesOf(const DropDown &parts)
{
    QVector<QLabel *> result;
    for (int i = 0; i < parts.actions().size(); ++i)
        result.append(parts.name(i));
    return result;
}

/// What a person sees of an entry's name beside its letters.
QColor groundOf(const DropDown &parts, int index)
{
    const QLabel *const name = parts.name(index);
    const QPoint place = name->mapTo(parts.menu, QPoint(name->width() - 2, 2));
    return parts.menu->grab(QRect(place, QSize(1, 1))).toImage().pixelColor(0, 0);
}

} // namespace

/// What a person goes through with the picker on the screens that people have.
class tst_pickerWindows_walks : public PickerWindowTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup();

    void nothingLiesOverAnEntry_data();
    void nothingLiesOverAnEntry();
    void firstEntryIsUnderThePointerAsAnyOther();
    void popupsStayOnTheScreen_data();
    void popupsStayOnTheScreen();
    void pointerAtRestMakesNoSecondCurrentEntry();
    void pointerAtRestMakesNoSecondCurrentGroup();
    void pickedSchemeIsFoundAndLeftByTyping();

private:
    void openByKey(const ModalDriver::Handler &handler);
};

void tst_pickerWindows_walks::cleanup()
{
    qApp->setStyleSheet(QString());
    tearDown();
}

void tst_pickerWindows_walks::nothingLiesOverAnEntry_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("sheet");
    const QString plain;
    const QString background = QStringLiteral("QWidget{background:#2b2b2b;color:#eee}");
    const QString menus = QStringLiteral("QMenu{border:3px solid red;padding:4px;menu-scrollable:1}"
                                         "QMenu::item{padding:9px;margin:5px}");
    for (const int count : {1, 45, 1000}) {
        QTest::addRow("%d", count) << count << plain;
        QTest::addRow("%d, colored by the host", count) << count << background;
        QTest::addRow("%d, menus of the host's own", count) << count << menus;
    }
}

void tst_pickerWindows_walks::nothingLiesOverAnEntry()
{
    QFETCH(int, count);
    QFETCH(QString, sheet);
    qApp->setStyleSheet(sheet);
    records->customTeam.groups[0] = manySchemes(QStringLiteral("Mine"), count);
    open([count](QWidget *opened) {
        const DropDown parts(opened);
        const auto clear = [&parts](int index) {
            VTSchemeMenuActionWidget *const entry = parts.entry(index);
            const QWidget *const viewport = parts.area->viewport();
            if (entry->size() != QSize(parts.menu->width() - 20, parts.entry(0)->height()))
                return false;
            for (int y = 1; y < entry->height(); y += 3) {
                for (int x = 1; x < entry->width(); x += 5) {
                    const QPoint place = entry->mapTo(viewport, QPoint(x, y));
                    const QWidget *const seen = viewport->childAt(place);
                    if (viewport->rect().contains(place) && seen != entry &&
                        (!seen || seen->parentWidget() != entry))
                        return false;
                }
            }
            return true;
        };
        QScrollBar *const bar = parts.area->verticalScrollBar();
        QVERIFY(clear(0));
        RealInput::press(QStringLiteral("End"));
        QTRY_COMPARE_WITH_TIMEOUT(bar->value(), bar->maximum(), 20000);
        QTRY_COMPARE(parts.highlighted(), QList<int>{count - 1});
        QVERIFY(parts.isInSight(count - 1));
        QVERIFY(clear(count - 1));
        RealInput::press(QStringLiteral("Home"));
        QTRY_COMPARE(bar->value(), 0);
        for (int i = 0; i < count; ++i)
            QVERIFY2(clear(i), qPrintable(QString::number(i)));
        opened->close();
    });
}

void tst_pickerWindows_walks::firstEntryIsUnderThePointerAsAnyOther()
{
    const QString name = QStringLiteral("a name that is much too long for the drop-down's width");
    for (const int i : {0, 1})
        records->customTeam.groups[0].schemes[std::size_t(i)].name =
            toVOString(name + QString::number(i));
    open([&name](QWidget *opened) {
        const DropDown parts(opened);
        for (const int i : {1, 0}) {
            RealInput::moveTo(centerOf(parts.name(i)));
            QTRY_COMPARE(parts.highlighted(), QList<int>{i});
            QCOMPARE(groundOf(parts, i), lit);
            QCOMPARE(groundOf(parts, 1 - i), QColor(Qt::white));
            const QPoint place = parts.menu->mapFromGlobal(centerOf(parts.name(i)));
            QCOMPARE(opened->childAt(place)->cursor().shape(), Qt::PointingHandCursor);
            QTRY_VERIFY(QToolTip::isVisible() &&
                        QToolTip::text().contains(name + QString::number(i)));
        }
        RealInput::click(centerOf(parts.name(0)));
    });
    QTRY_COMPARE(changed->count(), 1);
    QCOMPARE(picker->currentColorRamp()->getLevel(), 1U);
}

void tst_pickerWindows_walks::openByKey(const ModalDriver::Handler &handler)
{
    ModalDriver driver;
    driver.next([&handler](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        handler(opened);
    });
    picker->setFocus();
    RealInput::press(QStringLiteral("F4"));
    QTRY_VERIFY2_WITH_TIMEOUT(driver.allSeen(), qPrintable(driver.problem()), 30000);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_pickerWindows_walks::popupsStayOnTheScreen_data()
{
    QTest::addColumn<double>("x"); // of the window, in shares of the screen
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<int>("groups");
    for (const bool rightToLeft : {false, true}) {
        const char *const direction = rightToLeft ? ", right to left" : "";
        QTest::addRow("middle%s", direction) << 0.5 << 0.2 << rightToLeft << 3;
        QTest::addRow("top left%s", direction) << 0. << 0. << rightToLeft << 3;
        QTest::addRow("bottom left%s", direction) << 0. << 1. << rightToLeft << 3;
        QTest::addRow("top right%s", direction) << 1. << 0. << rightToLeft << 3;
        QTest::addRow("bottom right%s", direction) << 1. << 1. << rightToLeft << 3;
        QTest::addRow("many groups%s", direction) << 0. << 0.5 << rightToLeft << 200;
    }
}

void tst_pickerWindows_walks::popupsStayOnTheScreen()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(bool, rightToLeft);
    QFETCH(int, groups);
    for (int i = 3; i < groups; ++i)
        records->customTeam.groups.push_back(manySchemes(QStringLiteral("group %1").arg(i), i % 2));
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    const auto isNearest = [&screen](const QRect &place, const QPoint &wanted) {
        return screen.contains(place) &&
               place.left() ==
                   qBound(screen.left(), wanted.x(), screen.right() - place.width() + 1) &&
               place.top() ==
                   qBound(screen.top(), wanted.y(), screen.bottom() - place.height() + 1);
    };
    // A window that nobody moves back, with a picker that fills it
    QWidget window(nullptr, Qt::X11BypassWindowManagerHint);
    window.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    window.setGeometry(int(x * (screen.width() - 200)), int(y * (screen.height() - 26)), 200, 26);
    VTColorSchemeComboBox edge(&window);
    edge.setGeometry(0, 0, 200, 26);
    edge.setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    ModalDriver driver;
    driver.next([&](QWidget *opened) {
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        const DropDown parts(opened);
        QVERIFY(isNearest(opened->geometry(), window.mapToGlobal(QPoint(0, 25))));
        QCOMPARE(opened->size(), QSize(160, qMin(350, screen.height())));
        for (const QWidget *part :
             {static_cast<QWidget *>(parts.bar), static_cast<QWidget *>(parts.userDefine)})
            QVERIFY(opened->rect().contains(part->geometry()));
        QVERIFY(parts.area->height() > parts.entry(0)->height());
        RealInput::click(parts.bar);
    });
    driver.next([&](QWidget *chooser) {
        QVERIFY(QTest::qWaitForWindowExposed(chooser));
        const QWidget *const bar = chooser->parentWidget();
        const QPoint corner = bar->mapToGlobal(QPoint(0, bar->height() - 1));
        QVERIFY(isNearest(chooser->geometry(), corner - QPoint(chooser->width() - 1 + 3, 0)));
        QPushButton *const last = chooser->findChildren<QPushButton *>().constLast();
        RealInput::press(QStringLiteral("End"));
        QTRY_VERIFY(last->hasFocus());
        QTRY_VERIFY(
            chooser->rect().contains(QRect(last->mapTo(chooser, QPoint(0, 0)), last->size())));
        RealInput::click(last); // which closes the chooser
        QTRY_VERIFY(qobject_cast<VTColorSchemeMenu *>(QApplication::activePopupWidget()));
        QCOMPARE(DropDown(QApplication::activePopupWidget()).bar->text(), last->text());
        RealInput::press(QStringLiteral("Escape"));
    });
    RealInput::click(&edge);
    QTRY_VERIFY2_WITH_TIMEOUT(driver.allSeen(), qPrintable(driver.problem()), 30000);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_pickerWindows_walks::pointerAtRestMakesNoSecondCurrentEntry()
{
    // Given a pointer that rests where the drop-down will have another entry than the picked one
    QPoint rest;
    openByKey([&rest](QWidget *opened) {
        rest = centerOf(DropDown(opened).name(3));
        opened->close();
    });
    RealInput::moveTo(rest);
    QTRY_COMPARE(QCursor::pos(), rest);
    openByKey([&rest](QWidget *opened) {
        const DropDown parts(opened);
        const QVector<QLabel *> names = namesOf(parts);
        QTRY_COMPARE(litOnes(names), QVector<QLabel *>{parts.name(0)});
        RealInput::press(QStringLiteral("Down"));
        QTRY_COMPARE(litOnes(names), QVector<QLabel *>{parts.name(1)});
        // Then the pointer moves a bit
        RealInput::moveTo(rest + QPoint(2, 1));
        QTRY_COMPARE(litOnes(names), QVector<QLabel *>{parts.name(3)});
        RealInput::press(QStringLiteral("Down"));
        QTRY_COMPARE(litOnes(names), QVector<QLabel *>{parts.name(4)});
        QCOMPARE(parts.highlighted(), QList<int>{4});
        RealInput::press(QStringLiteral("Return"));
    });
    QTRY_COMPARE(changed->count(), 1);
    QCOMPARE(picker->currentColorRamp()->getLevel(), 5U);
}

void tst_pickerWindows_walks::pointerAtRestMakesNoSecondCurrentGroup()
{
    QPoint rest;
    for (const bool resting : {false, true}) {
        ModalDriver driver;
        driver.next([](QWidget *opened) {
            QVERIFY(QTest::qWaitForWindowExposed(opened));
            RealInput::press(QStringLiteral("shift+Tab"));
            QTRY_VERIFY(DropDown(opened).bar->hasFocus());
            RealInput::press(QStringLiteral("Return"));
        });
        driver.next([&rest, resting](QWidget *chooser) {
            QVERIFY(QTest::qWaitForWindowExposed(chooser));
            const QVector<QPushButton *> groups = chooser->findChildren<QPushButton *>().toVector();
            if (!resting) {
                rest = centerOf(groups[4]);
                RealInput::press(QStringLiteral("Escape"));
                QTRY_VERIFY(!chooser->isVisible());
                RealInput::press(QStringLiteral("Escape"));
                return;
            }
            QCOMPARE(litOnes(groups), QVector<QPushButton *>());
            RealInput::press(QStringLiteral("Down"));
            QTRY_COMPARE(litOnes(groups), QVector<QPushButton *>{groups[0]});
            RealInput::press(QStringLiteral("Down"));
            QTRY_COMPARE(litOnes(groups), QVector<QPushButton *>{groups[1]});
            RealInput::moveTo(rest + QPoint(2, 1));
            QTRY_COMPARE(litOnes(groups), QVector<QPushButton *>{groups[4]});
            RealInput::press(QStringLiteral("Down"));
            QTRY_COMPARE(litOnes(groups), QVector<QPushButton *>{groups[5]});
            const QString chosen = groups[5]->text();
            RealInput::press(QStringLiteral("Return"));
            QTRY_VERIFY(!chooser->isVisible());
            QCOMPARE(DropDown(QApplication::activePopupWidget()).bar->text(), chosen);
            RealInput::press(QStringLiteral("Escape"));
        });
        picker->setFocus();
        RealInput::press(QStringLiteral("F4"));
        QTRY_VERIFY2_WITH_TIMEOUT(driver.allSeen(), qPrintable(driver.problem()), 30000);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        RealInput::moveTo(rest);
        QTRY_COMPARE(QCursor::pos(), rest);
    }
}

void tst_pickerWindows_walks::pickedSchemeIsFoundAndLeftByTyping()
{
    records->customTeam.groups[0] = manySchemes(QStringLiteral("Mine"), 45);
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 40));
    open([](QWidget *opened) {
        const DropDown parts(opened);
        QTRY_VERIFY(parts.isInSight(40));
        // A mark where all other names are white
        const auto marked = [&parts](int index) {
            const QImage image = parts.name(index)->grab().toImage();
            int dark = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = image.width() * 9 / 10; x < image.width(); ++x)
                    dark += image.pixelColor(x, y).lightness() < 60 ? 1 : 0;
            }
            return dark > 5;
        };
        for (int i = 0; i < 45; ++i)
            QCOMPARE(marked(i), i == 40);
        RealInput::type(QStringLiteral("me 17"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{17});
        QVERIFY(parts.isInSight(17));
        const auto shown = [opened] {
            QStringList texts;
            for (int i = 0; i < opened->layout()->count(); ++i) {
                const auto *label = qobject_cast<QLabel *>(opened->layout()->itemAt(i)->widget());
                if (label && label->isVisible())
                    texts.append(label->text());
            }
            return texts.join(QLatin1Char('|'));
        };
        QCOMPARE(shown(), QStringLiteral("me 17"));
        RealInput::press(QStringLiteral("BackSpace"));
        QTRY_COMPARE(shown(), QStringLiteral("me 1"));
        RealInput::press(QStringLiteral("Escape"));
        QTRY_COMPARE(shown(), QString());
        QVERIFY(opened->isVisible());
        RealInput::press(QStringLiteral("End"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{44});
        RealInput::press(QStringLiteral("Page_Up"));
        QTRY_VERIFY(parts.highlighted().value(0) < 44);
        RealInput::press(QStringLiteral("Home"));
        QTRY_COMPARE(parts.highlighted(), QList<int>{0});
        RealInput::press(QStringLiteral("Page_Down"));
        QTRY_VERIFY(parts.highlighted().value(0) > 0);
        RealInput::press(QStringLiteral("Escape"));
    });
    QCOMPARE(changed->count(), 0);
}

VT_TEST_MAIN(tst_pickerWindows_walks)
#include "tst_pickerWindows_walks.moc"
