#include "colorscheme/picker/VTColorSchemeGroupButton.h"
#include "colorscheme/picker/VTColorSchemeGroupMenu.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include <QtTest>

#include <memory>

class tst_VTColorSchemeGroupButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void looksLikeABarWithAnArrow();
    void tellsNothingOfAGroupAtFirst();
    void signalAndSlotAreItsOwn();
    void clickOpensTheGroupChooser();
    void ampersandIsShown();

private:
    std::unique_ptr<TestStore> store;
};

void tst_VTColorSchemeGroupButton::looksLikeABarWithAnArrow()
{
    VTColorSchemeGroupButton button(nullptr);
    QCOMPARE(button.minimumHeight(), 20);
    QCOMPARE(button.arrowType(), Qt::LeftArrow);
    QCOMPARE(button.toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

void tst_VTColorSchemeGroupButton::tellsNothingOfAGroupAtFirst()
{
    VTColorSchemeGroupButton button(nullptr);
    QVERIFY(!button.property("parent").isValid());
    QVERIFY(!button.property("name").isValid());
}

void tst_VTColorSchemeGroupButton::signalAndSlotAreItsOwn()
{
    const QMetaObject &meta = VTColorSchemeGroupButton::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(),
             QByteArray("textChanged(QString)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("showMenu()"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodType(), QMetaMethod::Slot);
}

void tst_VTColorSchemeGroupButton::clickOpensTheGroupChooser()
{
    QWidget window;
    VTColorSchemeGroupButton button(&window);
    window.show();
    QPointer<QWidget> chooser;
    ModalDriver driver;
    driver.next([&chooser, &button](QWidget *opened) {
        chooser = opened;
        QVERIFY(qobject_cast<VTColorSchemeGroupMenu *>(opened));
        QCOMPARE(opened->parentWidget(), &button);
        QTest::keyClick(opened, Qt::Key_Escape);
    });
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY2(driver.allSeen(), qPrintable(driver.problem()));
    QVERIFY(chooser.isNull()); // built afresh the next time
}

void tst_VTColorSchemeGroupButton::ampersandIsShown()
{
    VTColorSchemeGroupButton button(nullptr);
    button.resize(200, 24);
    button.setText(QStringLiteral("Land && sea"));
    const QImage two = button.grab().toImage();
    button.setText(QStringLiteral("Land & sea"));
    const QImage one = button.grab().toImage();
    button.setText(QStringLiteral("Land  sea"));
    QVERIFY(one != two);
    QVERIFY(one != button.grab().toImage());
}

VT_TEST_MAIN(tst_VTColorSchemeGroupButton)
#include "tst_VTColorSchemeGroupButton.moc"
