#include "tests/support/MapWindowTest.h"

#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"

#include "apps/mapviewer/layers/RampColors.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/LegendWidget.h"

#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QtTest>

using namespace mapviewer;
using namespace VTObjects;

/// Where the window and the scheme library meet.
class tst_mapWindowSchemes : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aPickedSchemeRecolorsMapAndLegend();
    void aSchemeChosenInTheDropDownRecolorsTheMap();
    void settersOfThePickerAloneChangeNothing();
    void theChosenSchemeComesBack();
    void aSchemeThatIsGoneIsReplacedByADefault();
    void anotherMethodAsksForAnotherGroup();
    void aNumberAfterATextIsShownInRanges();
    void anotherStoreIsTaken();
    void theOpenStoreIsNamedAndTheDefaultOneComesBack();
    void builtInSchemesAreRestoredWhenAsked_data();
    void builtInSchemesAreRestoredWhenAsked();
    void theManagerOpensAndLayersFollowTheStore();
    void theManagerOpensAsItWasLeft();
    void aLayerKeepsItsColorsWhenItsSchemeIsGone();
    void editingABuiltInSchemeMakesACopyOfIt();
    void canceledEditingLeavesNoCopy_data();
    void canceledEditingLeavesNoCopy();
    void editingTheUsersOwnSchemeChangesIt();
};

static void pick(LayerCard *card, const QString &group, int scheme)
{
    QVERIFY(card->picker()->setDefaultGroup("Default", group, scheme));
    Q_EMIT card->picker()->currentRampChanged();
}

static std::vector<VOColorSchemeGroup> &customGroups()
{
    return VOColorSchemeManager::instance()->customTeam.groups;
}

void tst_mapWindowSchemes::aPickedSchemeRecolorsMapAndLegend()
{
    LayerCard *countries = card("Countries");
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->defaultTeam;
    const int groupIndex = team.index("Range");
    QVERIFY(groupIndex >= 0);
    const VOColorSchemeGroup &group = team.groups[std::size_t(groupIndex)];
    QVERIFY(group.schemes.size() >= 3);
    for (int i = 0; i < 3; ++i) {
        pick(countries, "Range", i);
        // Australia is in the highest class, which has the ramp's last colour.
        const QRgb last = rampColors(group.schemes[std::size_t(i)].colorRamp).last();
        QCOMPARE(pixelAt(outback.x(), outback.y()), last);
        QCOMPARE(countries->findChild<LegendWidget *>()->legend().classes.first().color, last);
    }
}

void tst_mapWindowSchemes::aSchemeChosenInTheDropDownRecolorsTheMap()
{
    LayerCard *countries = card("Countries");
    pick(countries, "Range", 0);
    const VOColorSchemeTeam &team = VOColorSchemeManager::instance()->defaultTeam;
    const VOColorSchemeGroup &group = team.groups[std::size_t(team.index("Range"))];
    ModalDriver driver;
    driver.next([](QWidget *menu) {
        // The entries follow one another; Home goes to the first.
        QTest::keyClick(menu, Qt::Key_Home);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTest::mouseClick(countries->picker(), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(countries->currentScheme().scheme, group.schemes[1].name);
    QCOMPARE(pixelAt(outback.x(), outback.y()), rampColors(group.schemes[1].colorRamp).last());
}

void tst_mapWindowSchemes::settersOfThePickerAloneChangeNothing()
{
    LayerCard *countries = card("Countries");
    pick(countries, "Range", 0);
    const QRgb before = pixelAt(outback.x(), outback.y());
    QVERIFY(countries->picker()->setDefaultGroup("Default", "Range", 1));
    QCOMPARE(pixelAt(outback.x(), outback.y()), before);
}

void tst_mapWindowSchemes::theChosenSchemeComesBack()
{
    pick(card("Countries"), "Range", 2);
    pick(card("Terrain"), "Random", 1);
    const VOColorSchemeId countries = card("Countries")->currentScheme();
    const VOColorSchemeId terrain = card("Terrain")->currentScheme();
    const QRgb color = pixelAt(outback.x(), outback.y());
    open();
    QCOMPARE(card("Countries")->currentScheme().scheme, countries.scheme);
    QCOMPARE(card("Terrain")->currentScheme().group, VOString("Random"));
    QCOMPARE(card("Terrain")->currentScheme().scheme, terrain.scheme);
    QCOMPARE(pixelAt(outback.x(), outback.y()), color);
}

void tst_mapWindowSchemes::aSchemeThatIsGoneIsReplacedByADefault()
{
    VOColorSchemeGroup group = makeGroup("Mine", {"one"});
    group.schemes[0].colorRamp->setColor(0, rgb_color<float>(1.0F, 2.0F, 3.0F));
    VOColorSchemeManager::instance()->customTeam.groups.push_back(group);
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "one"}));
    QVERIFY(!card("Countries")->choose({"Custom", "Mine", "two"}));
    open();
    QCOMPARE(card("Countries")->currentScheme().group, VOString("Mine"));
    VOColorSchemeManager::instance()->customTeam.groups.clear();
    open();
    QCOMPARE(card("Countries")->currentScheme().team, VOString("Default"));
    QCOMPARE(card("Countries")->currentScheme().group, VOString("Range"));
}

