#include "tests/support/SchemeFigures.h"
#include "tests/support/TestMain.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOStringConversion.h"
#include "vomap/store/builtInSchemes_p.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <cstdio>

using namespace ColorJudge;
using namespace SchemeFigures;
using namespace VTObjects;

namespace {

constexpr Vision visions[] = {NormalVision, ProtanVision, DeutanVision, TritanVision};

/// A few more than is needed, so that a claim may err to the safe side by a rounding.
constexpr double clearlyApart = apartEnough + 0.2;
/// From here on a ramp counts as near to its original.
constexpr double nearOriginal = 2.15;
constexpr double alike = 2.0;

QByteArray fileContents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString perVision(const Colors &colors, int (*figure)(const Colors &, Vision))
{
    QStringList texts;
    for (const Vision vision : visions)
        texts << QString::number(figure(colors, vision));
    return texts.join(QLatin1Char('/'));
}

/// Lengths at which a claim on a ramp's shape must hold.
QVector<int> lengthsOf(const VOColorScheme &scheme)
{
    QVector<int> lengths{static_cast<int>(scheme.colorRamp->getLevel()), smoothLength};
    for (int count = 3; count <= mostClasses; ++count)
        lengths << count;
    return lengths;
}

int turnsAt(const VOColorScheme &scheme, int length, Vision vision)
{
    return turns(colorsAt(scheme, length), vision, length == smoothLength ? rounding : 0.0);
}

/// What is wrong with the claim; empty if nothing is.
QString wrongInShape(const VOColorScheme &scheme, Type type)
{
    const auto at = [](const char *what, int length) {
        return QStringLiteral("%1 at %2 colours").arg(QLatin1String(what)).arg(length);
    };
    for (const int length : lengthsOf(scheme)) {
        const Colors colors = colorsAt(scheme, length);
        if (type == Sequential) {
            for (const Vision vision : visions) {
                if (turnsAt(scheme, length, vision) != 0)
                    return at("the lightness turns", length);
                if (lightnessRange(colors, vision) < leastRange)
                    return at("the lightness has too small a range", length);
            }
        }
        if ((type == Diverging || type == TwoSided) && turnsAt(scheme, length, NormalVision) != 1)
            return at("the lightness does not turn once", length);
        if (type == Diverging && endsInLightness(colors) > endsTogether)
            return at("the ends differ in lightness", length);
        if (type == Cyclic && ends(colors) > returned)
            return at("the end is not the beginning", length);
    }
    return QString();
}

double distanceToOriginal(const VOColorScheme &scheme, const Colors &original)
{
    const Colors colors = colorsAt(scheme, static_cast<int>(original.size()));
    double most = 0.0;
    for (size_t i = 0; i < original.size(); ++i)
        most = std::max(most, difference(labSeenBy(NormalVision, colors[i]),
                                         labSeenBy(NormalVision, original[i])));
    return most;
}

} // namespace

class tst_builtInSchemes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void everyClaimHolds_data();
    void everyClaimHolds();
    void fewColorsStayNearTheOriginal_data() { fittedSchemes(); }
    void fewColorsStayNearTheOriginal();
    void theShoreLiesInTheMiddle_data();
    void theShoreLiesInTheMiddle();
    void aNameThatSaysSafeIsSafe();
    void textsAreSpeltTheAmericanWay();
    void noTwoSchemesLookAlike();
    void theDocumentsTableIsTheComputedOne();
    void aDescriptionOffThePatternHasNoClaims_data();
    void aDescriptionOffThePatternHasNoClaims();

private:
    void fittedSchemes();
    QString tableRow(const QString &group, const VOColorScheme &scheme) const;

    VOColorSchemeTeam team;
    QHash<QString, Colors> originals;
};

