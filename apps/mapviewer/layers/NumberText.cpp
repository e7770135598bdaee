#include "apps/mapviewer/layers/NumberText.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace mapviewer {

namespace {

constexpr int significantDigits = 4;
constexpr int mostDecimals = 8;
constexpr double labelSlack = 1.0 / 50.0;
const QChar firstStrongIsolate(0x2068);
const QChar popIsolate(0x2069);

QString withDecimals(double value, int decimals)
{
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    QString text = english.toString(value, 'f', decimals);
    if (decimals > 0) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    if (text == QLatin1String("-0"))
        text = QStringLiteral("0");
    return isolated(text.replace(QLatin1Char('-'), QChar(0x2212)));
}

int decimalsOf(double value, int digits)
{
    if (value == 0.0)
        return 0;
    const int magnitude = int(std::floor(std::log10(std::abs(value)))) + 1;
    return std::clamp(digits - magnitude, 0, mostDecimals);
}

} // namespace

QString isolated(const QString &text)
{
    if (text.isEmpty() || !QGuiApplication::isRightToLeft())
        return text;
    return firstStrongIsolate + text + popIsolate;
}

QString rangeText(const QString &from, const QString &to)
{
    return from == to ? from : QCoreApplication::translate("NumberText", "%1 to %2").arg(from, to);
}

QString numberText(double value)
{
    return withDecimals(value, decimalsOf(value, significantDigits));
}

QStringList numberTexts(const QVector<double> &values)
{
    QVector<double> sorted = values;
    std::sort(sorted.begin(), sorted.end());
    double slack = std::numeric_limits<double>::infinity();
    for (int i = 1; i < sorted.size(); ++i) {
        if (sorted.at(i) > sorted.at(i - 1))
            slack = std::min(slack, (sorted.at(i) - sorted.at(i - 1)) * labelSlack);
    }
    int decimals = 0;
    const auto isOff = [&](double value) {
        const double unit = std::pow(10.0, decimals);
        return std::abs(std::round(value * unit) / unit - value) > slack;
    };
    while (decimals < mostDecimals && std::any_of(values.begin(), values.end(), isOff))
        ++decimals;
    QStringList texts;
    for (const double value : values)
        texts.append(withDecimals(value, decimals));
    return texts;
}

QVector<double> tickValues(double minimum, double maximum, int most)
{
    QVector<double> steps;
    if (!(minimum < maximum) || most < 1)
        return steps;
    const double rough = (maximum - minimum) / most;
    double step = std::pow(10.0, std::floor(std::log10(rough)));
    for (;;) {
        for (const double factor : {1.0, 2.0, 5.0}) {
            const double size = step * factor;
            const double first = std::ceil(minimum / size - 1e-9);
            const double last = std::floor(maximum / size + 1e-9);
            if (last - first + 1.0 > most)
                continue;
            // Counted in integers: a large double plus one is itself again.
            const int count = int(last - first) + 1;
            for (int i = 0; i < count; ++i)
                steps.append((first + i) * size);
            return steps;
        }
        step *= 10.0;
    }
}

} // namespace mapviewer
