#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/SchemeMenuTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QSignalSpy>
#include <QtTest>

using namespace VTObjects;

class tst_VTColorSchemeMenu_choosing : public SchemeMenuTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void clickOnAnEntryChoosesItOnce();
    void choosingTakesACopyOfTheShownScheme();
    void triggerWithoutAnActionChoosesNothing();
    void missedClickLeavesTheListOpen_data();
    void missedClickLeavesTheListOpen();
    void clickBesideTheDropDownClosesIt();
    void dropDownWithoutAPickerClosesQuietly();
    void pickerMayGoWhileItsDropDownIsOpen();
    void pickerMayGoWhenItTellsOfTheChoice();

    void groupChangeRefillsTheList_data();
    void groupChangeRefillsTheList();
    void groupChangeToAnUnknownNameOnlySetsTheTeam_data();
    void groupChangeToAnUnknownNameOnlySetsTheTeam();
    void unknownKindOfTeamChangesNothing();
    void groupWithoutSchemesEmptiesTheList();
};

void tst_VTColorSchemeMenu_choosing::clickOnAnEntryChoosesItOnce()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    const QImage before = picker->grab().toImage();
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QLabel *strip = DropDown(opened).strip(1);
        QTest::mouseClick(strip, Qt::LeftButton);
        QVERIFY(!opened->isVisible());
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(picker->currentColorRamp()->getLevel(), 10U);
    QVERIFY(picker->grab().toImage() != before);
}

void tst_VTColorSchemeMenu_choosing::choosingTakesACopyOfTheShownScheme()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    ModalDriver driver;
    driver.next([this](QWidget *opened) {
        // The store changes while the drop-down is open; the list keeps what it shows.
        auto *shorter = new VOEvenColorRamp;
        shorter->addColor({1, 2, 3});
        delete records->customTeam.groups[0].schemes[1].colorRamp;
        records->customTeam.groups[0].schemes[1].colorRamp = shorter;
        QTest::mouseClick(DropDown(opened).name(1), Qt::LeftButton);
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(picker->currentColorRamp()->getLevel(), 10U);
    QCOMPARE(records->customTeam.groups[0].schemes[1].colorRamp->getLevel(), 1U);
}

void tst_VTColorSchemeMenu_choosing::triggerWithoutAnActionChoosesNothing()
{
    VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), numbered(2)), picker);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    QVERIFY(QMetaObject::invokeMethod(&menu, "onActionClicked"));
    QCOMPARE(changed.count(), 0);
    // Data that names no scheme
    DropDown(&menu).actions()[0]->setData(2);
    DropDown(&menu).actions()[0]->trigger();
    DropDown(&menu).actions()[1]->setData(-1);
    DropDown(&menu).actions()[1]->trigger();
    QCOMPARE(changed.count(), 0);
}

void tst_VTColorSchemeMenu_choosing::missedClickLeavesTheListOpen_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("released below the entries") << 0;
    QTest::newRow("released on another entry") << 1;
    QTest::newRow("at the corner of the list") << 2;
    QTest::newRow("on the empty part of the area") << 3;
    QTest::newRow("between the parts") << 4;
    QTest::newRow("with the right button") << 5;
    QTest::newRow("released outside the drop-down") << 6;
}

