#include "tests/support/TestMain.h"
#include "vomap/files/xxHash64_p.h"

#include <QObject>
#include <QtTest>

using namespace VTObjects;

class tst_xxHash64 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void givesThePublishedValues_data();
    void givesThePublishedValues();
    void noticesEverySingleBit();
};

void tst_xxHash64::givesThePublishedValues_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("seed");
    QTest::addColumn<quint64>("hash");
    // The published test buffer: byte i is the top byte of prime32 * prime64 to the power i.
    constexpr quint64 prime = 2654435761U;
    QTest::newRow("nothing") << 0 << quint64(0) << quint64(0xEF46DB3751D8E999U);
    QTest::newRow("nothing, seeded") << 0 << prime << quint64(0xAC75FDA2929B17EFU);
    QTest::newRow("one byte") << 1 << quint64(0) << quint64(0xE934A84ADB052768U);
    QTest::newRow("one byte, seeded") << 1 << prime << quint64(0x5014607643A9B4C3U);
    QTest::newRow("14 bytes") << 14 << quint64(0) << quint64(0x8282DCC4994E35C8U);
    QTest::newRow("14 bytes, seeded") << 14 << prime << quint64(0xC3BD6BF63DEB6DF0U);
    QTest::newRow("222 bytes") << 222 << quint64(0) << quint64(0xB641AE8CB691C174U);
    QTest::newRow("222 bytes, seeded") << 222 << prime << quint64(0x20CB8AB7AE10C14AU);
}

void tst_xxHash64::givesThePublishedValues()
{
    QFETCH(int, length);
    QFETCH(quint64, seed);
    QFETCH(quint64, hash);
    std::string bytes;
    quint64 generator = 2654435761U;
    for (int i = 0; i < length; ++i) {
        bytes += char(generator >> 56);
        generator *= 11400714785074694797U;
    }
    QCOMPARE(quint64(xxHash64(bytes, seed)), hash);
}

void tst_xxHash64::noticesEverySingleBit()
{
    std::string bytes(100, 'x');
    const quint64 before = xxHash64(bytes);
    for (char &byte : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            byte = char(byte ^ (1 << bit));
            QVERIFY(xxHash64(bytes) != before);
            byte = char(byte ^ (1 << bit));
        }
    }
    QCOMPARE(quint64(xxHash64(bytes)), before);
}

VT_TEST_APPLESS_MAIN(tst_xxHash64)
#include "tst_xxHash64.moc"
