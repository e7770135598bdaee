#include "colorscheme/model/lastOpenFilePath_p.h"
#include "tests/support/TestMain.h"
#include "tests/support/TestStore.h"
#include "vtgiscore/VTApplication.h"

#include <QFileInfo>
#include <QtTest>

#include <memory>

using vtcontrolcolorscheme::lastOpenFilePath;

class tst_lastOpenFilePath : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { store = std::make_unique<TestStore>(); }
    void cleanup() { store.reset(); }

    void theSettingIsGivenUnlessItNamesADataSource_data();
    void theSettingIsGivenUnlessItNamesADataSource();
    void withoutTheSettingItIsEmptyAndNothingIsWritten();

private:
    std::unique_ptr<TestStore> store;
};

void tst_lastOpenFilePath::theSettingIsGivenUnlessItNamesADataSource_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("path");
    QTest::newRow("a folder") << "/maps/schemes"
                              << "/maps/schemes";
    QTest::newRow("a data source") << "VTSDE30_server/layer"
                                   << "";
    QTest::newRow("the prefix alone") << "VTSDE30_"
                                      << "";
    QTest::newRow("another letter case") << "vtsde30_server"
                                         << "vtsde30_server";
    QTest::newRow("the prefix further behind") << "/VTSDE30_/maps"
                                               << "/VTSDE30_/maps";
    QTest::newRow("part of the prefix") << "VTSDE30"
                                        << "VTSDE30";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_lastOpenFilePath::theSettingIsGivenUnlessItNamesADataSource()
{
    QFETCH(QString, setting);
    QFETCH(QString, path);
    store->setLastOpenFilePath(setting);
    QCOMPARE(lastOpenFilePath(), path);
}

void tst_lastOpenFilePath::withoutTheSettingItIsEmptyAndNothingIsWritten()
{
    QCOMPARE(lastOpenFilePath(), QString());
    QVERIFY(!QFileInfo::exists(VTApplication::vtgisSettingsFilePath()));
}

VT_TEST_GUILESS_MAIN(tst_lastOpenFilePath)
#include "tst_lastOpenFilePath.moc"
