#include "tests/support/TestMain.h"
#include "vtgiscore/VTApplication.h"

#include <QFileInfo>
#include <QtTest>

class tst_VTApplication : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDefaultPlaceIsAnAbsoluteIniFile();
    void aHostChoosesThePlace();
    void anEmptyPathMeansTheDefaultPlaceAgain();
};

void tst_VTApplication::theDefaultPlaceIsAnAbsoluteIniFile()
{
    const QFileInfo file(VTApplication::vtgisSettingsFilePath());
    QVERIFY(file.isAbsolute());
    QCOMPARE(file.suffix(), QStringLiteral("ini"));
}

void tst_VTApplication::aHostChoosesThePlace()
{
    VTApplication::setVtgisSettingsFilePath(QStringLiteral("/somewhere/else.ini"));
    QCOMPARE(VTApplication::vtgisSettingsFilePath(), QStringLiteral("/somewhere/else.ini"));
    VTApplication::setVtgisSettingsFilePath(QString());
}

void tst_VTApplication::anEmptyPathMeansTheDefaultPlaceAgain()
{
    const QString defaultPlace = VTApplication::vtgisSettingsFilePath();
    VTApplication::setVtgisSettingsFilePath(QStringLiteral("/somewhere/else.ini"));
    VTApplication::setVtgisSettingsFilePath(QString());
    QCOMPARE(VTApplication::vtgisSettingsFilePath(), defaultPlace);
}

VT_TEST_GUILESS_MAIN(tst_VTApplication)
#include "tst_VTApplication.moc"