void tst_mapWindowSchemes::anotherMethodAsksForAnotherGroup()
{
    LayerCard *countries = card("Countries");
    QCOMPARE(countries->currentScheme().group, VOString("Range"));
    const VOColorSchemeId range = countries->currentScheme();
    choose(countries->findChild<QComboBox *>("classificationMethod"), "Unique values");
    QCOMPARE(countries->layer()->classificationMethod(), ClassificationMethod::UniqueValues);
    QCOMPARE(countries->currentScheme().group, VOString("Unique"));
    choose(countries->findChild<QComboBox *>("classificationMethod"), "Equal intervals");
    QCOMPARE(countries->currentScheme().scheme, range.scheme);
}

void tst_mapWindowSchemes::aNumberAfterATextIsShownInRanges()
{
    LayerCard *countries = card("Countries");
    choose(countries->findChild<QComboBox *>("field"), "Continent");
    QCOMPARE(countries->layer()->classificationMethod(), ClassificationMethod::UniqueValues);
    QCOMPARE(countries->findChild<LegendWidget *>()->legend().classes.size(), 8);
    QCOMPARE(countries->findChild<QComboBox *>("classificationMethod")->count(), 1);
    choose(countries->findChild<QComboBox *>("field"), "Population");
    QCOMPARE(countries->layer()->classificationMethod(), ClassificationMethod::Quantiles);
    QCOMPARE(countries->currentScheme().group, VOString("Range"));
}

void tst_mapWindowSchemes::anotherStoreIsTaken()
{
    // Given a store elsewhere with another first scheme in "Range"
    VOColorSchemeManager *schemes = VOColorSchemeManager::instance();
    schemes->customTeam.groups = {makeGroup("Elsewhere", {"x"})};
    const QString folder = store->path("elsewhere");
    QVERIFY(QDir().mkpath(folder));
    VOColorSchemeManager::setStoreDirectory(VOString(folder.toStdWString()));
    QVERIFY(schemes->save());
    schemes->customTeam.groups.clear();
    // When the window opens it
    QVERIFY(window->openStore(folder));
    // Then its groups are there, and the next start takes it again
    QVERIFY(schemes->customTeam.contains("Elsewhere"));
    QCOMPARE(appSettings().value(storeFolderKey).toString(), folder);
}

void tst_mapWindowSchemes::theOpenStoreIsNamedAndTheDefaultOneComesBack()
{
    auto *label = window->findChild<QLabel *>("store");
    auto *back = window->findChild<QAction *>("defaultStore");
    QVERIFY(label && back);
    QCOMPARE(label->text(), QString("Schemes: Default store"));
    QVERIFY(!back->isEnabled());
    const QString folder = store->path("alpine <b>maps");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(window->openStore(folder));
    QCOMPARE(label->text(), QString("Schemes: alpine <b>maps"));
    QVERIFY(label->textFormat() == Qt::PlainText);
    QVERIFY(label->toolTip().contains(folder.toHtmlEscaped()));
    open();
    label = window->findChild<QLabel *>("store");
    QCOMPARE(label->text(), QString("Schemes: alpine <b>maps"));
    back = window->findChild<QAction *>("defaultStore");
    QVERIFY(back->isEnabled());
    back->trigger();
    QCOMPARE(label->text(), QString("Schemes: Default store"));
    QVERIFY(!appSettings().contains(storeFolderKey));
    QVERIFY(!back->isEnabled());
}

void tst_mapWindowSchemes::builtInSchemesAreRestoredWhenAsked_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("Restore") << true;
    QTest::newRow("Cancel") << false;
}

void tst_mapWindowSchemes::builtInSchemesAreRestoredWhenAsked()
{
    QFETCH(bool, yes);
    VOColorSchemeManager *schemes = VOColorSchemeManager::instance();
    const std::size_t groups = schemes->defaultTeam.groups.size();
    schemes->defaultTeam.groups.erase(schemes->defaultTeam.groups.begin());
    customGroups() = {makeGroup("Mine", {"one"})};
    ModalDriver driver;
    driver.next([yes](QWidget *box) {
        if (yes)
            QTest::mouseClick(box->findChild<QPushButton *>("restore"), Qt::LeftButton);
        else
            QTest::keyClick(box, Qt::Key_Return);
    });
    auto *action = window->findChild<QAction *>("restoreBuiltIns");
    QVERIFY(action);
    action->trigger();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemes->defaultTeam.groups.size(), yes ? groups : groups - 1);
    QVERIFY(schemes->customTeam.contains("Mine"));
    if (yes) {
        QVERIFY(schemes->load());
        QCOMPARE(schemes->defaultTeam.groups.size(), groups);
    }
}

