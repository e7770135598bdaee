#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "colorscheme/picker/defaultGroupCaptions_p.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "tests/support/windowsLeft.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using vtcontrolcolorscheme::defaultGroupCaptions;

using namespace VTObjects;

namespace {

const QString headerStyle =
    QStringLiteral("QLabel{background-color:rgba(255,152,0,255);min-height:20;border-radius: 1px;  "
                   "border: 0px groove gray;border-style: outset;}");
const QString groupStyle = QStringLiteral(
    "QPushButton{background-color:rgba(240,240,240,255);border-radius: 3px; min-height:20;"
    "text-align: left; border: 0px groove gray;border-style: outset;}"
    "QPushButton:hover{background-color:rgba(51,153,255,255);} ");

/// The chooser from top to bottom: "[header]", "group".
QStringList rows(const QWidget &chooser)
{
    QStringList result;
    for (int i = 0; i < chooser.layout()->count(); ++i) {
        QWidget *widget = chooser.layout()->itemAt(i)->widget();
        if (auto *label = qobject_cast<QLabel *>(widget))
            result.append(QStringLiteral("[%1]").arg(label->text()));
        else if (auto *button = qobject_cast<QPushButton *>(widget))
            result.append(button->text());
    }
    return result;
}

const QStringList defaultRows{QStringLiteral("[Default]"),    QStringLiteral("For DEM"),
                              QStringLiteral("For unique"),   QStringLiteral("For unique range"),
                              QStringLiteral("For graph"),    QStringLiteral("Even scheme"),
                              QStringLiteral("Random scheme")};

} // namespace

class tst_VTColorSchemeGroupMenu : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void groupsStandBelowTheirTeams();
    void teamsWithoutGroupsHaveNoHeader();
    void defaultHeaderStandsWithoutDefaultGroups();
    void defaultGroupsKeepTheFixedOrder();
    void keyThatIsMissingInTheCaptionsIsAdded();
    void looksAreAsQuoted();
    void groupsCarryTheirTeamAndKey();
    void slotIsItsOwn();

    void standsAtTheLeftOfTheBar();
    void isNotMovedWithoutABar_data();
    void isNotMovedWithoutABar();

    void pickedGroupReachesTheBar_data();
    void pickedGroupReachesTheBar();
    void sameGroupAgainIsToldAgain();
    void withoutAPushedButtonNothingIsTold();
    void pressBesideTheGroupsLeavesTheChooserOpen();

    void chooserThatFitsKeepsItsPlainLayout();
    void lastGroupsOfATallChooserCanBeReached();
    void longAndOddNamesAreShown();

private:
    std::unique_ptr<TestStore> store;
    std::unique_ptr<QWidget> window;
    VTColorSchemeGroupButton *bar = nullptr;
    VOColorSchemeManager *records = nullptr;
};

void tst_VTColorSchemeGroupMenu::init()
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

void tst_VTColorSchemeGroupMenu::cleanup()
{
    window.reset();
    store.reset();
    QCOMPARE(windowsLeft(), QStringList());
}

void tst_VTColorSchemeGroupMenu::groupsStandBelowTheirTeams()
{
    VTColorSchemeGroupMenu chooser(bar);
    QVERIFY(qobject_cast<QVBoxLayout *>(chooser.layout()));
    QCOMPARE(rows(chooser), QStringList({QStringLiteral("[Select groups:]"),
                                         QStringLiteral("[Favorite]"), QStringLiteral("Best")}) +
                                defaultRows +
                                QStringList({QStringLiteral("[Custom]"), QStringLiteral("Mine"),
                                             QStringLiteral("Yours")}));
}

void tst_VTColorSchemeGroupMenu::teamsWithoutGroupsHaveNoHeader()
{
    records->customTeam.groups.clear();
    records->favoriteTeam.groups.clear();
    VTColorSchemeGroupMenu chooser(bar);
    QCOMPARE(rows(chooser), QStringList(QStringLiteral("[Select groups:]")) + defaultRows);
}

void tst_VTColorSchemeGroupMenu::defaultHeaderStandsWithoutDefaultGroups()
{
    records->customTeam.groups.clear();
    records->favoriteTeam.groups.clear();
    records->defaultTeam.groups.clear();
    VTColorSchemeGroupMenu chooser(bar);
    QCOMPARE(rows(chooser),
             QStringList({QStringLiteral("[Select groups:]"), QStringLiteral("[Default]")}));
}

void tst_VTColorSchemeGroupMenu::defaultGroupsKeepTheFixedOrder()
{
    records->customTeam.groups.clear();
    records->favoriteTeam.groups.clear();
    records->defaultTeam.groups.clear();
    for (const char *name : {"Random", "Mine too", "DEM", "Graph"})
        records->defaultTeam.groups.push_back(makeGroup(QString::fromLatin1(name), {}));
    VTColorSchemeGroupMenu chooser(bar);
    QCOMPARE(rows(chooser),
             QStringList({QStringLiteral("[Select groups:]"), QStringLiteral("[Default]"),
                          QStringLiteral("For DEM"), QStringLiteral("For graph"),
                          QStringLiteral("Random scheme")}));
}

