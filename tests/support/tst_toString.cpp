#include "tests/support/TestMain.h"
#include "tests/support/toString.h"

#include <cmath>
#include <memory>

using namespace VTObjects;

using Color = rgb_color<float>;
using Colors = std::vector<Color>;

namespace {

template <typename Value>
QString printed(const Value &value)
{
    const std::unique_ptr<char[]> text(QTest::toString(value));
    return QString::fromUtf8(text.get());
}

} // namespace

/// What a failed comparison shows, and that it fails.
class tst_toString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorsShowEveryDigitThatCounts();
    void textsAreShownInQuotes();
    void textsAreComparedWithLiterals();
    void listsOfColorsAreCompared_data();
    void listsOfColorsAreCompared();
};

void tst_toString::colorsShowEveryDigitThatCounts()
{
    QCOMPARE(printed(Color(0, 127.5F, 255)), QStringLiteral("rgb(0, 127.5, 255)"));
    const float next = std::nextafter(127.5F, 128.0F);
    QVERIFY(printed(Color(0, next, 255)) != printed(Color(0, 127.5F, 255)));
}

void tst_toString::textsAreShownInQuotes()
{
    QCOMPARE(printed(VOString(L"Two")), QStringLiteral("\"Two\""));
    QCOMPARE(printed(VOString()), QStringLiteral("\"\""));
    QCOMPARE(printed(std::wstring(L"Two")), QStringLiteral("\"Two\""));
}

void tst_toString::textsAreComparedWithLiterals()
{
    const VOString text(L"Two");
    QCOMPARE(text, L"Two");
    // That a comparison fails is what is tested: one that passed would be reported.
    QEXPECT_FAIL("", "the letter case counts", Continue);
    QCOMPARE(text, L"two");
}

void tst_toString::listsOfColorsAreCompared_data()
{
    QTest::addColumn<bool>("equal");
    QTest::addColumn<int>("added");
    QTest::addColumn<int>("changed");
    QTest::newRow("equal") << true << 0 << -1;
    QTest::newRow("longer") << false << 1 << -1;
    QTest::newRow("other first") << false << 0 << 0;
    QTest::newRow("other last") << false << 0 << 2;
}

void tst_toString::listsOfColorsAreCompared()
{
    QFETCH(bool, equal);
    QFETCH(int, added);
    QFETCH(int, changed);
    const Colors colors{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    Colors others = colors;
    others.resize(colors.size() + std::size_t(added));
    if (changed >= 0)
        others[std::size_t(changed)].blue += 0.5F;
    // As above: unequal lists must fail.
    if (!equal)
        QEXPECT_FAIL("", "they differ", Continue);
    QCOMPARE(others, colors);
}

VT_TEST_APPLESS_MAIN(tst_toString)
#include "tst_toString.moc"
