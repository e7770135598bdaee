#pragma once

#include <QStringList>
#include <QVariant>

#include <vector>

namespace mapviewer {

/// Ranges of numbers, edge to edge. Class i holds bounds[i] <= value < bounds[i + 1]; the last one
/// holds its upper bound too.
struct ClassBreaks
{
    std::vector<double> bounds; ///< one more than there are classes, ascending; empty: no class

    int count() const;
    /// From 0; -1 for what lies outside and for NaN.
    int classOf(double value) const;
    /// How many of the values fall into each class.
    std::vector<int> counts(const std::vector<double> &values) const;
};

/// `count` classes of one width between the two ends; a single class where both ends are the same.
/// None when an end is NaN or `count` is below 1.
ClassBreaks equalIntervals(double minimum, double maximum, int count);

/// `count` classes that hold as nearly as possible the same number of values: of n sorted values,
/// class i begins with value number floor(i * n / count). Equal values stay together, so there
/// may be fewer classes. The bounds are values of the data. NaN is left out; no number, no class.
ClassBreaks quantiles(std::vector<double> values, int count);

/// The distinct values of a column, each a class of its own: numbers by size, then texts by their
/// characters. Invalid values belong to no class.
struct UniqueValues
{
    std::vector<QVariant> values;

    explicit UniqueValues(const std::vector<QVariant> &column = {});
    int count() const;
    /// From 0; -1 for an invalid or unknown value.
    int classOf(const QVariant &value) const;
};

} // namespace mapviewer
