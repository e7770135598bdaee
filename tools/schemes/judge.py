"""The claims a scheme can make, computed from its colours."""

import numpy

from color import VISIONS, difference, even_ramp, lab, smallest_pair

APART = 8.0  # two classes that can be told apart
DISTINCT = 15.0  # two classes of a qualitative set
LIGHTNESS_RANGE = 50.0
ENDS = 8.0
RETURN = 3.0
SMOOTH = 256  # as many colours as a continuous raster shows
ROUNDING = 0.25  # what rounding to whole components does to L* there
MOST_CLASSES = 12
# Claims are made only where the figure is above its threshold by this much, so that a rounding
# of one component does not refute one.
MARGIN = 0.05


def turns(colors, vision, slack=0.0):
    """How often the lightness changes its direction; reversals up to the slack do not count."""
    lightness = lab(colors, vision)[:, 0]
    count, direction = 0, 0
    low = high = lightness[0]
    for value in lightness:
        if direction >= 0 and value < high - slack:
            count += direction > 0
            direction, low = -1, value
        elif direction <= 0 and value > low + slack:
            count += direction < 0
            direction, high = 1, value
        low, high = min(low, value), max(high, value)
    return count


def turns_at(sources, length, vision):
    return turns(even_ramp(sources, length), vision, ROUNDING if length == SMOOTH else 0.0)


def lightness_range(colors, vision):
    lightness = lab(colors, vision)[:, 0]
    return float(lightness.max() - lightness.min())


def lengths(level, most):
    """Every length that a claim on the shape of a ramp is checked at."""
    return sorted({level, *range(3, most + 1), SMOOTH})


def classes(sources, visions, closed=False):
    """The most classes whose pairs are all APART in the visions, at this and every lower count."""
    most = 0
    for count in range(3, MOST_CLASSES + 1):
        colors = even_ramp(sources, count + closed)[:count]
        if any(smallest_pair(colors, vision) < APART + MARGIN for vision in visions):
            break
        most = count
    return most


def is_sequential(sources, level):
    return all(
        turns_at(sources, length, vision) == 0
        and lightness_range(even_ramp(sources, length), vision) >= LIGHTNESS_RANGE + MARGIN
        for length in lengths(level, MOST_CLASSES)
        for vision in VISIONS
    )


def end_distance(sources):
    lightness = lab(numpy.asarray(sources))[:, 0]
    return float(abs(lightness[0] - lightness[-1]))


def is_diverging(sources, level, visions=VISIONS):
    return end_distance(sources) <= ENDS - MARGIN and all(
        turns_at(sources, length, vision) == 1
        for length in lengths(level, MOST_CLASSES)
        for vision in visions
    )


def is_cyclic(sources):
    ends = lab(numpy.asarray(sources)[[0, -1]])
    return float(difference(ends[0], ends[1])) <= RETURN - MARGIN


def apart_in_all(colors):
    """The length of the longest beginning of a set that is APART in all visions."""
    most = len(colors)
    while most > 1 and any(smallest_pair(colors[:most], v) < APART + MARGIN for v in VISIONS):
        most -= 1
    return most
