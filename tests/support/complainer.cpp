// A test program that warns: what becomes of it is told by tst_TestMain, which runs it.
#include "tests/support/TestMain.h"

class complainer : public QObject
{
    Q_OBJECT
public:
    complainer() { complainAt("making"); }
    ~complainer() override { complainAt("end"); }

private Q_SLOTS:
    void saysNothing() {}
    void warns() { qWarning("too hot"); }
    void isCritical() { qCritical("much too hot"); }
    void onlyTells()
    {
        qDebug("warm");
        qInfo("warm");
    }
    void warnsOfWhatIsHarmless() { qWarning("This plugin does not support raise()"); }
    void announcesItsWarning()
    {
        QTest::ignoreMessage(QtWarningMsg, "too hot");
        qWarning("too hot");
    }
    void announcesOneOfTwo()
    {
        QTest::ignoreMessage(QtWarningMsg, "too hot");
        qWarning("too hot");
        qWarning("too hot");
    }
    void announcesAnother()
    {
        QTest::ignoreMessage(QtWarningMsg, "too cold");
        qWarning("too hot");
    }

private:
    static void complainAt(const char *moment)
    {
        if (qgetenv("COMPLAIN_AT") == moment)
            qWarning("too hot");
    }
};

VT_TEST_GUILESS_MAIN(complainer)
#include "complainer.moc"
