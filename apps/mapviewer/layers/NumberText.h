#pragma once

#include <QStringList>
#include <QVector>

namespace mapviewer {

/// `text` as a thing of its own in a line that runs from right to left: its signs, brackets and
/// units stay on their sides. Where lines run from left to right it is just the text.
QString isolated(const QString &text);

/// A number as a map's reader wants it: thousands grouped, a true minus sign, about four
/// significant digits and no more decimals than they need. English, as all texts of the window, and
/// isolated().
QString numberText(double value);

/// The labels of one legend, with as few decimals as keep each within a fiftieth of the smallest
/// distance between two of them.
QStringList numberTexts(const QVector<double> &values);

/// "1 to 2", or "1" where both ends are the same: such a class holds a single value.
QString rangeText(const QString &from, const QString &to);

/// The ticks of an axis: round numbers (1, 2 or 5 times a power of ten apart) from `minimum` to
/// `maximum`, at most `most` of them. Empty unless minimum < maximum.
QVector<double> tickValues(double minimum, double maximum, int most);

} // namespace mapviewer
