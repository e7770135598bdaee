#include "tests/support/TestMain.h"

#include <QColor>
#include <QDir>
#include <QDirIterator>
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
    void initTestCase();

    void screenshotsAreWrittenAndNamed();
    void screenshotsLeaveNoTraceInTheUsersFolders();
    void theWindowFollowsTheScaleOfTheScreen_data();
    void theWindowFollowsTheScaleOfTheScreen();
    void aBadFileEndsTheScreenshotsWithItsLine();
    void anUnwritableFolderIsAFailure();

private:
    struct Outcome
    {
        int status = -1;
        QString output;
        QString errors;
    };
    Outcome run(const QStringList &arguments, const QString &scale = QStringLiteral("1")) const;

    QTemporaryDir home;
    QString shots;    // the folder of the pictures at scale 1
    Outcome shooting; // how they were made
};

void tst_mapviewer::initTestCase()
{
    shots = home.filePath("new/shots");
    shooting = run({"--screenshots", shots});
}

tst_mapviewer::Outcome tst_mapviewer::run(const QStringList &arguments, const QString &scale) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("QT_SCALE_FACTOR", scale);
    environment.insert("HOME", home.path());
    environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
    environment.insert("XDG_DATA_HOME", home.filePath("data"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MAPVIEWER), arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

void tst_mapviewer::screenshotsAreWrittenAndNamed()
{
    QVERIFY2(shooting.status == 0, qPrintable(shooting.errors));
    const QStringList paths = shooting.output.split('\n', Qt::SkipEmptyParts);
    QVERIFY(paths.size() >= 10);
    int written = 0;
    QDirIterator files(shots, {"*.png"}, QDir::Files, QDirIterator::Subdirectories);
    for (; files.hasNext(); files.next())
        ++written;
    QCOMPARE(paths.size(), written);
    for (const char *look : {"", "dark/", "host-style/", "large-text/", "right-to-left/"}) {
        for (const char *picture :
             {"map-world", "scheme-manager", "scheme-editor", "add-group", "scheme-history",
              "picker-drop-down", "picker-groups", "color-menu"})
            QVERIFY2(paths.contains(QString("%1/%2%3.png").arg(shots, look, picture)), picture);
    }
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
    QCOMPARE(shooting.status, 0);
    QVERIFY(!QDir(home.filePath("config/mapviewer")).exists());
    QVERIFY(!QDir(home.filePath("data")).exists());
}

void tst_mapviewer::theWindowFollowsTheScaleOfTheScreen_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("1.5 times") << 1.5;
    QTest::newRow("twice") << 2.0;
}

void tst_mapviewer::theWindowFollowsTheScaleOfTheScreen()
{
    QFETCH(double, scale);
    const QString folder = home.filePath("shots" + QString::number(scale));
    QCOMPARE(run({"--screenshots", folder}, QString::number(scale)).status, 0);
    const QImage small(shots + "/map-world.png");
    const QImage large(folder + "/map-world.png");
    QVERIFY(!small.isNull());
    // Heights of bars are rounded once a scale, so a pixel may be gained or lost.
    const QSize expected = (QSizeF(small.size()) * scale).toSize();
    QVERIFY(qAbs(large.width() - expected.width()) <= 2);
    QVERIFY(qAbs(large.height() - expected.height()) <= 2);
    // The same window, not a small one in a corner: enlarged, the small one looks nearly alike.
    const QImage enlarged =
        small.scaled(large.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int different = 0;
    int compared = 0;
    for (int y = 0; y < large.height(); y += 7) {
        for (int x = 0; x < large.width(); x += 7, ++compared) {
            const QColor a(large.pixel(x, y));
            const QColor b(enlarged.pixel(x, y));
            const int distance =
                qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue());
            different += distance > 90 ? 1 : 0;
        }
    }
    QVERIFY2(different * 10 < compared, qPrintable(QString::number(different)));
}

void tst_mapviewer::aBadFileEndsTheScreenshotsWithItsLine()
{
    QFile file(home.filePath("bad.asc"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("ncols 2\nnrows two\n");
    file.close();
    const Outcome outcome = run({"--screenshots", home.filePath("none"), file.fileName()});
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.errors.contains("bad.asc, line 2:"), qPrintable(outcome.errors));
    QVERIFY(!QDir(home.filePath("none")).exists());
}

void tst_mapviewer::anUnwritableFolderIsAFailure()
{
    QFile file(home.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const Outcome outcome = run({"--screenshots", file.fileName() + "/below"});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.errors.contains("cannot be written"), qPrintable(outcome.errors));
}

VT_TEST_GUILESS_MAIN(tst_mapviewer)
#include "tst_mapviewer.moc"
