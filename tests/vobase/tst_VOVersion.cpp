#include "vobase/VOVersion.h"

#include "tests/support/TestMain.h"

#include <QtTest>

class tst_VOVersion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void headersAndLibraryHaveTheVersionOfTheBuild();
    void versionsCompareInTheirOrder();
};

void tst_VOVersion::headersAndLibraryHaveTheVersionOfTheBuild()
{
    const QString version = QStringLiteral(VT_PROJECT_VERSION);
    QCOMPARE(QStringLiteral(VO_VERSION_TEXT), version);
    QCOMPARE(QString::fromLatin1(VTObjects::libraryVersion()), version);
    QCOMPARE(QStringLiteral("%1.%2.%3")
                 .arg(VO_VERSION_MAJOR)
                 .arg(VO_VERSION_MINOR)
                 .arg(VO_VERSION_PATCH),
             version);
}

void tst_VOVersion::versionsCompareInTheirOrder()
{
#if VO_VERSION < VO_VERSION_CHECK(0, 1, 0) || VO_VERSION >= VO_VERSION_CHECK(255, 255, 255)
    QFAIL("the preprocessor compares otherwise");
#endif
    QVERIFY(VO_VERSION_CHECK(0, 2, 0) > VO_VERSION_CHECK(0, 1, 9));
    QVERIFY(VO_VERSION_CHECK(1, 0, 0) > VO_VERSION_CHECK(0, 99, 99));
    QVERIFY(VO_VERSION_CHECK(1, 0, 1) > VO_VERSION_CHECK(1, 0, 0));
    QCOMPARE(VO_VERSION, VO_VERSION_CHECK(VO_VERSION_MAJOR, VO_VERSION_MINOR, VO_VERSION_PATCH));
}

VT_TEST_APPLESS_MAIN(tst_VOVersion)
#include "tst_VOVersion.moc"