void tst_builtInSchemes::initTestCase()
{
    team = readBuiltInTeam();
    const QString path = QFINDTESTDATA("originals.json");
    const QJsonObject tables = QJsonDocument::fromJson(fileContents(path)).object();
    for (const QString &name : tables.keys()) {
        Colors colors;
        for (const QJsonValue &row : tables.value(name).toArray()) {
            for (const QString &word : row.toString().split(QLatin1Char(' '))) {
                const uint bits = word.toUInt(nullptr, 16);
                colors.push_back({double(bits >> 16), double(bits >> 8 & 255), double(bits & 255)});
            }
        }
        originals.insert(name, colors);
    }
}

void tst_builtInSchemes::everyClaimHolds_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("index");
    for (size_t g = 0; g < team.groups.size(); ++g) {
        const VOColorSchemeGroup &group = team.groups[g];
        for (size_t i = 0; i < group.schemes.size(); ++i)
            QTest::addRow("%s: %s", qPrintable(toQString(group.name)),
                          qPrintable(toQString(group.schemes[i].name)))
                << static_cast<int>(g) << static_cast<int>(i);
    }
}

void tst_builtInSchemes::everyClaimHolds()
{
    QFETCH(int, group);
    QFETCH(int, index);
    const VOColorScheme &scheme =
        team.groups[static_cast<size_t>(group)].schemes[static_cast<size_t>(index)];
    const auto claims = claimsOf(toQString(scheme.describe));
    QVERIFY2(claims.has_value(), qPrintable(toQString(scheme.describe)));

    const QString wrong = wrongInShape(scheme, claims->type);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));

    if (claims->type == Qualitative) {
        QCOMPARE(claims->classes, static_cast<int>(scheme.colorRamp->getLevel()));
        const double pair = smallestPair(colorsOf(scheme), NormalVision);
        QVERIFY2(pair >= distinctEnough, qPrintable(QString::number(pair)));
    } else {
        const int apart = classesApart(scheme, claims->type, apartEnough, false);
        QVERIFY2(claims->classes <= apart, qPrintable(QString::number(apart)));
        const int clearly = classesApart(scheme, claims->type, clearlyApart, false);
        QVERIFY2(claims->classes >= clearly, qPrintable(QString::number(clearly)));
    }

    const int safe = classesApart(scheme, claims->type, apartEnough, true);
    QVERIFY2(claims->safe <= safe, qPrintable(QString::number(safe)));
    const int clearlySafe = classesApart(scheme, claims->type, clearlyApart, true);
    if (claims->safe == 0)
        QVERIFY2(clearlySafe < leastSafe, qPrintable(QString::number(clearlySafe)));
    else
        QVERIFY2(claims->safe >= clearlySafe, qPrintable(QString::number(clearlySafe)));
}

void tst_builtInSchemes::fittedSchemes()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("index");
    for (size_t g = 0; g < team.groups.size(); ++g) {
        const VOColorSchemeGroup &group = team.groups[g];
        for (size_t i = 0; i < group.schemes.size(); ++i) {
            const auto claims = claimsOf(toQString(group.schemes[i].describe));
            if (claims && claims->sources > 0)
                QTest::newRow(qPrintable(toQString(group.schemes[i].name)))
                    << static_cast<int>(g) << static_cast<int>(i);
        }
    }
}

void tst_builtInSchemes::fewColorsStayNearTheOriginal()
{
    QFETCH(int, group);
    QFETCH(int, index);
    const VOColorScheme &scheme =
        team.groups[static_cast<size_t>(group)].schemes[static_cast<size_t>(index)];
    const auto claims = claimsOf(toQString(scheme.describe));
    const Colors original = originals.value(toQString(scheme.name));
    QVERIFY(original.size() >= 100);
    auto *ramp = dynamic_cast<VOEvenColorRamp *>(scheme.colorRamp);
    QVERIFY(ramp);
    QCOMPARE(static_cast<int>(ramp->getSourceColorCount()), claims->sources);
    QVERIFY2(claims->sources <= 16, qPrintable(QString::number(claims->sources)));
    QVERIFY2(claims->distance <= nearOriginal, qPrintable(QString::number(claims->distance)));
    const double distance = distanceToOriginal(scheme, original);
    QVERIFY2(distance <= claims->distance, qPrintable(QString::number(distance)));
}

