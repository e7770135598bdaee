#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// The program as one starts it.
class tst_mapviewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenshotsAreWrittenAndNamed();
    void screenshotsLeaveNoTraceInTheUsersFolders();
    void aBadFileEndsTheScreenshotsWithItsLine();
    void anUnwritableFolderIsAFailure();

private:
    struct Outcome
    {
        int status = -1;
        QString output;
        QString errors;
    };
    static Outcome run(const QStringList &arguments, const QString &home);
};

tst_mapviewer::Outcome tst_mapviewer::run(const QStringList &arguments, const QString &home)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("HOME", home);
    environment.insert("XDG_CONFIG_HOME", home + "/config");
    environment.insert("XDG_DATA_HOME", home + "/data");
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MAPVIEWER), arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

void tst_mapviewer::screenshotsAreWrittenAndNamed()
{
    const QTemporaryDir home;
    const QString folder = home.filePath("new/shots");
    const Outcome outcome = run({"--screenshots", folder}, home.path());
    QCOMPARE(outcome.status, 0);
    const QStringList paths = outcome.output.split('\n', Qt::SkipEmptyParts);
    QVERIFY(paths.size() >= 5);
    QCOMPARE(paths.size(), QDir(folder).entryList({"*.png"}).size());
    QVector<QImage> images;
    for (const QString &path : paths) {
        const QImage image(path);
        QVERIFY2(image.width() >= 100 && image.height() >= 100, qPrintable(path));
        QVERIFY2(!images.contains(image), qPrintable(path));
        images.append(image);
    }
}

void tst_mapviewer::screenshotsLeaveNoTraceInTheUsersFolders()
{
    const QTemporaryDir home;
    const QTemporaryDir shots;
    QCOMPARE(run({"--screenshots", shots.path()}, home.path()).status, 0);
    QVERIFY(!QDir(home.filePath("config/mapviewer")).exists());
    QVERIFY(
        QDir(home.filePath("data")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

void tst_mapviewer::aBadFileEndsTheScreenshotsWithItsLine()
{
    const QTemporaryDir home;
    QFile file(home.filePath("bad.asc"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("ncols 2\nnrows two\n");
    file.close();
    const Outcome outcome =
        run({"--screenshots", home.filePath("shots"), file.fileName()}, home.path());
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.errors.contains("bad.asc, line 2:"), qPrintable(outcome.errors));
}

void tst_mapviewer::anUnwritableFolderIsAFailure()
{
    const QTemporaryDir home;
    QFile file(home.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const Outcome outcome = run({"--screenshots", file.fileName() + "/below"}, home.path());
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.errors.contains("cannot be written"), qPrintable(outcome.errors));
}

QTEST_GUILESS_MAIN(tst_mapviewer)
#include "tst_mapviewer.moc"
