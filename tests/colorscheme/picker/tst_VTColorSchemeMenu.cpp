#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/SchemeMenuTest.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScrollBar>
#include <QStyle>
#include <QtTest>

#include <algorithm>

using namespace VTObjects;

class tst_VTColorSchemeMenu : public SchemeMenuTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void partsLieInAColumn();
    void slotsStandInTheirOrder();
    void widthFollowsThePicker_data();
    void widthFollowsThePicker();
    void everySchemeHasAnEntry();
    void schemeWithoutARampHasNoStrip();
    void emptyGroupLeavesTheAreaEmpty();
    void hostileNamesAreShownAsTheyAre();
    void stripIsNeverCut_data();
    void stripIsNeverCut();
    void longListStaysInOneColumn();
    void pickedEntryIsMarked_data();
    void pickedEntryIsMarked();
    void pickedEntryIsMarkedInItsOwnGroupOnly();
    void listIsWhiteWithDarkNamesInADarkTheme();

    void captionFollowsTheTeam_data();
    void captionFollowsTheTeam();
    void unknownDefaultGroupEntersTheCaptions();
    void groupThatIsOutOfRangeOpensAnEmptyDropDown_data();
    void groupThatIsOutOfRangeOpensAnEmptyDropDown();
    void dropDownStandsBelowThePicker();
    void dropDownOfAPickerWithoutAParentIsNotMoved();
    void barsAreEquallyWideAndHigh();
};