void tst_VTColorSchemeGroupMenu::keyThatIsMissingInTheCaptionsIsAdded()
{
    defaultGroupCaptions.remove("Graph");
    VTColorSchemeGroupMenu chooser(bar);
    QCOMPARE(rows(chooser).value(3 + 4), QString());
    QVERIFY(defaultGroupCaptions.contains("Graph"));
}

void tst_VTColorSchemeGroupMenu::looksAreAsQuoted()
{
    VTColorSchemeGroupMenu chooser(bar);
    const QList<QLabel *> labels = chooser.findChildren<QLabel *>();
    QCOMPARE(labels.size(), 4);
    QCOMPARE(labels[0]->styleSheet(), QString());
    QCOMPARE(labels[0]->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(labels[0]->font().weight(), 75);
    for (int i = 1; i < labels.size(); ++i) {
        QCOMPARE(labels[i]->styleSheet(), headerStyle);
        QCOMPARE(labels[i]->alignment(), Qt::Alignment(Qt::AlignCenter));
    }
    const QList<QPushButton *> groups = chooser.findChildren<QPushButton *>();
    QCOMPARE(groups.size(), 9);
    for (const QPushButton *group : groups) {
        QCOMPARE(group->parentWidget(), &chooser);
        QCOMPARE(group->styleSheet(), groupStyle);
        QCOMPARE(group->cursor().shape(), Qt::PointingHandCursor);
    }
}

void tst_VTColorSchemeGroupMenu::groupsCarryTheirTeamAndKey()
{
    VTColorSchemeGroupMenu chooser(bar);
    const QPushButton *best = groupOf(&chooser, QStringLiteral("Best"));
    QCOMPARE(best->property("parent"), QVariant(2));
    QVERIFY(!best->property("name").isValid());
    const QPushButton *range = groupOf(&chooser, QStringLiteral("For unique range"));
    QCOMPARE(range->property("parent"), QVariant(0));
    QCOMPARE(range->property("name"), QVariant(QStringLiteral("Range")));
    const QPushButton *yours = groupOf(&chooser, QStringLiteral("Yours"));
    QCOMPARE(yours->property("parent"), QVariant(1));
    QVERIFY(!yours->property("name").isValid());
}

void tst_VTColorSchemeGroupMenu::slotIsItsOwn()
{
    const QMetaObject &meta = VTColorSchemeGroupMenu::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("onButtonClicked()"));
}

void tst_VTColorSchemeGroupMenu::standsAtTheLeftOfTheBar()
{
    ModalDriver driver;
    driver.next([this](QWidget *opened) {
        // Its last column 3 pixels left of the bar, its top in the bar's last row
        const QPoint corner = window->mapToGlobal(QPoint(bar->x(), bar->y() + bar->height() - 1));
        QCOMPARE(opened->geometry().right(), corner.x() - 3);
        QCOMPARE(opened->geometry().top(), corner.y());
        opened->close();
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeGroupMenu::isNotMovedWithoutABar_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("no parent") << 0;
    QTest::newRow("another parent") << 1;
    QTest::newRow("a bar without a parent") << 2;
}

void tst_VTColorSchemeGroupMenu::isNotMovedWithoutABar()
{
    QFETCH(int, kind);
    VTColorSchemeGroupButton single(nullptr);
    QWidget *const parents[] = {nullptr, window.get(), &single};
    VTColorSchemeGroupMenu chooser(parents[kind]);
    chooser.popup(QPoint(111, 122));
    QCOMPARE(chooser.pos(), QPoint(111, 122));
    // A click still closes it
    QTest::mouseClick(groupOf(&chooser, QStringLiteral("Yours")), Qt::LeftButton);
    QVERIFY(!chooser.isVisible());
    QCOMPARE(single.text(), kind == 2 ? QStringLiteral("Yours") : QString());
}

void tst_VTColorSchemeGroupMenu::pickedGroupReachesTheBar_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("name");
    QTest::newRow("default") << QStringLiteral("For graph") << 0
                             << QVariant(QStringLiteral("Graph"));
    QTest::newRow("custom") << QStringLiteral("Yours") << 1 << QVariant();
    QTest::newRow("favorite") << QStringLiteral("Best") << 2 << QVariant();
}

void tst_VTColorSchemeGroupMenu::pickedGroupReachesTheBar()
{
    QFETCH(QString, group);
    QFETCH(int, kind);
    QFETCH(QVariant, name);
    // Given a bar that still tells of another group
    bar->setText(QStringLiteral("old"));
    bar->setProperty("parent", 7);
    bar->setProperty("name", QStringLiteral("old key"));
    QStringList told;
    connect(bar, &VTColorSchemeGroupButton::textChanged, this, [&](const QString &text) {
        told.append(text);
        // All is set, and the chooser closed, before anyone hears of it
        QCOMPARE(bar->text(), group);
        QCOMPARE(bar->property("parent"), QVariant(kind));
        QCOMPARE(bar->property("name"), name);
        QVERIFY(!qobject_cast<VTColorSchemeGroupMenu *>(QApplication::activePopupWidget()));
    });
    ModalDriver driver;
    driver.next(
        [&group](QWidget *opened) { QTest::mouseClick(groupOf(opened, group), Qt::LeftButton); });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told, QStringList(group));
    QCOMPARE(bar->dynamicPropertyNames().contains("name"), name.isValid());
}

