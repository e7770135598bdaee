#include "tests/support/ComboBoxTest.h"
#include "tests/support/DropDown.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOTeamKind.h"

#include <QFormLayout>
#include <QHelpEvent>
#include <QPushButton>
#include <QToolTip>
#include <QVariant>
#include <QtTest>

#include <algorithm>

using namespace VTObjects;

// What a host, or a form that was drawn, sets on a picker.
class tst_VTColorSchemeComboBox_properties : public ComboBoxTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }
    void namesMayBeSetInAnyOrder();
    void namesThatMeanNothingYetWait();
    void anotherNameLeavesTheRest();
    void aChoiceEndsTheWaiting();
    void withoutUserDefineTheDropDownHasNoSuchButton();
    void aReadOnlyPickerOpensNothing();
    void theToolTipNamesSchemeAndGroup();
    void namesInTheToolTipAreNoRichText();
    void aToolTipOfTheHostStays();
    void anEmptyPickerLeavesTheToolTipToWhatItLiesIn();
    void itFillsItsColumnOfAForm();
    void aDisabledPickerShowsAGrayStrip();
};

void tst_VTColorSchemeComboBox_properties::init()
{
    setUp();
    store()->customTeam.groups = {makeGroup("one", {"a", "b"}), makeGroup("two", {"c"})};
}

void tst_VTColorSchemeComboBox_properties::namesMayBeSetInAnyOrder()
{
    std::vector<std::pair<const char *, const char *>> names = {
        {"group", "one"}, {"schemeName", "b"}, {"team", "Custom"}};
    int orders = 0;
    do {
        VTColorSchemeComboBox box;
        for (const auto &[property, value] : names) {
            QVERIFY(box.setProperty(property, value));
            QCOMPARE(box.property(property).toString(), QString(value));
        }
        QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/b"));
        QCOMPARE(listed(box), QStringList({"one", "a", "b"}));
        ++orders;
    } while (std::next_permutation(names.begin(), names.end(), [](const auto &x, const auto &y) {
        return QByteArray(x.first) < QByteArray(y.first);
    }));
    QCOMPARE(orders, 6);
}

void tst_VTColorSchemeComboBox_properties::namesThatMeanNothingYetWait()
{
    QVERIFY(store()->save());
    VTColorSchemeComboBox box;
    box.setTeam("Custom");
    box.setGroupName("later");
    box.setSchemeName("x");
    QVERIFY(box.currentSchemeId().isNull());
    QVERIFY(!box.currentScheme().colorRamp);
    QCOMPARE(box.groupName(), QString("later"));
    QCOMPARE(box.schemeName(), QString("x"));
    store()->customTeam.groups.push_back(makeGroup("later", {"x"}));
    QVERIFY(store()->save());
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/later/x"));
}

void tst_VTColorSchemeComboBox_properties::anotherNameLeavesTheRest()
{
    VTColorSchemeComboBox box;
    box.setDefaultGroup("Custom", "one", 0);
    box.setSchemeName("b");
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/b"));
    box.setGroupName("two");
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/b"));
    QCOMPARE(box.groupName(), QString("two"));
    box.setTeam("Custom");
    QCOMPARE(box.groupName(), QString("two"));
    box.setSchemeName("c");
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/two/c"));
    box.setTeam("Default");
    box.setGroupName("DEM");
    QCOMPARE(listed(box).first(), QString("For DEM"));
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/two/c"));
}

void tst_VTColorSchemeComboBox_properties::aChoiceEndsTheWaiting()
{
    VTColorSchemeComboBox box;
    box.setTeam("Custom");
    box.setGroupName("later");
    box.setSchemeName("x");
    box.setDefaultGroup("Custom", "one", 0);
    QCOMPARE(box.schemeName(), QString("a"));
    store()->customTeam.groups.push_back(makeGroup("later", {"x"}));
    QVERIFY(store()->save());
    QCOMPARE(box.currentSchemeId().toText(), QString("Custom/one/a"));
}

void tst_VTColorSchemeComboBox_properties::withoutUserDefineTheDropDownHasNoSuchButton()
{
    VTColorSchemeComboBox box;
    QVERIFY(box.property("userDefineVisible").toBool());
    box.setDefaultGroup("Custom", "one", 0);
    for (const bool visible : {true, false}) {
        box.setProperty("userDefineVisible", visible);
        ModalDriver driver;
        driver.next([&](QWidget *menu) {
            const DropDown parts(menu);
            QCOMPARE(parts.userDefine->isVisible(), visible);
            QVERIFY(parts.bar->width() >= parts.area->width());
            QCOMPARE(parts.names(), QStringList({"a", "b"}));
            // Tab goes to what is there.
            QTest::keyClick(menu, Qt::Key_Tab);
            const QWidget *const bar = parts.bar;
            QCOMPARE(menu->focusWidget(), visible ? parts.userDefine : bar);
            menu->close();
        });
        box.click();
        QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    }
}