void tst_VTColorSchemeMenu::partsLieInAColumn()
{
    VTColorSchemeMenu menu(QStringLiteral("For DEM"), makeGroup(QStringLiteral("g"), {}), picker);
    const DropDown parts(&menu);
    auto *layout = qobject_cast<QVBoxLayout *>(menu.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), parts.bar);
    QCOMPARE(layout->itemAt(1)->widget(), parts.area);
    QCOMPARE(layout->itemAt(2)->widget(), parts.userDefine);
    QCOMPARE(parts.bar->text(), QStringLiteral("For DEM"));
    QCOMPARE(parts.userDefine->text(), QStringLiteral("User define"));
    QVERIFY(menu.testAttribute(Qt::WA_MouseTracking));
    QVERIFY(parts.area->hasMouseTracking());
    QCOMPARE(parts.area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void tst_VTColorSchemeMenu::slotsStandInTheirOrder()
{
    const QMetaObject &meta = VTColorSchemeMenu::staticMetaObject;
    QList<QByteArray> signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        signatures.append(meta.method(i).methodSignature());
    QCOMPARE(signatures,
             QList<QByteArray>({"onActionClicked()", "onGroupButtonTextChanged(QString)",
                                "onCustomButtonClicked(bool)"}));
}

void tst_VTColorSchemeMenu::widthFollowsThePicker_data()
{
    QTest::addColumn<int>("pickerWidth");
    QTest::addColumn<int>("width");
    QTest::newRow("narrow picker") << 150 << 160;
    QTest::newRow("just as wide") << 200 << 160;
    QTest::newRow("above by a fraction") << 201 << 160;
    QTest::newRow("truncated") << 252 << 201;
    QTest::newRow("wide picker") << 500 << 400;
}

void tst_VTColorSchemeMenu::widthFollowsThePicker()
{
    QFETCH(int, pickerWidth);
    QFETCH(int, width);
    picker->resize(pickerWidth, 24);
    const VOColorSchemeGroup group = makeGroup(QStringLiteral("g"), {QStringLiteral("one")});
    VTColorSchemeMenu menu(QString(), group, picker);
    QCOMPARE(menu.minimumSize(), QSize(width, 350));
    QCOMPARE(menu.size(), QSize(width, 350));
    QCOMPARE(DropDown(&menu).strip(0)->pixmap(Qt::ReturnByValue).size(), QSize(width - 20, 20));

    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    ModalDriver driver;
    driver.next([width](QWidget *opened) {
        QCOMPARE(opened->size(), QSize(width, 350));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::everySchemeHasAnEntry()
{
    const VOColorSchemeGroup group = makeGroup(QStringLiteral("g"), numbered(5));
    VTColorSchemeMenu menu(QString(), group, picker);
    const DropDown parts(&menu);
    QVERIFY(parts.list());
    QVERIFY(parts.list()->testAttribute(Qt::WA_MouseTracking));
    QVERIFY(parts.list()->testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(parts.names(), numbered(5));
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(parts.actions()[i]->data().type(), QVariant::Int);
        QCOMPARE(parts.actions()[i]->data().toInt(), i);
        QCOMPARE(parts.actions()[i]->parent(), parts.list());
        QCOMPARE(parts.entry(i)->parentWidget(), parts.list());
        QCOMPARE(parts.strip(i)->pixmap(Qt::ReturnByValue).size(), QSize(140, 20));
    }
}

void tst_VTColorSchemeMenu::schemeWithoutARampHasNoStrip()
{
    VOColorSchemeGroup group = makeGroup(QStringLiteral("g"), numbered(2));
    delete group.schemes[0].colorRamp;
    group.schemes[0].colorRamp = nullptr;
    VTColorSchemeMenu menu(QString(), group, picker);
    const DropDown parts(&menu);
    QCOMPARE(parts.names(), numbered(2));
    QVERIFY(parts.strip(0)->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(!parts.strip(1)->pixmap(Qt::ReturnByValue).isNull());
}

void tst_VTColorSchemeMenu::emptyGroupLeavesTheAreaEmpty()
{
    VTColorSchemeMenu menu(QStringLiteral("None"), makeGroup(QStringLiteral("g"), {}), picker);
    const DropDown parts(&menu);
    QCOMPARE(parts.area->widget(), nullptr);
    QCOMPARE(menu.findChildren<QMenu *>().size(), 0);
    QVERIFY(parts.bar);
    QVERIFY(parts.userDefine);
}

void tst_VTColorSchemeMenu::hostileNamesAreShownAsTheyAre()
{
    const QStringList names{QStringLiteral("<b>bold</b>"), QStringLiteral("Land & sea"), QString(),
                            QString(3000, QLatin1Char('W'))};
    VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), names), picker);
    const DropDown parts(&menu);
    QCOMPARE(parts.names(), names);
    QCOMPARE(menu.width(), 160);
    QCOMPARE(parts.list()->width(), 140); // the long name makes no wider list
}

void tst_VTColorSchemeMenu::stripIsNeverCut_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("pickerWidth");
    QTest::newRow("without scroll bar") << 3 << 150;
    QTest::newRow("with scroll bar") << 50 << 150;
    QTest::newRow("without scroll bar, wide") << 3 << 433;
    QTest::newRow("with scroll bar, wide") << 50 << 433;
}

void tst_VTColorSchemeMenu::stripIsNeverCut()
{
    QFETCH(int, count);
    QFETCH(int, pickerWidth);
    picker->resize(pickerWidth, 24);
    records->customTeam.groups[0] = makeGroup(QStringLiteral("Mine"), numbered(count));
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    ModalDriver driver;
    driver.next([count](QWidget *opened) {
        const DropDown parts(opened);
        QCOMPARE(parts.area->verticalScrollBar()->isVisible(), count > 10);
        const QLabel *strip = parts.strip(0);
        const QSize size(opened->width() - 20, 20);
        QCOMPARE(strip->pixmap(Qt::ReturnByValue).size(), size);
        QVERIFY(strip->width() >= size.width());
        QVERIFY(strip->height() >= size.height());
        const QRect place(strip->mapTo(parts.area->viewport(), QPoint(0, 0)), size);
        QVERIFY(parts.area->viewport()->rect().contains(place));
        QVERIFY(opened->rect().contains(QRect(strip->mapTo(opened, QPoint(0, 0)), size)));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::longListStaysInOneColumn()
{
    const VOColorSchemeGroup group = makeGroup(QStringLiteral("g"), numbered(1000));
    VTColorSchemeMenu menu(QString(), group, picker);
    const DropDown parts(&menu);
    QCOMPARE(parts.list()->style()->styleHint(QStyle::SH_Menu_Scrollable, nullptr, parts.list()),
             0); // or the toolkit would cover the first entry
    QCOMPARE(parts.list()->width(), 140);
    QCOMPARE(parts.entry(999)->x(), parts.entry(0)->x());
    QCOMPARE(parts.list()->height(), 1000 * parts.entry(0)->height());
}

void tst_VTColorSchemeMenu::pickedEntryIsMarked_data()
{
    QTest::addColumn<int>("picked");
    QTest::newRow("none") << -1;
    QTest::newRow("first of a name") << 0;
    QTest::newRow("second of that name") << 2;
    QTest::newRow("without a ramp") << 3;
}

void tst_VTColorSchemeMenu::pickedEntryIsMarked()
{
    QFETCH(int, picked);
    VOColorSchemeGroup &group = records->customTeam.groups[0];
    group = makeGroup(QStringLiteral("Mine"), {QStringLiteral("twin"), QStringLiteral("other"),
                                               QStringLiteral("twin"), QStringLiteral("bare")});
    group.schemes[2].colorRamp->split(3);
    delete group.schemes[3].colorRamp;
    group.schemes[3].colorRamp = nullptr;
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, picked));
    VTColorSchemeMenu menu(QString(), group, picker);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(DropDown(&menu).entry(i)->isPicked(), i == picked);
    QCOMPARE(DropDown(&menu).highlighted(), QList<int>());
}

void tst_VTColorSchemeMenu::pickedEntryIsMarkedInItsOwnGroupOnly()
{
    // Given a favorite that is equal to the picked scheme
    records->favoriteTeam.groups[0] = records->customTeam.groups[0];
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 1));
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Favorite"), 0, -1));
    VTColorSchemeMenu favorites(QString(), records->favoriteTeam.groups[0], picker);
    QVERIFY(!DropDown(&favorites).entry(1)->isPicked());
    // and once that is picked, with its colors changed in the store
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Favorite"), 0, 1));
    records->favoriteTeam.groups[0].schemes[1].colorRamp->split(7);
    VTColorSchemeMenu changed(QString(), records->favoriteTeam.groups[0], picker);
    QVERIFY(DropDown(&changed).entry(1)->isPicked());
}