void tst_VTColorSchemeGroupMenu::sameGroupAgainIsToldAgain()
{
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    for (int i = 0; i < 2; ++i) {
        ModalDriver driver;
        driver.next([](QWidget *opened) { groupOf(opened, QStringLiteral("Mine"))->click(); });
        bar->click();
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    }
    QCOMPARE(told.count(), 2);
}

void tst_VTColorSchemeGroupMenu::withoutAPushedButtonNothingIsTold()
{
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    VTColorSchemeGroupMenu chooser(bar);
    chooser.popup(QPoint());
    QVERIFY(QMetaObject::invokeMethod(&chooser, "onButtonClicked"));
    QCOMPARE(told.count(), 0);
    QVERIFY(chooser.isVisible());
    chooser.close();
}

void tst_VTColorSchemeGroupMenu::pressBesideTheGroupsLeavesTheChooserOpen()
{
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QTest::mouseClick(opened->findChildren<QLabel *>().value(1), Qt::LeftButton);
        QVERIFY(opened->isVisible());
        QTest::mouseClick(opened, Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
        QVERIFY(opened->isVisible());
        QTest::mouseClick(opened, Qt::LeftButton, Qt::NoModifier, QPoint(-20, 30));
        QVERIFY(!opened->isVisible());
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told.count(), 0);
}

void tst_VTColorSchemeGroupMenu::chooserThatFitsKeepsItsPlainLayout()
{
    ModalDriver driver;
    driver.next([](QWidget *opened) {
        QVERIFY(!opened->findChild<QScrollArea *>());
        QCOMPARE(rows(*opened).size(), 13);
        for (const QPushButton *group : opened->findChildren<QPushButton *>())
            QVERIFY(opened->rect().contains(group->geometry()));
        opened->close();
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

void tst_VTColorSchemeGroupMenu::lastGroupsOfATallChooserCanBeReached()
{
    for (int i = 0; i < 200; ++i)
        records->customTeam.groups.push_back(makeGroup(QStringLiteral("group %1").arg(i), {}));
    QSignalSpy told(bar, &VTColorSchemeGroupButton::textChanged);
    ModalDriver driver;
    driver.next([this](QWidget *opened) {
        QCOMPARE(opened->height(), QApplication::primaryScreen()->availableGeometry().height());
        const QPoint corner = window->mapToGlobal(QPoint(bar->x(), bar->y() + bar->height() - 1));
        QCOMPARE(opened->geometry().right(), corner.x() - 3);
        auto *area = opened->findChild<QScrollArea *>();
        QVERIFY(area);
        QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
        QPushButton *last = groupOf(opened, QStringLiteral("group 199"));
        QVERIFY(last);
        QVERIFY(last->width() <= area->viewport()->width());
        area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        const QRect place(last->mapTo(opened, QPoint(0, 0)), last->size());
        QVERIFY(opened->rect().contains(place));
        QTest::mouseClick(last, Qt::LeftButton);
    });
    bar->click();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(told.count(), 1);
    QCOMPARE(bar->text(), QStringLiteral("group 199"));
}

void tst_VTColorSchemeGroupMenu::longAndOddNamesAreShown()
{
    records->customTeam.groups.clear();
    records->customTeam.groups.push_back(makeGroup(QString(500, QLatin1Char('W')), {}));
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Land & sea"), {}));
    records->customTeam.groups.push_back(makeGroup(QStringLiteral("Land _sea"), {}));
    VTColorSchemeGroupMenu chooser(bar);
    QVERIFY(chooser.sizeHint().width() < 400);
    const QPushButton *odd = groupOf(&chooser, QStringLiteral("Land & sea"));
    QVERIFY(odd);
    VTColorSchemeGroupMenu other(bar);
    QPushButton *plain = groupOf(&other, QStringLiteral("Land & sea"));
    plain->resize(odd->size());
    plain->setText(QStringLiteral("Land sea"));
    // The ampersand is a sign of its own, and no underline below the blank
    QVERIFY(groupOf(&chooser, QStringLiteral("Land & sea"))->grab() != plain->grab());
    QVERIFY(odd->sizeHint().width() > plain->sizeHint().width());
}

VT_TEST_MAIN(tst_VTColorSchemeGroupMenu)
#include "tst_VTColorSchemeGroupMenu.moc"