void tst_builtInSchemes::theShoreLiesInTheMiddle_data()
{
    QTest::addColumn<int>("index");
    const auto &schemes = team.groups.front().schemes;
    for (size_t i = 0; i < schemes.size(); ++i) {
        const auto claims = claimsOf(toQString(schemes[i].describe));
        if (claims && claims->type == TwoPart)
            QTest::newRow(qPrintable(toQString(schemes[i].name))) << static_cast<int>(i);
    }
}

void tst_builtInSchemes::theShoreLiesInTheMiddle()
{
    QFETCH(int, index);
    const Colors colors = colorsOf(team.groups.front().schemes[static_cast<size_t>(index)]);
    QCOMPARE(colors.size() % 2, size_t(0));
    size_t widest = 0;
    double widestStep = 0.0;
    for (size_t i = 1; i < colors.size(); ++i) {
        const double step =
            difference(labSeenBy(NormalVision, colors[i - 1]), labSeenBy(NormalVision, colors[i]));
        if (step > widestStep) {
            widestStep = step;
            widest = i;
        }
    }
    QCOMPARE(widest, colors.size() / 2);
}

void tst_builtInSchemes::aNameThatSaysSafeIsSafe()
{
    int found = 0;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            const QString name = toQString(scheme.name);
            if (!name.contains(QLatin1String("safe"), Qt::CaseInsensitive))
                continue;
            ++found;
            QVERIFY2(smallestPairOfAllVisions(colorsOf(scheme)) >= apartEnough, qPrintable(name));
        }
    }
    QVERIFY(found > 0);
}

void tst_builtInSchemes::textsAreSpeltTheAmericanWay()
{
    // Deliberate: the published set "Greys" keeps its name.
    static const QRegularExpression british(
        QStringLiteral("[Cc]olour|\\b[Gg]rey(?!s$)|eighbour|[Cc]entre|avour|[Mm]etre"));
    QVERIFY(british.match(QStringLiteral("Nearly grey")).hasMatch());
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            for (const VOString &text : {scheme.name, scheme.describe})
                QVERIFY2(!british.match(toQString(text)).hasMatch(), qPrintable(toQString(text)));
        }
    }
}

void tst_builtInSchemes::noTwoSchemesLookAlike()
{
    constexpr int samples = 9;
    QVector<QPair<QString, Colors>> seen;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes) {
            Colors colors = colorsAt(scheme, samples);
            for (Triple &color : colors)
                color = labSeenBy(NormalVision, color);
            for (const auto &other : seen) {
                double most = 0.0;
                for (size_t i = 0; i < samples && most < alike; ++i)
                    most = std::max(most, difference(colors[i], other.second[i]));
                QVERIFY2(most >= alike, qPrintable(toQString(scheme.name) +
                                                   QStringLiteral(" and ") + other.first));
            }
            seen.append(qMakePair(toQString(scheme.name), colors));
        }
    }
}

