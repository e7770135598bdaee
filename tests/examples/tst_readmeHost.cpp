#include "readmeHost.h"

#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"

#include <QtTest>

#include <memory>

class tst_readmeHost : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void theHostKeepsARampOfItsOwn();

private:
    std::unique_ptr<TestStore> store;
};

void tst_readmeHost::theHostKeepsARampOfItsOwn()
{
    std::unique_ptr<VTObjects::VOColorRamp> kept;
    {
        LayerDialog dialog(nullptr);
        auto *picker = dialog.findChild<VTColorSchemeComboBox *>();
        QVERIFY(picker);
        Q_EMIT picker->currentRampChanged();
        QVERIFY(dialog.ramp);
        QVERIFY(dialog.ramp.get() != picker->currentColorRamp());
        QCOMPARE(dialog.ramp->getLevel(), picker->currentColorRamp()->getLevel());
        kept = std::move(dialog.ramp);
    }
    QVERIFY(kept->getLevel() > 0);
}

VT_TEST_MAIN(tst_readmeHost)
#include "tst_readmeHost.moc"