void tst_mapWindowSchemes::theManagerOpensAndLayersFollowTheStore()
{
    customGroups() = {makeGroup("Mine", {"one"})};
    customGroups()[0].schemes[0].colorRamp->setColor(9, rgb_color<float>(1.0F, 2.0F, 3.0F));
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "one"}));
    QCOMPARE(pixelAt(outback.x(), outback.y()), qRgb(1, 2, 3));
    QString title;
    ModalDriver driver;
    driver.next([&title](QWidget *dialog) {
        title = dialog->windowTitle();
        QVERIFY(qobject_cast<VTColorSchemeManager *>(dialog));
        // As if the manager's OK had written it.
        customGroups()[0].schemes[0].colorRamp->setColor(9, rgb_color<float>(4.0F, 5.0F, 6.0F));
        static_cast<QDialog *>(dialog)->reject();
    });
    window->findChild<QAction *>("manageSchemes")->trigger();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(pixelAt(outback.x(), outback.y()), qRgb(4, 5, 6));
}

void tst_mapWindowSchemes::theManagerOpensAsItWasLeft()
{
    QVector<QSize> sizes;
    for (int run = 0; run < 2; ++run) {
        ModalDriver driver;
        driver.next([&](QWidget *dialog) {
            sizes.append(dialog->size());
            dialog->resize(dialog->size() + QSize(5, 30));
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        window->manageSchemes();
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
        open();
    }
    QCOMPARE(sizes.at(1), sizes.at(0) + QSize(5, 30));
}

void tst_mapWindowSchemes::aLayerKeepsItsColorsWhenItsSchemeIsGone()
{
    customGroups() = {makeGroup("Mine", {"one"})};
    customGroups()[0].schemes[0].colorRamp->setColor(9, rgb_color<float>(1.0F, 2.0F, 3.0F));
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "one"}));
    customGroups().clear();
    card("Countries")->syncWithStore();
    QCOMPARE(pixelAt(outback.x(), outback.y()), qRgb(1, 2, 3));
    QVERIFY(card("Countries")->currentScheme().isNull());
}

void tst_mapWindowSchemes::editingABuiltInSchemeMakesACopyOfIt()
{
    LayerCard *countries = card("Countries");
    const VOColorSchemeId before = countries->currentScheme();
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        auto *editor = qobject_cast<VTColorSchemeEditor *>(dialog);
        QVERIFY(editor);
        auto *level = editor->findChild<QSpinBox *>("spinBox_level");
        level->setValue(level->value() + 3);
        QTest::mouseClick(editor->findChild<QPushButton *>("pushButton_ok"), Qt::LeftButton);
    });
    QTest::mouseClick(countries->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    const VOColorSchemeId after = countries->currentScheme();
    QCOMPARE(after.team, VOString("Custom"));
    QCOMPARE(after.scheme, before.scheme);
    QVERIFY(VOColorSchemeManager::instance()->find(before));
    // It is used, and it is on the disk.
    QCOMPARE(countries->picker()->currentColorRamp()->getLevel(),
             customGroups()[0].schemes[0].colorRamp->getLevel());
    QVERIFY(VOColorSchemeManager::instance()->load());
    QCOMPARE(customGroups().size(), std::size_t(1));
}

void tst_mapWindowSchemes::canceledEditingLeavesNoCopy_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Cancel") << true;
    QTest::newRow("Escape") << false;
}

void tst_mapWindowSchemes::canceledEditingLeavesNoCopy()
{
    QFETCH(bool, byButton);
    const VOColorSchemeId before = card("Countries")->currentScheme();
    ModalDriver driver;
    driver.next([byButton](QWidget *dialog) {
        auto *cancel = dialog->findChild<QPushButton *>("pushButton_cancel");
        if (byButton && cancel)
            QTest::mouseClick(cancel, Qt::LeftButton);
        else
            QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(customGroups().empty());
    QCOMPARE(card("Countries")->currentScheme().scheme, before.scheme);
    QCOMPARE(card("Countries")->currentScheme().team, VOString("Default"));
}

void tst_mapWindowSchemes::editingTheUsersOwnSchemeChangesIt()
{
    customGroups() = {makeGroup("Mine", {"one", "two"})};
    customGroups()[0].schemes[1].colorRamp->setColor(9, rgb_color<float>(1.0F, 2.0F, 3.0F));
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "two"}));
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        auto *level = dialog->findChild<QSpinBox *>("spinBox_level");
        level->setValue(5);
        QTest::mouseClick(dialog->findChild<QPushButton *>("pushButton_ok"), Qt::LeftButton);
    });
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(customGroups()[0].schemes.size(), std::size_t(2));
    QCOMPARE(customGroups()[0].schemes[1].colorRamp->getLevel(), 5U);
    QCOMPARE(card("Countries")->picker()->currentColorRamp()->getLevel(), 5U);
    QCOMPARE(card("Countries")->currentScheme().scheme, VOString("two"));
}

VT_TEST_MAIN(tst_mapWindowSchemes)
#include "tst_mapWindowSchemes.moc"