void tst_VTColorSchemeMenu::listIsWhiteWithDarkNamesInADarkTheme()
{
    const QPalette light = QApplication::palette();
    QPalette theme(QColor(60, 60, 60), QColor(40, 40, 40)); // with white text everywhere
    theme.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(theme);
    VTColorSchemeMenu menu(QString(), makeGroup(QStringLiteral("g"), {QStringLiteral("WWWW")}),
                           picker);
    menu.popup(QPoint(10, 10));
    const DropDown parts(&menu);
    const QImage area = parts.area->grab().toImage();
    const QImage name = parts.name(0)->grab().toImage();
    menu.close();
    QApplication::setPalette(light);
    QCOMPARE(area.pixelColor(area.width() / 2, area.height() - 5), QColor(Qt::white));
    int darkest = 255;
    for (int y = 0; y < name.height(); ++y) {
        for (int x = 0; x < name.width(); ++x)
            darkest = std::min(darkest, name.pixelColor(x, y).lightness());
    }
    QVERIFY(darkest < 60);
    QCOMPARE(area.pixelColor(parts.list()->x() + name.width() - 3, 3), QColor(Qt::white));
}

void tst_VTColorSchemeMenu::captionFollowsTheTeam_data()
{
    QTest::addColumn<QString>("team");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("caption");
    QTest::newRow("DEM") << QStringLiteral("Default") << QStringLiteral("DEM")
                         << QStringLiteral("For DEM");
    QTest::newRow("Range, any letter case") << QStringLiteral("dEFAULT") << QStringLiteral("Range")
                                            << QStringLiteral("For unique range");
    QTest::newRow("custom") << QStringLiteral("Custom") << QStringLiteral("Mine")
                            << QStringLiteral("Mine");
    QTest::newRow("custom, any letter case")
        << QStringLiteral("CUSTOM") << QStringLiteral("Mine") << QStringLiteral("Mine");
    QTest::newRow("favorites") << QStringLiteral("Favorite") << QStringLiteral("Best")
                               << QStringLiteral("Best");
    QTest::newRow("any other text")
        << QStringLiteral("?") << QStringLiteral("Best") << QStringLiteral("Best");
}

void tst_VTColorSchemeMenu::captionFollowsTheTeam()
{
    QFETCH(QString, team);
    QFETCH(QString, group);
    QFETCH(QString, caption);
    QVERIFY(picker->setDefaultGroup(team, group, 0));
    ModalDriver driver;
    driver.next([&caption](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), caption);
        QVERIFY(!DropDown(opened).names().isEmpty());
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::unknownDefaultGroupEntersTheCaptions()
{
    records->defaultTeam.groups.push_back(makeGroup(QStringLiteral("Extra"), numbered(2)));
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Default"), QStringLiteral("Extra"), 0));
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), QString());
        QCOMPARE(DropDown(opened).names(), numbered(2));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::groupThatIsOutOfRangeOpensAnEmptyDropDown_data()
{
    QTest::addColumn<bool>("chosen");
    QTest::newRow("nothing was ever set") << false;
    QTest::newRow("the group has gone") << true;
}

void tst_VTColorSchemeMenu::groupThatIsOutOfRangeOpensAnEmptyDropDown()
{
    QFETCH(bool, chosen);
    if (chosen) {
        QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 1, -1));
        records->customTeam.groups.pop_back();
    }
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QCOMPARE(DropDown(opened).bar->text(), QString());
        QCOMPARE(DropDown(opened).list(), nullptr);
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::dropDownStandsBelowThePicker()
{
    ModalDriver driver;
    driver.next([this](QWidget *opened) {
        const QPoint bottomLeft(picker->x(), picker->y() + picker->height() - 1);
        QCOMPARE(opened->pos(), host->mapToGlobal(bottomLeft));
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::dropDownOfAPickerWithoutAParentIsNotMoved()
{
    VTColorSchemeComboBox single;
    single.move(300, 200);
    single.show();
    single.setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    // Where the toolkit opens any menu that nobody places
    QMenu plain;
    plain.setMinimumSize(160, 350);
    plain.popup(plain.pos());
    const QPoint unplaced = plain.pos();
    plain.close();
    ModalDriver driver;
    driver.next([&unplaced](QWidget *opened) {
        QCOMPARE(opened->pos(), unplaced);
        QCOMPARE(opened->size(), QSize(160, 350));
        QCOMPARE(DropDown(opened).bar->minimumSize(), DropDown(opened).userDefine->size());
        opened->close();
    });
    single.click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeMenu::barsAreEquallyWideAndHigh()
{
    picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        const DropDown parts(opened);
        QCOMPARE(parts.bar->minimumSize(), parts.userDefine->size());
        QTRY_COMPARE(parts.bar->size(), parts.userDefine->size());
        opened->close();
    });
    picker->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

VT_TEST_MAIN(tst_VTColorSchemeMenu)
#include "tst_VTColorSchemeMenu.moc"
