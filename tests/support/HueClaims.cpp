#include "tests/support/HueClaims.h"

#include "tests/support/SchemeFigures.h"
#include "vomap/VORandomColorRampForHsv.h"
#include "vomap/VOStringConversion.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <vector>

namespace HueClaims {

using ColorJudge::Triple;
using VTObjects::VOColorScheme;

namespace {

constexpr HueWord hueWords[] = {
    {"amber", 50, 100, 0.07, 1, 0.4, 0.95, "feb308 ffbf00"},
    {"aqua", 155, 215, 0.05, 1, 0.6, 1, "00ffff 13eac9"},
    {"black", 0, 360, 0, 0.09, 0, 0.3, "000000"},
    {"blue", 210, 300, 0.02, 1, 0, 1, "0000ff add8e6 4682b4 0343df 6a5acd"},
    {"brick", 15, 50, 0.05, 1, 0.3, 0.65, "a03623 b22222"},
    {"brown", 10, 100, 0.02, 1, 0, 0.68, "a52a2a 8b4513 653700"},
    {"caramel", 50, 90, 0.05, 1, 0.45, 0.8, "af6f09 c68e17"},
    {"coral", 10, 50, 0.08, 1, 0.55, 0.85, "ff7f50 f08080 fc5a50"},
    {"cream", 70, 125, 0.01, 0.12, 0.9, 1, "fffdd0 ffffc2"},
    {"cyan", 170, 225, 0.02, 1, 0.6, 1, "00ffff e0ffff"},
    {"gold", 70, 105, 0.07, 1, 0.5, 0.97, "ffd700 daa520 dbb40c"},
    {"gray", 0, 360, 0, 0.05, 0.15, 0.95, "808080 d3d3d3 929591"},
    {"green", 110, 175, 0.02, 1, 0, 1, "008000 90ee90 2e8b57 15b01a"},
    {"indigo", 265, 315, 0.05, 1, 0.1, 0.5, "4b0082 380282"},
    {"ivory", 70, 125, 0.005, 0.1, 0.9, 1, "fffff0 ffffcb"},
    {"leaf", 115, 160, 0.05, 1, 0.4, 0.85, "71aa34 5ca904"},
    {"lemon", 95, 125, 0.03, 1, 0.8, 1, "fffacd fdff52"},
    {"lilac", 280, 330, 0.02, 0.2, 0.5, 1, "c8a2c8 cea2fd"},
    {"magenta", 325, 12, 0.08, 1, 0.25, 0.85, "ff00ff 8b008b c20078"},
    {"mint", 140, 185, 0.01, 0.18, 0.75, 1, "98ff98 9ffeb0 f5fffa"},
    {"navy", 240, 290, 0.03, 1, 0.05, 0.42, "000080 01153e"},
    {"ochre", 50, 110, 0.05, 1, 0.4, 0.85, "bf9005 cc7722"},
    {"olive", 88, 135, 0.03, 1, 0.2, 0.75, "808000 6e750e"},
    {"orange", 38, 82, 0.05, 1, 0.3, 1, "ffa500 ff8c00 f97306"},
    {"oxblood", 0, 55, 0.03, 1, 0.1, 0.5, "4a0000 800000"},
    {"peach", 30, 85, 0.03, 0.16, 0.75, 1, "ffb07c ffdab9"},
    {"petrol", 195, 245, 0.03, 1, 0.2, 0.55, "005f6a"},
    {"pink", 335, 35, 0.03, 1, 0.5, 1, "ffc0cb ff1493 ff81c0"},
    {"plum", 310, 15, 0.03, 1, 0.15, 0.8, "dda0dd 580f41"},
    {"purple", 280, 350, 0.02, 1, 0, 1, "800080 9370db 7e1e9c"},
    {"red", 5, 42, 0.05, 1, 0, 1, "ff0000 8b0000 cd5c5c dc143c e50000"},
    {"rose", 345, 40, 0.02, 1, 0.35, 1, "ffe4e1 cf6275 bc8f8f"},
    {"rust", 25, 60, 0.06, 1, 0.25, 0.65, "a83c09 b7410e"},
    {"sage", 105, 170, 0.02, 0.14, 0.45, 0.85, "87ae73 9dc183"},
    {"sand", 55, 110, 0.02, 0.16, 0.6, 1, "f4a460 e2ca76"},
    {"slate", 200, 270, 0.01, 0.12, 0.2, 0.65, "708090 516572"},
    {"tan", 55, 110, 0.03, 1, 0.55, 0.9, "d2b48c d1b26f"},
    {"teal", 170, 225, 0.03, 1, 0.2, 0.75, "008080 029386"},
    {"turquoise", 165, 230, 0.03, 1, 0.3, 1, "40e0d0 06c2ac"},
    {"umber", 35, 90, 0.025, 1, 0.1, 0.62, "b26400 635147"},
    {"vermilion", 20, 50, 0.1, 1, 0.4, 0.8, "f4320c ff4500"},
    {"violet", 280, 335, 0.03, 1, 0, 1, "ee82ee 9a0eea 8a2be2 9400d3"},
    {"white", 0, 360, 0, 0.05, 0.9, 1, "ffffff f5f5f5"},
    {"wine", 340, 30, 0.05, 1, 0.15, 0.5, "80013f 722f37"},
    {"yellow", 82, 128, 0.03, 1, 0.6, 1, "ffff00 ffffe0 ffff14"},
};

/// Colors of less chroma have no hue to speak of.
constexpr double leastVisible = 0.02;
constexpr int smoothLength = 64;
constexpr double fullTurn = 360.0;

using Words = QVector<const HueWord *>;

/// The hue words of a text: one list for each word, of two where a hyphen joins two.
QVector<Words> namedIn(QString text)
{
    // Grounds to draw on and not colors of the scheme.
    static const QRegularExpression grounds(QStringLiteral("on white or black|on white|on black"));
    static const QRegularExpression others(QStringLiteral("[^A-Za-z-]+"));
    QVector<Words> named;
    for (const QString &part : text.remove(grounds).split(others)) {
        Words words;
        for (const QString &each : part.split(QLatin1Char('-'))) {
            if (const HueWord *word = wordOf(each))
                words << word;
        }
        if (!words.isEmpty())
            named << words;
    }
    return named;
}

bool isShown(const Words &words, const std::vector<Lch> &colors)
{
    return std::any_of(colors.begin(), colors.end(), [&words](const Lch &color) {
        return std::any_of(words.begin(), words.end(),
                           [&color](const HueWord *word) { return shows(*word, color); });
    });
}

bool isAnyShown(const QVector<Words> &named, const std::vector<Lch> &colors)
{
    return named.isEmpty() || std::any_of(named.begin(), named.end(), [&colors](const Words &each) {
               return isShown(each, colors);
           });
}

std::vector<Lch> lchOfAll(const SchemeFigures::Colors &colors)
{
    std::vector<Lch> all;
    std::transform(colors.begin(), colors.end(), std::back_inserter(all), lchOf);
    return all;
}

bool isWithin(double hue, double from, double to)
{
    return from <= to ? hue >= from && hue <= to : hue >= from || hue <= to;
}

QString wrongEnds(const QString &text, const std::vector<Lch> &colors)
{
    static const QRegularExpression course(QStringLiteral(
        "^(?:[^:]*: )?(?<from>[^,;]+?)(?: over [^,;]+)? to (?<to>[^,;]+?)(?:;|\\.|$)"));
    const QRegularExpressionMatch match = course.match(text);
    if (!match.hasMatch())
        return QString();
    const auto quarter = static_cast<std::ptrdiff_t>(std::max<size_t>(1, colors.size() / 4));
    if (!isAnyShown(namedIn(match.captured(QStringLiteral("from"))),
                    {colors.begin(), colors.begin() + quarter}))
        return QStringLiteral("does not begin with ") + match.captured(QStringLiteral("from"));
    if (!isAnyShown(namedIn(match.captured(QStringLiteral("to"))),
                    {colors.end() - quarter, colors.end()}))
        return QStringLiteral("does not end with ") + match.captured(QStringLiteral("to"));
    return QString();
}

QString wrongSet(const QString &text, const std::vector<Lch> &colors)
{
    const QVector<Words> named = namedIn(text);
    if (named.isEmpty())
        return QString();
    static const QRegularExpression span(QStringLiteral("^[A-Z][a-z]+ to [a-z]+\\.$|^Between "));
    const bool isSpan = named.size() == 2 && span.match(text).hasMatch();
    for (const Lch &color : colors) {
        if (color.chroma < leastVisible)
            continue;
        const bool fits =
            isSpan ? isWithin(color.hue, std::min(named[0][0]->fromHue, named[1][0]->fromHue),
                              std::max(named[0][0]->toHue, named[1][0]->toHue))
                   : std::any_of(named.begin(), named.end(),
                                 [&color](const Words &each) { return isShown(each, {color}); });
        if (!fits)
            return QStringLiteral("has a hue of %1 that is not named").arg(color.hue);
    }
    return QString();
}

} // namespace

Lch lchOf(const Triple &rgb)
{
    const Triple light = ColorJudge::linearLight(rgb);
    const double l =
        std::cbrt(0.4122214708 * light[0] + 0.5363325363 * light[1] + 0.0514459929 * light[2]);
    const double m =
        std::cbrt(0.2119034982 * light[0] + 0.6806995451 * light[1] + 0.1073969566 * light[2]);
    const double s =
        std::cbrt(0.0883024619 * light[0] + 0.2817188376 * light[1] + 0.6299787005 * light[2]);
    const double a = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s;
    const double b = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s;
    const double degrees = std::atan2(b, a) * 180.0 / std::acos(-1.0);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s, std::hypot(a, b),
            degrees < 0.0 ? degrees + fullTurn : degrees};
}

