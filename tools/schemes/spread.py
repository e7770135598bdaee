"""Moves the colours of a qualitative set just so far apart that each pair can be told apart."""

import numpy

from color import VISIONS, difference, lab


def _shortfall(colors, normal, deficient):
    """How much the pairs lack, summed over the visions, squared."""
    first, second = numpy.triu_indices(len(colors), 1)
    total = 0.0
    for vision in VISIONS if deficient else VISIONS[:1]:
        wanted = normal if vision == "normal" else deficient
        seen = lab(colors, vision)
        total += (numpy.maximum(0, wanted - difference(seen[first], seen[second])) ** 2).sum()
    return total


def spread(colors, normal, deficient=0.0, lightness=(0.0, 100.0), tries=6000):
    """The set after small moves: each pair at least `normal` apart in normal vision and `deficient`
    in the three others, every L* within the bounds. ValueError where the moves do not suffice."""
    random = numpy.random.RandomState(1)
    start = lab(colors)

    def cost(candidate):
        shortfall = _shortfall(candidate, normal, deficient)
        seen = lab(candidate)
        outside = numpy.maximum(0, lightness[0] - seen[:, 0]) + numpy.maximum(
            0, seen[:, 0] - lightness[1]
        )
        return shortfall + (outside**2).sum(), 0.02 * (difference(seen, start) ** 2).sum()

    best = colors.copy()
    lacking, moved = cost(best)
    for attempt in range(tries):
        reach = 24 if attempt < tries // 3 else 8 if attempt < 2 * tries // 3 else 3
        tried = best.copy()
        row = random.randint(len(best))
        tried[row] = numpy.clip(tried[row] + random.randint(-reach, reach + 1, 3), 0, 255)
        tried_lacking, tried_moved = cost(tried)
        if tried_lacking + tried_moved < lacking + moved or (tried_lacking == 0 < lacking):
            best, lacking, moved = tried, tried_lacking, tried_moved
    # What is left of the trade with the distance moved is closed without regard to it.
    for _ in range(tries):
        if lacking == 0:
            return best
        tried = best.copy()
        row = random.randint(len(best))
        tried[row] = numpy.clip(tried[row] + random.randint(-6, 7, 3), 0, 255)
        tried_lacking, _ = cost(tried)
        if tried_lacking < lacking:
            best, lacking = tried, tried_lacking
    if lacking:
        raise ValueError(f"the set stays too close by {lacking:.3f}")
    return best
