#include "apps/mapviewer/layers/Classification.h"

#include <algorithm>
#include <cmath>

namespace mapviewer {

namespace {

bool isNumber(const QVariant &value)
{
    return value.type() == QVariant::Double;
}

bool precedes(const QVariant &left, const QVariant &right)
{
    if (isNumber(left) != isNumber(right))
        return isNumber(left);
    if (isNumber(left))
        return left.toDouble() < right.toDouble();
    return left.toString() < right.toString();
}

} // namespace

int ClassBreaks::count() const
{
    return bounds.empty() ? 0 : int(bounds.size()) - 1;
}

int ClassBreaks::classOf(double value) const
{
    // Written so that NaN, which compares false with everything, ends here too.
    if (bounds.empty() || !(value >= bounds.front() && value <= bounds.back()))
        return -1;
    const auto above = std::upper_bound(bounds.begin(), bounds.end(), value);
    return std::min(int(above - bounds.begin()) - 1, count() - 1);
}

std::vector<int> ClassBreaks::counts(const std::vector<double> &values) const
{
    std::vector<int> found(std::size_t(count()), 0);
    for (const double value : values) {
        const int index = classOf(value);
        if (index >= 0)
            ++found[std::size_t(index)];
    }
    return found;
}

ClassBreaks equalIntervals(double minimum, double maximum, int count)
{
    ClassBreaks breaks;
    if (std::isnan(minimum) || std::isnan(maximum) || count < 1)
        return breaks;
    const int classes = minimum == maximum ? 1 : count;
    for (int i = 0; i < classes; ++i)
        breaks.bounds.push_back(minimum + (maximum - minimum) * i / classes);
    // The end itself, which the sum above might miss by a rounding.
    breaks.bounds.push_back(maximum);
    return breaks;
}

ClassBreaks quantiles(std::vector<double> values, int count)
{
    ClassBreaks breaks;
    values.erase(std::remove_if(values.begin(), values.end(),
                                [](double value) { return std::isnan(value); }),
                 values.end());
    if (values.empty() || count < 1)
        return breaks;
    std::sort(values.begin(), values.end());
    for (std::size_t i = 0; i < std::size_t(count); ++i) {
        const double bound = values[i * values.size() / std::size_t(count)];
        if (breaks.bounds.empty() || bound > breaks.bounds.back())
            breaks.bounds.push_back(bound);
    }
    // When the last class begins with the greatest value, both its bounds are that value.
    breaks.bounds.push_back(values.back());
    return breaks;
}

UniqueValues::UniqueValues(const std::vector<QVariant> &column)
{
    std::copy_if(column.begin(), column.end(), std::back_inserter(values),
                 [](const QVariant &value) { return value.isValid(); });
    std::sort(values.begin(), values.end(), precedes);
    const auto same = [](const QVariant &left, const QVariant &right) {
        return !precedes(left, right) && !precedes(right, left);
    };
    values.erase(std::unique(values.begin(), values.end(), same), values.end());
}

int UniqueValues::count() const
{
    return int(values.size());
}

int UniqueValues::classOf(const QVariant &value) const
{
    if (!value.isValid())
        return -1;
    const auto found = std::lower_bound(values.begin(), values.end(), value, precedes);
    if (found == values.end() || precedes(value, *found))
        return -1;
    return int(found - values.begin());
}

} // namespace mapviewer