const HueWord *wordOf(const QString &text)
{
    const QString lower = text.toLower();
    const auto *const found =
        std::find_if(std::begin(hueWords), std::end(hueWords), [&lower](const HueWord &word) {
            const QLatin1String name(word.name);
            return lower == name || lower == name + QLatin1Char('s');
        });
    return found == std::end(hueWords) ? nullptr : found;
}

bool shows(const HueWord &word, const Lch &color)
{
    return color.chroma >= word.leastChroma && color.chroma <= word.mostChroma &&
           color.lightness >= word.leastLightness && color.lightness <= word.mostLightness &&
           isWithin(color.hue, word.fromHue, word.toHue);
}

QString strayReference()
{
    for (const HueWord &word : hueWords) {
        for (const QString &reference :
             QString::fromLatin1(word.references).split(QLatin1Char(' '))) {
            const uint bits = reference.toUInt(nullptr, 16);
            if (!shows(word,
                       lchOf({double(bits >> 16), double(bits >> 8 & 255), double(bits & 255)})))
                return QLatin1String(word.name) + QLatin1Char(' ') + reference;
        }
    }
    return QString();
}

QString wrongHue(const VOColorScheme &scheme)
{
    const QString name = VTObjects::toQString(scheme.name);
    const QString description = VTObjects::toQString(scheme.describe);
    // Behind the claims of type, classes and safety.
    const QString text = description.mid(description.indexOf(QLatin1String(". ")) + 2);
    const auto claims = SchemeFigures::claimsOf(description);
    if (!claims)
        return QStringLiteral("has no claims");
    const bool isRandom = dynamic_cast<VTObjects::VORandomColorRamp *>(scheme.colorRamp) != nullptr;
    const bool isSet = claims->type == SchemeFigures::Qualitative;
    const std::vector<Lch> colors = lchOfAll(isSet || claims->type == SchemeFigures::TwoPart
                                                 ? SchemeFigures::colorsOf(scheme)
                                                 : SchemeFigures::colorsAt(scheme, smoothLength));
    for (const QString &said : {name, text}) {
        for (const Words &words : namedIn(said)) {
            if (!isShown(words, colors))
                return QStringLiteral("shows no ") + QLatin1String(words.front()->name);
        }
    }
    if (isRandom)
        return wrongSet(text, colors);
    if (claims->type == SchemeFigures::Cyclic)
        return QString(); // from one direction to another, not from end to end
    if (claims->type == SchemeFigures::TwoPart) {
        // Sea, then land.
        const QStringList halves = text.split(QLatin1String(", "));
        const auto middle = colors.begin() + static_cast<std::ptrdiff_t>(colors.size() / 2);
        const QString wrong = wrongEnds(halves.first(), {colors.begin(), middle});
        return wrong.isEmpty() ? wrongEnds(halves.last(), {middle, colors.end()}) : wrong;
    }
    const QString wrong = wrongEnds(name, colors);
    return wrong.isEmpty() ? wrongEnds(text, colors) : wrong;
}

} // namespace HueClaims
