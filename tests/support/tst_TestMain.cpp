#include "tests/support/TestMain.h"

#include <QProcess>

/// A program that warns fails, and tells where.
class tst_TestMain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTestFailsByItsWarnings_data();
    void aTestFailsByItsWarnings();
    void warningsOutsideOfTestsCount_data();
    void warningsOutsideOfTestsCount();
    void everyWayToLogSeesThem_data();
    void everyWayToLogSeesThem();
    void harmlessWarningsAreNotPrinted();

private:
    struct Outcome
    {
        int status = -1;
        QString output;
    };
    static Outcome run(const QStringList &arguments, const char *complaint = "");
};

tst_TestMain::Outcome tst_TestMain::run(const QStringList &arguments, const char *complaint)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("COMPLAIN_AT"), QLatin1String(complaint));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(COMPLAINER), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput())};
}

void tst_TestMain::aTestFailsByItsWarnings_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("warning");
    QTest::newRow("none") << "saysNothing" << QString();
    QTest::newRow("a warning") << "warns"
                               << "too hot";
    QTest::newRow("a critical one") << "isCritical"
                                    << "much too hot";
    QTest::newRow("no warnings") << "onlyTells" << QString();
    QTest::newRow("a harmless one") << "warnsOfWhatIsHarmless" << QString();
    QTest::newRow("announced") << "announcesItsWarning" << QString();
    QTest::newRow("announced once") << "announcesOneOfTwo"
                                    << "too hot";
    QTest::newRow("not that one") << "announcesAnother"
                                  << "too hot";
}

void tst_TestMain::aTestFailsByItsWarnings()
{
    QFETCH(QString, function);
    QFETCH(QString, warning);
    const Outcome outcome = run({function});
    QVERIFY2((outcome.status == 0) == warning.isNull(), qPrintable(outcome.output));
    const QString verdict =
        warning.isNull() ? QStringLiteral("PASS   : complainer::%1()").arg(function)
                         : QStringLiteral("FAIL!  : complainer::%1() an unexpected warning: %2\n")
                               .arg(function, warning);
    QVERIFY2(outcome.output.contains(verdict), qPrintable(outcome.output));
}

void tst_TestMain::warningsOutsideOfTestsCount_data()
{
    QTest::addColumn<QByteArray>("moment");
    QTest::addColumn<int>("status");
    QTest::newRow("never") << QByteArray() << 0;
    QTest::newRow("while the test object is made") << QByteArray("making") << 1;
    QTest::newRow("while it goes") << QByteArray("end") << 1;
}

void tst_TestMain::warningsOutsideOfTestsCount()
{
    QFETCH(QByteArray, moment);
    QFETCH(int, status);
    const Outcome outcome = run({QStringLiteral("saysNothing")}, moment.constData());
    QCOMPARE(outcome.status, status);
    QCOMPARE(outcome.output.contains(QStringLiteral("too hot")), status == 1);
}

void tst_TestMain::everyWayToLogSeesThem_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("sign");
    QTest::newRow("silent") << QStringList{"-silent"} << "FAIL!";
    QTest::newRow("old form") << QStringList{"-xml"} << "<Message type=\"qwarn\"";
    QTest::newRow("old form, named") << QStringList{"-o", "-", "-tap"} << "not ok";
    QTest::newRow("new form") << QStringList{"-o", "-,teamcity"} << "##teamcity";
}

void tst_TestMain::everyWayToLogSeesThem()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, sign);
    QCOMPARE(run(arguments + QStringList{"onlyTells"}).status, 0);
    const Outcome outcome = run(arguments + QStringList{"warns"});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.output.contains(sign), qPrintable(outcome.output));
}

void tst_TestMain::harmlessWarningsAreNotPrinted()
{
    const Outcome outcome = run({QStringLiteral("warnsOfWhatIsHarmless")});
    QVERIFY2(!outcome.output.contains(QStringLiteral("plugin")), qPrintable(outcome.output));
}

VT_TEST_GUILESS_MAIN(tst_TestMain)
#include "tst_TestMain.moc"
