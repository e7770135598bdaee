#include "tests/fuzz/fuzzReaders.h"
#include "tests/support/TestMain.h"

#include <QDirIterator>
#include <QFile>
#include <QObject>
#include <QtTest>

// What the fuzzers have found worth keeping is read in every test run.
class tst_fuzzCorpus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyInputIsReadWithoutHarm_data();
    void everyInputIsReadWithoutHarm();
};

void tst_fuzzCorpus::everyInputIsReadWithoutHarm_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("scheme files") << QFINDTESTDATA("corpus/schemeText");
    QTest::newRow("team files") << QFINDTESTDATA("corpus/teamFile");
}

void tst_fuzzCorpus::everyInputIsReadWithoutHarm()
{
    QFETCH(QString, folder);
    QDirIterator files(folder, QDir::Files);
    int count = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        // Each reader takes both: what one finds hard may be so for the other.
        fuzzSchemeText(std::string_view(bytes.constData(), std::size_t(bytes.size())));
        fuzzTeamFile(std::string_view(bytes.constData(), std::size_t(bytes.size())));
        ++count;
    }
    qInfo("%d inputs", count);
    QVERIFY(count > 10);
}

VT_TEST_APPLESS_MAIN(tst_fuzzCorpus)
#include "tst_fuzzCorpus.moc"