void tst_VTColorSchemeComboBox_properties::aReadOnlyPickerOpensNothing()
{
    VTColorSchemeComboBox box;
    QVERIFY(!box.property("readOnly").toBool());
    box.setDefaultGroup("Custom", "one", 0);
    box.setProperty("readOnly", true);
    box.show();
    box.click();
    QTest::keyClick(&box, Qt::Key_F4);
    QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(box.isEnabled());
    QVERIFY(box.setDefaultGroup("Custom", "two", 0)); // the host's to change
}

namespace {

QString toolTipOf(QWidget &widget)
{
    QToolTip::hideText();
    const QPoint center = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, center, widget.mapToGlobal(center));
    QApplication::sendEvent(&widget, &event);
    const QString text = QToolTip::text();
    QToolTip::hideText();
    return text;
}

} // namespace

void tst_VTColorSchemeComboBox_properties::theToolTipNamesSchemeAndGroup()
{
    VTColorSchemeComboBox box;
    box.show();
    QCOMPARE(toolTipOf(box), QString());
    box.setDefaultGroup("Custom", "one", 1);
    QCOMPARE(toolTipOf(box), QString("<qt>b<br>one</qt>"));
    box.setDefaultGroup("Default", "DEM", 0);
    QCOMPARE(toolTipOf(box), QString("<qt>DEM red<br>For DEM</qt>"));
    QCOMPARE(box.toolTip(), QString());
    // The colours of a host are of no group.
    box.setColorRamp(store()->customTeam.groups[0].schemes[0].colorRamp);
    QCOMPARE(toolTipOf(box), QString("<qt>DEM red</qt>"));
}

void tst_VTColorSchemeComboBox_properties::namesInTheToolTipAreNoRichText()
{
    store()->customTeam.groups = {makeGroup("a<b & c", {"<b>bold</b>"})};
    VTColorSchemeComboBox box;
    box.show();
    box.setDefaultGroup("Custom", 0, 0);
    QCOMPARE(toolTipOf(box), QString("<qt>&lt;b&gt;bold&lt;/b&gt;<br>a&lt;b &amp; c</qt>"));
}

void tst_VTColorSchemeComboBox_properties::aToolTipOfTheHostStays()
{
    VTColorSchemeComboBox box;
    box.show();
    box.setDefaultGroup("Custom", "one", 1);
    box.setToolTip("of the host");
    QCOMPARE(toolTipOf(box), QString("of the host"));
}

void tst_VTColorSchemeComboBox_properties::anEmptyPickerLeavesTheToolTipToWhatItLiesIn()
{
    QWidget panel;
    panel.setToolTip("of the panel");
    VTColorSchemeComboBox box(&panel);
    panel.show();
    QCOMPARE(toolTipOf(box), QString("of the panel"));
    box.setDefaultGroup("Custom", "one", 1);
    QCOMPARE(toolTipOf(box), QString("<qt>b<br>one</qt>"));
}

void tst_VTColorSchemeComboBox_properties::itFillsItsColumnOfAForm()
{
    QWidget window;
    auto *form = new QFormLayout(&window);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto *box = new VTColorSchemeComboBox;
    form->addRow("Colors:", box);
    window.resize(600, 100);
    window.show();
    QVERIFY2(box->width() > 400, qPrintable(QString::number(box->width())));
    QVERIFY(box->height() < 40);
}

void tst_VTColorSchemeComboBox_properties::aDisabledPickerShowsAGrayStrip()
{
    VTColorSchemeComboBox box;
    store()->customTeam.groups = {redAndGreen("one", 7)};
    box.setDefaultGroup("Custom", 0, 0);
    QCOMPARE(faceColor(box), QColor(200, 0, 7));
    box.setEnabled(false);
    const QColor gray = faceColor(box);
    QVERIFY2(gray.saturation() < 60, qPrintable(gray.name()));
    box.setEnabled(true);
    QCOMPARE(faceColor(box), QColor(200, 0, 7));
}

VT_TEST_MAIN(tst_VTColorSchemeComboBox_properties)
#include "tst_VTColorSchemeComboBox_properties.moc"
