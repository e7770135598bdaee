#include "tests/support/MapWindowTest.h"

#include "tests/support/ManagerAtWork.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"

#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/manager/VTLineEditWidget.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QtTest>

using namespace mapviewer;
using namespace VTObjects;

/// The picked scheme stays the picked one, whatever is edited.
class tst_mapWindowSchemes_picked : public MapWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void thePickedSchemeIsEditedAmongEqualOnes_data();
    void thePickedSchemeIsEditedAmongEqualOnes();
    void ofTwoSchemesOfOneNameThePickedOneIsEdited();
    void aSchemeRenamedInTheManagerStaysTheLayers();
    void aSchemeRenamedInTheEditorStaysTheLayers();
};

static std::vector<VOColorSchemeGroup> &customGroups()
{
    return VOColorSchemeManager::instance()->customTeam.groups;
}

// Picks the entry at that position of the drop-down, from which the group is listed already.
static void pickEntry(LayerCard *card, int position)
{
    ModalDriver driver;
    driver.next([position](QWidget *menu) {
        QTest::keyClick(menu, Qt::Key_Home);
        for (int i = 0; i < position; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTest::mouseClick(card->picker(), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
}

// What "Edit…" has in its name field; the editor is left by Escape.
static QString editedName(LayerCard *card)
{
    QString name;
    ModalDriver driver;
    driver.next([&name](QWidget *dialog) {
        name = dialog->findChild<VTLineEditWidget *>()->lineEdit()->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(card->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    return driver.allSeen() ? name : driver.problem();
}

void tst_mapWindowSchemes_picked::thePickedSchemeIsEditedAmongEqualOnes_data()
{
    QTest::addColumn<int>("position");
    QTest::newRow("the first") << 0;
    QTest::newRow("the second") << 1;
    QTest::newRow("the third") << 2;
}

void tst_mapWindowSchemes_picked::thePickedSchemeIsEditedAmongEqualOnes()
{
    // Given schemes that nobody can tell by their colors
    QFETCH(int, position);
    customGroups() = {makeGroup("Mine", {"one", "two", "three"})};
    LayerCard *countries = card("Countries");
    QVERIFY(countries->choose({"Custom", "Mine", "one"}));
    pickEntry(countries, position);
    QCOMPARE(countries->currentScheme().scheme,
             customGroups()[0].schemes[std::size_t(position)].name);
    QCOMPARE(editedName(countries), QStringList({"one", "two", "three"}).at(position));
    // Also after the next start.
    open();
    QCOMPARE(editedName(card("Countries")), QStringList({"one", "two", "three"}).at(position));
}

void tst_mapWindowSchemes_picked::ofTwoSchemesOfOneNameThePickedOneIsEdited()
{
    customGroups() = {makeGroup("Mine", {"one", "one"})};
    customGroups()[0].schemes[1].colorRamp->setColor(0, rgb_color<float>(1.0F, 2.0F, 3.0F));
    LayerCard *countries = card("Countries");
    QVERIFY(countries->choose({"Custom", "Mine", "one"}));
    pickEntry(countries, 1);
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        dialog->findChild<QSpinBox *>("spinBox_level")->setValue(5);
        QTest::mouseClick(dialog->findChild<QPushButton *>("pushButton_ok"), Qt::LeftButton);
    });
    QTest::mouseClick(countries->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(customGroups()[0].schemes[0].colorRamp->getLevel(), 10U);
    QCOMPARE(customGroups()[0].schemes[1].colorRamp->getLevel(), 5U);
    QCOMPARE(countries->picker()->currentColorRamp()->getLevel(), 5U);
}

void tst_mapWindowSchemes_picked::aSchemeRenamedInTheManagerStaysTheLayers()
{
    customGroups() = {makeGroup("Mine", {"one", "two"})};
    QVERIFY(VOColorSchemeManager::instance()->save());
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "two"}));
    const QRgb color = pixelAt(outback.x(), outback.y());
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        auto *manager = qobject_cast<VTColorSchemeManager *>(dialog);
        QVERIFY(manager);
        ManagerUser user(*manager);
        user.click(1, 0);
        const QPoint name = user.table->visualRect(user.model->index(1, 2)).center();
        QTest::mouseClick(user.table->viewport(), Qt::LeftButton, Qt::NoModifier, name);
        QTest::mouseDClick(user.table->viewport(), Qt::LeftButton, Qt::NoModifier, name);
        auto *field = user.table->viewport()->findChild<VTLineEditWidget *>();
        QVERIFY(field);
        field->lineEdit()->selectAll();
        QTest::keyClicks(field->lineEdit(), "valleys");
        QTest::keyClick(field->lineEdit(), Qt::Key_Return);
        QTest::mouseClick(user.ok, Qt::LeftButton);
    });
    driver.next(pressText("Yes"));
    window->manageSchemes();
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(schemeNames(customGroups()[0]), QStringList({"one", "valleys"}));
    QCOMPARE(card("Countries")->currentScheme().scheme, VOString("valleys"));
    QCOMPARE(pixelAt(outback.x(), outback.y()), color);
    open();
    QCOMPARE(card("Countries")->currentScheme().scheme, VOString("valleys"));
    QCOMPARE(pixelAt(outback.x(), outback.y()), color);
}

void tst_mapWindowSchemes_picked::aSchemeRenamedInTheEditorStaysTheLayers()
{
    customGroups() = {makeGroup("Mine", {"one", "two"})};
    // Two layers show it, and both go on with it.
    QVERIFY(card("Countries")->choose({"Custom", "Mine", "two"}));
    QVERIFY(card("Terrain")->choose({"Custom", "Mine", "two"}));
    ModalDriver driver;
    driver.next([](QWidget *dialog) {
        QLineEdit *name = dialog->findChild<VTLineEditWidget *>()->lineEdit();
        name->selectAll();
        QTest::keyClicks(name, "valleys");
        QTest::mouseClick(dialog->findChild<QPushButton *>("pushButton_ok"), Qt::LeftButton);
    });
    QTest::mouseClick(card("Countries")->findChild<QToolButton *>("editScheme"), Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QCOMPARE(card("Countries")->currentScheme().scheme, VOString("valleys"));
    QCOMPARE(card("Terrain")->currentScheme().scheme, VOString("valleys"));
}

VT_TEST_MAIN(tst_mapWindowSchemes_picked)
#include "tst_mapWindowSchemes_picked.moc"
