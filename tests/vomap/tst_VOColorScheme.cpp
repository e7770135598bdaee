#include "tests/support/SchemeSamples.h"
#include "tests/support/TestMain.h"
#include "tests/support/toString.h"
#include "vomap/VOColorRamp.h"
#include "vomap/VOColorScheme.h"
#include "vomap/VOEvenColorRamp.h"

#include <QObject>
#include <QtTest>

#include <type_traits>
#include <utility>
#include <vector>

using namespace VTObjects;

class tst_VOColorScheme : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void startsEmptyAndWithoutARamp();
    void aCopyHasARampOfItsOwn_data();
    void aCopyHasARampOfItsOwn();
    void aCopyOfASchemeWithoutARampHasNone();
    void assignmentReplacesTheRampByAClone();
    void assignmentToItselfKeepsTheRamp();
    void theRampGoesWithItsScheme();
    void aMoveHandsTheRampOver();
    void aReplacedRampBelongsToTheScheme();
    void vectorsOfSchemesGrowAndShrink();
    void copiesCarryWhatALaterReleaseStored();
};

namespace {

// Counts those that are alive.
class CountedRamp : public VOEvenColorRamp
{
public:
    explicit CountedRamp(int &counter)
        : alive(counter)
    {
        ++alive;
    }
    CountedRamp(const CountedRamp &other)
        : VOEvenColorRamp(other)
        , alive(other.alive)
    {
        ++alive;
    }
    ~CountedRamp() override { --alive; }
    VOColorRamp *clone() override { return new CountedRamp(*this); }

private:
    int &alive;
};

} // namespace

void tst_VOColorScheme::startsEmptyAndWithoutARamp()
{
    const VOColorScheme scheme;
    QCOMPARE(scheme.name, L"");
    QCOMPARE(scheme.author, L"");
    QCOMPARE(scheme.describe, L"");
    QVERIFY(!scheme.colorRamp);
    QVERIFY(!scheme.unknownFields);
}

void tst_VOColorScheme::aCopyHasARampOfItsOwn_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("random") << int(VOColorRamp::RandomRamp);
    QTest::newRow("HSV") << int(VOColorRamp::RandomHsvRamp);
    QTest::newRow("even") << int(VOColorRamp::EvenRamp);
    QTest::newRow("predefined") << int(VOColorRamp::PredefineRamp);
}

void tst_VOColorScheme::aCopyHasARampOfItsOwn()
{
    QFETCH(int, kind);
    auto source =
        std::make_unique<VOColorScheme>(SchemeSamples(5).scheme(VOColorRamp::ColorRampType(kind)));
    source->colorRamp->addColor(rgb_color<float>(1, 2, 3));
    const QByteArray before = dump(*source);
    const VOColorScheme copy(*source);
    QVERIFY(copy.colorRamp != source->colorRamp);
    QCOMPARE(dump(copy), before);
    source->colorRamp->deleteAll();
    source.reset();
    QCOMPARE(dump(copy), before);
}

void tst_VOColorScheme::aCopyOfASchemeWithoutARampHasNone()
{
    VOColorScheme source;
    source.name = L"bare";
    const VOColorScheme copy(source);
    QVERIFY(!copy.colorRamp);
    VOColorScheme assigned = SchemeSamples(1).scheme();
    assigned = source;
    QVERIFY(!assigned.colorRamp);
    QCOMPARE(assigned.name, L"bare");
}

void tst_VOColorScheme::assignmentReplacesTheRampByAClone()
{
    int alive = 0;
    {
        VOColorScheme target;
        target.colorRamp = new CountedRamp(alive);
        VOColorScheme source;
        source.colorRamp = new CountedRamp(alive);
        QCOMPARE(alive, 2);
        target = source;
        QCOMPARE(alive, 2);
        QVERIFY(target.colorRamp != source.colorRamp);
    }
    QCOMPARE(alive, 0);
}

void tst_VOColorScheme::assignmentToItselfKeepsTheRamp()
{
    VOColorScheme scheme = SchemeSamples(3).scheme();
    const QByteArray before = dump(scheme);
    VOColorScheme &same = scheme;
    scheme = same;
    QCOMPARE(dump(scheme), before);
    scheme = std::move(same);
    QCOMPARE(dump(scheme), before);
}

void tst_VOColorScheme::theRampGoesWithItsScheme()
{
    int alive = 0;
    {
        VOColorScheme scheme;
        scheme.colorRamp = new CountedRamp(alive);
        const VOColorScheme copy(scheme);
        QCOMPARE(alive, 2);
    }
    QCOMPARE(alive, 0);
}

void tst_VOColorScheme::aMoveHandsTheRampOver()
{
    int alive = 0;
    {
        VOColorScheme source;
        source.name = L"moved";
        source.colorRamp = new CountedRamp(alive);
        VOColorRamp *const ramp = source.colorRamp;
        VOColorScheme target(std::move(source));
        QCOMPARE(target.colorRamp, ramp);
        QCOMPARE(alive, 1);
        VOColorScheme assigned;
        assigned.colorRamp = new CountedRamp(alive);
        assigned = std::move(target);
        QCOMPARE(assigned.colorRamp, ramp);
        QCOMPARE(assigned.name, L"moved");
    }
    QCOMPARE(alive, 0);
    QVERIFY(std::is_nothrow_move_constructible<VOColorScheme>::value);
}

void tst_VOColorScheme::aReplacedRampBelongsToTheScheme()
{
    int alive = 0;
    {
        VOColorScheme scheme;
        scheme.colorRamp = new CountedRamp(alive);
        VOColorRamp *const fresh = scheme.colorRamp->clone();
        delete scheme.colorRamp;
        scheme.colorRamp = fresh;
        QCOMPARE(alive, 1);
    }
    QCOMPARE(alive, 0);
}

void tst_VOColorScheme::vectorsOfSchemesGrowAndShrink()
{
    int alive = 0;
    {
        std::vector<VOColorScheme> schemes;
        VOColorScheme scheme;
        scheme.colorRamp = new CountedRamp(alive);
        for (int i = 0; i < 100; ++i)
            schemes.push_back(scheme);
        QCOMPARE(alive, 101);
        schemes.erase(schemes.begin() + 50);
        QCOMPARE(alive, 100);
    }
    QCOMPARE(alive, 0);
}

void tst_VOColorScheme::copiesCarryWhatALaterReleaseStored()
{
    VOColorScheme scheme;
    scheme.unknownFields = std::make_shared<const std::string>("later");
    VOColorScheme copy(scheme);
    QCOMPARE(*copy.unknownFields, std::string("later"));
    VOColorScheme assigned;
    assigned = copy;
    QCOMPARE(*assigned.unknownFields, std::string("later"));
    const VOColorScheme moved(std::move(copy));
    QCOMPARE(*moved.unknownFields, std::string("later"));
    VOColorScheme target;
    target = std::move(assigned);
    QCOMPARE(*target.unknownFields, std::string("later"));
}

VT_TEST_APPLESS_MAIN(tst_VOColorScheme)
#include "tst_VOColorScheme.moc"
