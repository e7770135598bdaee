#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/DropDown.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorSchemeManager.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace VTObjects;

namespace {

const QString defaultColors =
    QStringLiteral("10 colors, from dark red through pale yellow to blue");

QAccessibleInterface *view(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

/// All objects below an interface, as an assistive tool finds them.
QList<QObject *> objectsBelow(const QAccessibleInterface *top)
{
    QList<QObject *> result;
    for (int i = 0; i < top->childCount(); ++i) {
        const QAccessibleInterface *child = top->child(i);
        result.append(child->object());
        result.append(objectsBelow(child));
    }
    return result;
}

} // namespace

class tst_pickerAccessibility : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void pickerTellsItsColors();
    void hostMayNameThePicker();
    void entriesTellNameAndColors();
    void pickedEntryIsTold();
    void dropDownShowsItsParts();
    void chooserShowsItsGroups();
    void entryCanBePressed();
    void currentEntryIsFocusedAndSelected();

private:
    std::unique_ptr<TestStore> store;
    std::unique_ptr<VTColorSchemeComboBox> picker;
    VOColorSchemeGroup group;
};

void tst_pickerAccessibility::init()
{
    store = std::make_unique<TestStore>();
    picker = std::make_unique<VTColorSchemeComboBox>();
    group = makeGroup(QStringLiteral("Mine"), {QStringLiteral("one"), QStringLiteral("R & B")});
    delete group.schemes[1].colorRamp;
    group.schemes[1].colorRamp = nullptr;
    VOColorSchemeManager::instance()->customTeam.groups.push_back(group);
}

void tst_pickerAccessibility::cleanup()
{
    picker.reset();
    store.reset();
}

void tst_pickerAccessibility::pickerTellsItsColors()
{
    QCOMPARE(view(picker.get())->text(QAccessible::Name), QStringLiteral("Color scheme"));
    QCOMPARE(view(picker.get())->text(QAccessible::Description), QStringLiteral("No colors"));
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0));
    QCOMPARE(view(picker.get())->text(QAccessible::Description), defaultColors);
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 1));
    QCOMPARE(view(picker.get())->text(QAccessible::Description), QStringLiteral("No colors"));
}

void tst_pickerAccessibility::hostMayNameThePicker()
{
    picker->setAccessibleName(QStringLiteral("Colors of the roads"));
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 0));
    QCOMPARE(view(picker.get())->text(QAccessible::Name), QStringLiteral("Colors of the roads"));
    QCOMPARE(view(picker.get())->text(QAccessible::Description), defaultColors);
}

void tst_pickerAccessibility::entriesTellNameAndColors()
{
    VTColorSchemeMenu menu(QString(), group, picker.get());
    const DropDown parts(&menu);
    const QAccessibleInterface *first = view(parts.entry(0));
    QCOMPARE(first->text(QAccessible::Name), QStringLiteral("one"));
    QCOMPARE(first->text(QAccessible::Description), defaultColors);
    QCOMPARE(first->role(), QAccessible::ListItem);
    const QAccessibleInterface *second = view(parts.entry(1));
    QCOMPARE(second->text(QAccessible::Name), QStringLiteral("R & B"));
    QCOMPARE(second->text(QAccessible::Description), QStringLiteral("No colors"));
}

void tst_pickerAccessibility::pickedEntryIsTold()
{
    QVERIFY(picker->setDefaultGroup(QStringLiteral("Custom"), 0, 1));
    VTColorSchemeMenu menu(QString(), group, picker.get());
    const DropDown parts(&menu);
    QVERIFY(!view(parts.entry(0))->state().checked);
    QVERIFY(!view(parts.entry(0))->state().checkable); // or it were told as "not checked"
    QVERIFY(view(parts.entry(1))->state().checked);
}

void tst_pickerAccessibility::dropDownShowsItsParts()
{
    VTColorSchemeMenu menu(QStringLiteral("Mine"), group, picker.get());
    const DropDown parts(&menu);
    const QAccessibleInterface *top = view(&menu);
    QCOMPARE(top->role(), QAccessible::PopupMenu);
    QCOMPARE(top->childCount(), 3);
    QCOMPARE(top->child(0)->object(), parts.bar);
    QCOMPARE(top->child(1)->object(), parts.list());
    QCOMPARE(top->child(2)->object(), parts.userDefine);
    QCOMPARE(top->child(3), nullptr);
    QCOMPARE(top->indexOfChild(view(parts.list())), 1);
    QCOMPARE(top->indexOfChild(view(parts.entry(0))), -1);
    QCOMPARE(view(parts.list())->parent(), top);
    QCOMPARE(view(parts.entry(0))->parent(), view(parts.list()));
    const QList<QObject *> objects = objectsBelow(top);
    QVERIFY(objects.contains(parts.bar));
    QVERIFY(objects.contains(parts.userDefine));
    QVERIFY(objects.contains(parts.entry(0)));
    QVERIFY(objects.contains(parts.entry(1)));
    QCOMPARE(view(parts.list())->role(), QAccessible::List);
    QCOMPARE(view(parts.list())->text(QAccessible::Name), QStringLiteral("Color schemes"));
    QCOMPARE(view(parts.list())->childCount(), 2);
    QCOMPARE(view(parts.list())->indexOfChild(view(parts.entry(1))), 1);
    QCOMPARE(view(parts.list())->indexOfChild(view(parts.bar)), -1);
    QCOMPARE(view(parts.list())->child(2), nullptr);
    QCOMPARE(view(parts.bar)->text(QAccessible::Name), QStringLiteral("Mine"));

    VTColorSchemeMenu empty(QString(), VOColorSchemeGroup(), picker.get());
    QCOMPARE(view(&empty)->childCount(), 2);
}

void tst_pickerAccessibility::chooserShowsItsGroups()
{
    VTColorSchemeGroupMenu chooser(nullptr);
    const QList<QObject *> objects = objectsBelow(view(&chooser));
    const QList<QPushButton *> groups = chooser.findChildren<QPushButton *>();
    QVERIFY(!groups.isEmpty());
    for (QPushButton *button : groups)
        QVERIFY(objects.contains(button));
}

void tst_pickerAccessibility::entryCanBePressed()
{
    QSignalSpy changed(picker.get(), &VTColorSchemeComboBox::currentRampChanged);
    VTColorSchemeMenu menu(QString(), group, picker.get());
    QAccessibleActionInterface *actions = view(DropDown(&menu).entry(0))->actionInterface();
    QVERIFY(actions);
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(changed.count(), 0);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(picker->accessibleDescription(), defaultColors);
}

void tst_pickerAccessibility::currentEntryIsFocusedAndSelected()
{
    VTColorSchemeMenu menu(QString(), group, picker.get());
    const DropDown parts(&menu);
    menu.popup(QPoint(10, 10));
    QTest::keyClick(&menu, Qt::Key_End);
    QVERIFY(!view(parts.entry(0))->state().selected);
    QVERIFY(view(parts.entry(1))->state().selected);
    QVERIFY(view(parts.entry(1))->state().focused);
    menu.close();
}

VT_TEST_MAIN(tst_pickerAccessibility)
#include "tst_pickerAccessibility.moc"
