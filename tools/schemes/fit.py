"""Finds the few source colours whose even ramp stays near a table of many colours."""

import numpy

from color import difference, even_ramp, lab

TOLERANCE = 2.0
MOST_SOURCES = 24


def distance(sources, target_lab):
    """The largest CIEDE2000 difference between the ramp of the sources and the table."""
    return float(difference(lab(even_ramp(sources, len(target_lab))), target_lab).max())


def _cost(sources, target_lab):
    off = difference(lab(even_ramp(sources, len(target_lab))), target_lab)
    return float((off**6).mean() ** (1 / 6)), float(off.max())


def _refined(sources, target_lab, tolerance):
    """Walks each inner source component by component while that brings the ramp nearer."""
    best, worst = _cost(sources, target_lab)
    for step in (4, 2, 1):
        improved = True
        rounds = 0
        while improved and rounds < 6 and worst > tolerance:
            improved = False
            rounds += 1
            for i in range(1, len(sources) - 1):
                for component in range(3):
                    for sign in (-step, step):
                        tried = sources.copy()
                        tried[i, component] = min(max(tried[i, component] + sign, 0), 255)
                        cost, tried_worst = _cost(tried, target_lab)
                        if cost < best:
                            sources, best, worst, improved = tried, cost, tried_worst, True
    return sources, worst


def fitted(table, tolerance=TOLERANCE, most=MOST_SOURCES):
    """(sources, distance): the fewest sources within the tolerance, the ends exactly the table's;
    None where even the most are too few."""
    target_lab = lab(table)
    for count in range(2, most + 1):
        places = numpy.linspace(0, len(table) - 1, count)
        sources = table[numpy.rint(places).astype(int)].copy()
        worst = distance(sources, target_lab)
        if worst > tolerance * 2.5:
            continue
        if worst > tolerance:
            sources, worst = _refined(sources, target_lab, tolerance)
        if worst <= tolerance:
            return sources, worst
    return None