QString tst_builtInSchemes::tableRow(const QString &group, const VOColorScheme &scheme) const
{
    const auto claims = claimsOf(toQString(scheme.describe));
    if (!claims)
        return QString();
    const Colors colors = colorsOf(scheme);
    const bool isSet = claims->type == Qualitative;
    double range = INFINITY;
    for (const Vision vision : visions)
        range = std::min(range, lightnessRange(colors, vision));
    // Pairs are those of the classes claimed: all, and the safe ones.
    const auto classesOf = [&](int count) {
        Colors classes = isSet                    ? colors
                         : claims->type == Cyclic ? colorsAt(scheme, count + 1)
                                                  : colorsAt(scheme, count);
        classes.resize(static_cast<size_t>(count));
        return classes;
    };
    const auto number = [](double value) { return QString::number(value, 'f', 1); };
    QStringList cells{group, toQString(scheme.name), claims->typeName,
                      QString::number(colors.size())};
    cells << QString::number(claims->classes)
          << number(smallestPair(classesOf(claims->classes), NormalVision));
    cells << (claims->safe > 0 ? QString::number(claims->safe) : QStringLiteral("no"))
          << number(smallestPairOfAllVisions(
                 classesOf(claims->safe > 0 ? claims->safe : claims->classes)));
    cells << (isSet ? QStringLiteral("-")
                    : perVision(colors, [](const Colors &list, Vision vision) {
                          return turns(list, vision, 0.0);
                      }));
    cells << (isSet ? QStringLiteral("-") : number(range));
    cells << (isSet ? QStringLiteral("-") : number(endsInLightness(colors)));
    const QString name = toQString(scheme.name);
    cells << (claims->sources > 0 ? number(distanceToOriginal(scheme, originals.value(name)))
                                  : QStringLiteral("-"));
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |");
}

void tst_builtInSchemes::theDocumentsTableIsTheComputedOne()
{
    QStringList rows;
    for (const VOColorSchemeGroup &group : team.groups) {
        for (const VOColorScheme &scheme : group.schemes)
            rows << tableRow(toQString(group.name), scheme);
    }
    for (const QString &row : qAsConst(rows))
        std::puts(qPrintable(row));
    const QString text = QString::fromUtf8(fileContents(QFINDTESTDATA("../../../docs/schemes.md")));
    QStringList documented;
    bool inside = false;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("<!-- built-in schemes: ")))
            inside = line.contains(QLatin1String("begin"));
        else if (inside && line.startsWith(QLatin1Char('|')))
            documented << line;
    }
    // The first two lines are the head.
    documented = documented.mid(2);
    for (int i = 0; i < qMin(rows.size(), documented.size()); ++i)
        QCOMPARE(documented.at(i), rows.at(i));
    QCOMPARE(documented.size(), rows.size());
}

void tst_builtInSchemes::aDescriptionOffThePatternHasNoClaims_data()
{
    QTest::addColumn<QString>("description");
    QTest::newRow("unknown type") << "Striped, 3 to 5 classes, color-blind safe. Text.";
    QTest::newRow("no classes") << "Sequential, color-blind safe. Text.";
    QTest::newRow("a ramp with one number") << "Sequential, 5 classes, color-blind safe. Text.";
    QTest::newRow("a set with two") << "Qualitative, 3 to 5 classes, color-blind safe. Text.";
    QTest::newRow("no safety") << "Sequential, 3 to 5 classes. Text.";
    QTest::newRow("a set safe as a ramp")
        << "Qualitative, 5 classes, color-blind safe up to 4 classes. Text.";
    QTest::newRow("a ramp that comes back")
        << "Sequential, 3 to 5 classes and the first one again, "
           "color-blind safe. Text.";
    QTest::newRow("no text") << "Sequential, 3 to 5 classes, color-blind safe.";
}

void tst_builtInSchemes::aDescriptionOffThePatternHasNoClaims()
{
    QFETCH(QString, description);
    QVERIFY(!claimsOf(description).has_value());
    const auto claims = claimsOf(QStringLiteral("Sequential, 3 to 9 classes, color-blind safe up "
                                                "to 5 classes. Text; 6 colors, within 1.9 of the "
                                                "original."));
    QVERIFY(claims.has_value());
    QCOMPARE(claims->classes, 9);
    QCOMPARE(claims->safe, 5);
    QCOMPARE(claims->sources, 6);
    QCOMPARE(claims->distance, 1.9);
}

VT_TEST_GUILESS_MAIN(tst_builtInSchemes)
#include "tst_builtInSchemes.moc"