void tst_VTColorSchemeMenu_choosing::missedClickLeavesTheListOpen()
{
    QFETCH(int, kind);
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1);
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    ModalDriver driver;
    driver.next([kind](QWidget *opened) {
        const DropDown parts(opened);
        QMenu *const list = parts.list();
        const QPoint onFirst = list->actionGeometry(parts.actions()[0]).center();
        const QPoint onSecond = list->actionGeometry(parts.actions()[1]).center();
        switch (kind) {
        case 0:
            press(list, onFirst);
            release(list, QPoint(onFirst.x(), list->height() + 20));
            break;
        case 1:
            press(list, onFirst);
            QTest::mouseMove(list, onSecond);
            release(list, onSecond);
            break;
        case 2:
            QTest::mouseClick(list, Qt::LeftButton, Qt::NoModifier, QPoint(list->width() - 1, -1));
            QTest::mouseClick(list, Qt::LeftButton, Qt::NoModifier,
                              QPoint(list->width(), list->height()));
            break;
        case 3: {
            QWidget *const viewport = parts.area->viewport();
            QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier,
                              QPoint(viewport->width() / 2, viewport->height() - 5));
            break;
        }
        case 4:
            QTest::mouseClick(opened, Qt::LeftButton, Qt::NoModifier, QPoint(0, 100));
            break;
        case 5:
            QTest::mouseClick(list, Qt::RightButton, Qt::NoModifier, onFirst);
            break;
        default:
            press(list, onFirst);
            release(list, QPoint(-100, 20));
        }
        QVERIFY(opened->isVisible());
        QVERIFY(list->isVisible());
        QCOMPARE(parts.names(), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(changed.count(), 0);
}

void tst_VTColorSchemeMenu_choosing::clickBesideTheDropDownClosesIt()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QTest::mouseClick(opened, Qt::LeftButton, Qt::NoModifier, QPoint(-30, 100));
        QVERIFY(!opened->isVisible());
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu_choosing::dropDownWithoutAPickerClosesQuietly()
{
    QWidget other;
    VTColorSchemeMenu menu(QStringLiteral("c"), makeGroup(QStringLiteral("g"), numbered(2)),
                           &other);
    const DropDown parts(&menu);
    menu.popup(QPoint(120, 130));
    QCOMPARE(menu.pos(), QPoint(120, 130)); // it does not place itself
    QCOMPARE(parts.bar->minimumSize(), QSize(0, 20));
    QTest::mouseClick(parts.name(0), Qt::LeftButton);
    QVERIFY(!menu.isVisible());
    // A group change refills it all the same.
    parts.bar->setProperty("parent", 2);
    QVERIFY(QMetaObject::invokeMethod(&menu, "onGroupButtonTextChanged",
                                      Q_ARG(QString, QStringLiteral("Best"))));
    QCOMPARE(parts.names(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void tst_VTColorSchemeMenu_choosing::pickerMayGoWhileItsDropDownIsOpen()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    const QPointer<VTColorSchemeComboBox> alive(picker);
    ModalDriver driver;
    driver.next([this](QWidget *opened) {
        delete picker;
        QVERIFY(!opened->isVisible());
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(!alive);
}

void tst_VTColorSchemeMenu_choosing::pickerMayGoWhenItTellsOfTheChoice()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1);
    const QPointer<VTColorSchemeComboBox> alive(picker);
    QString chosen;
    connect(picker, &VTColorSchemeComboBox::currentRampChanged, this, [this, &chosen] {
        chosen = toQString(picker->currentScheme().name);
        delete picker;
    });
    ModalDriver driver;
    driver.next([](QWidget *opened) { DropDown(opened).actions()[1]->trigger(); });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(chosen, QStringLiteral("two"));
    QVERIFY(!alive);
}

void tst_VTColorSchemeMenu_choosing::groupChangeRefillsTheList_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("default: by the key, whatever the text")
        << 0 << QStringLiteral("For unique") << QStringLiteral("Unique");
    QTest::newRow("custom") << 1 << QStringLiteral("Mine") << QString();
    QTest::newRow("favorite") << 2 << QStringLiteral("Best") << QString();
}

void tst_VTColorSchemeMenu_choosing::groupChangeRefillsTheList()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    QFETCH(QString, name);
    const VOColorSchemeTeam &team = kind == 0   ? records->defaultTeam
                                    : kind == 1 ? records->customTeam
                                                : records->favoriteTeam;
    const QString groupName = kind == 0 ? name : text;
    const int index = team.index(toVOString(groupName));
    QVERIFY(index >= 0);
    const QStringList expected = schemeNames(team.groups[static_cast<std::size_t>(index)]);
    QVERIFY(!expected.isEmpty());

    VOColorRamp *const ramp = picker->currentColorRamp();
    QSignalSpy changed(picker, &VTColorSchemeComboBox::currentRampChanged);
    {
        VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), numbered(30)), picker);
        const DropDown parts(&menu);
        parts.bar->setProperty("parent", kind);
        if (kind == 0)
            parts.bar->setProperty("name", name);
        Q_EMIT parts.bar->textChanged(text);
        QCOMPARE(parts.names(), expected);
        QCOMPARE(parts.strip(0)->pixmap(Qt::ReturnByValue).width(), menu.width() - 20);
    }
    // The picker keeps its scheme, and opens on that group from now on.
    QCOMPARE(picker->currentColorRamp(), ramp);
    QCOMPARE(changed.count(), 0);
    ModalDriver driver;
    driver.next([&expected, &text](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), text);
        QCOMPARE(DropDown(opened).names(), expected);
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu_choosing::groupChangeToAnUnknownNameOnlySetsTheTeam_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("caption"); // that of the second group of the new team
    QTest::newRow("default") << 0 << QStringLiteral("For unique");
    QTest::newRow("custom") << 1 << QStringLiteral("Nothing");
    QTest::newRow("favorite") << 2 << QStringLiteral("Rest");
}

void tst_VTColorSchemeMenu_choosing::groupChangeToAnUnknownNameOnlySetsTheTeam()
{
    QFETCH(int, kind);
    QFETCH(QString, caption);
    records->favoriteTeam.groups.push_back(makeGroup(QStringLiteral("Rest"), {}));
    // Given a picker on the second group of another team
    QVERIFY(picker->setDefaultGroup(
        kind == 1 ? QStringLiteral("Favorite") : QStringLiteral("Custom"), 1, -1));
    {
        VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), numbered(3)), picker);
        const DropDown parts(&menu);
        parts.bar->setProperty("parent", kind);
        // Deliberate: without a key a default group is not found, even if the text names one.
        Q_EMIT parts.bar->textChanged(kind == 0 ? QStringLiteral("DEM") : QStringLiteral("gone"));
        QCOMPARE(parts.names(), numbered(3));
    }
    // Then the position stays and means a group of the new team
    ModalDriver driver;
    driver.next([&caption](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), caption);
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu_choosing::unknownKindOfTeamChangesNothing()
{
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, -1));
    {
        VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), numbered(3)), picker);
        const DropDown parts(&menu);
        for (int kind : {3, -1}) {
            parts.bar->setProperty("parent", kind);
            Q_EMIT parts.bar->textChanged(QStringLiteral("Best"));
            QCOMPARE(parts.names(), numbered(3));
        }
    }
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), QStringLiteral("Mine"));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu_choosing::groupWithoutSchemesEmptiesTheList()
{
    VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), numbered(3)), picker);
    const DropDown parts(&menu);
    const QPointer<QMenu> list = parts.list();
    parts.bar->setProperty("parent", 1);
    Q_EMIT parts.bar->textChanged(QStringLiteral("Nothing"));
    QVERIFY(list.isNull());
    QCOMPARE(parts.area->widget(), nullptr);
}

VT_TEST_MAIN(tst_VTColorSchemeMenu_choosing)
#include "tst_VTColorSchemeMenu_choosing.moc"
