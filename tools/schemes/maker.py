"""Makes the built-in schemes group by group, and computes what their descriptions claim."""

import numpy

import judge
import own
import sets
import sources as published
from color import VISIONS, difference, even_ramp, lab, rgb, smallest_pair
from files import with_colors
from fit import fitted
from spread import spread

OWN_AUTHOR = "vtcontrolcolorscheme"
SMOOTH_LEVEL = 64  # a strip or a shaded map without visible bands, and still a list to edit
SIMPLE_LEVEL = 10
LEAST_SAFE = 4  # classes; fewer are no reason to pick a scheme
PART_STEPS = 12  # of the sea and of the land


def hexes(colors):
    return ["#" + "".join(f"{int(part):02x}" for part in color) for color in colors]


def whole(colors):
    return [[int(part) for part in color] for color in colors]


def even(name, author, description, kind, sources, level):
    """A scheme of an even or a predefined ramp."""
    parameters = {"kind": kind, "sourceColors": whole(sources)}
    return {
        "name": name,
        "author": author,
        "description": description,
        "ramp": with_colors(name, parameters, whole(even_ramp(sources, level))),
    }


def safety(safe, count):
    if safe < min(LEAST_SAFE, count):
        return "not color-blind safe"
    return "color-blind safe" if safe >= count else f"color-blind safe up to {safe} classes"


def ramp(name, author, text, sources, level=None, kind="even", type_name=None):
    """A scheme of an even ramp; the level is that of the classes it serves where none is given."""
    sources = numpy.asarray(sources, dtype=float)
    closed = type_name == "Cyclic"
    count = judge.classes(sources, VISIONS[:1], closed)
    safe = judge.classes(sources, VISIONS, closed)
    if level is None:
        level = safe if safe >= LEAST_SAFE else count
        # An odd number of classes has one in the middle.
        if judge.turns_at(sources, level, "normal") == 1:
            level -= 1 - level % 2
    if not type_name:
        if judge.is_sequential(sources, level):
            type_name = "Sequential"
        elif judge.is_diverging(sources, level):
            type_name = "Diverging"
        elif judge.turns_at(sources, level, "normal") == 1:
            type_name = "Two-sided"
        else:
            raise ValueError(f"{name}: what is it?")
    if closed and not judge.is_cyclic(sources):
        raise ValueError(f"{name} does not return to its first color")
    again = " and the first one again" if closed else ""
    description = f"{type_name}, 3 to {count} classes{again}, {safety(safe, count)}. {text}."
    return even(name, author, description, kind, sources, level)


def distinct(name, author, text, colors):
    """A qualitative scheme: an even ramp of as many classes as sources shows just these."""
    if smallest_pair(colors) < judge.DISTINCT + judge.MARGIN:
        raise ValueError(f"{name}: a pair of {smallest_pair(colors):.1f}")
    count = len(colors)
    safe = judge.apart_in_all(colors)
    said = safety(safe, count).replace(f"up to {safe} classes", f"in its first {safe}")
    description = f"Qualitative, {count} classes, {said}. {text}."
    return even(name, author, description, "even", colors, count)


class Maker:
    def __init__(self, palettable, cpt):
        palettable = palettable or published.PALETTABLE
        self.brewer = published.brewer(palettable)
        self.viridis = published.viridis_family(palettable)
        self.cpt_folder = cpt or published.CPT
        self.originals = {}

    def table(self, family, name):
        return published.cpt(family, name, self.cpt_folder)

    def near(self, name, author, text, table, level=SMOOTH_LEVEL, type_name=None):
        """A scheme of few sources within a small distance of a published table."""
        found = fitted(table)
        if not found:
            raise ValueError(f"{name}: too few sources")
        sources, worst = found
        self.originals[name] = " ".join(part[1:] for part in hexes(table))
        # Rounded up, with room for a component that rounds the other way.
        said = numpy.ceil((worst + 0.05) * 10) / 10
        text = f"{text}; {len(sources)} colors, within {said:.1f} of the original"
        return ramp(name, author, text, sources, level, "predefined", type_name)

    def dem(self):
        schemes = []
        for name, colors, text in own.HEIGHTS:
            sources = rgb(colors)
            type_name = None if judge.is_sequential(sources, SMOOTH_LEVEL) else "Elevation tint"
            schemes.append(
                ramp(name, OWN_AUTHOR, text, sources, SMOOTH_LEVEL, "predefined", type_name)
            )
        for name, colors, text in own.SEA_AND_LAND:
            sources = rgb(colors)
            schemes.append(
                ramp(name, OWN_AUTHOR, text, sources, len(sources), "predefined", "Two-part")
            )
        for family, name, author, sea, land in sets.PARTED:
            table = self.table(family, name)
            shore = int(difference(lab(table)[1:], lab(table)[:-1]).argmax()) + 1
            parts = (table[:shore], table[shore:])
            places = [
                numpy.rint(numpy.linspace(0, len(part) - 1, PART_STEPS)).astype(int)
                for part in parts
            ]
            sources = numpy.concatenate([part[place] for part, place in zip(parts, places)])
            text = f"{sea}, {land}; {PART_STEPS} colors of the original a part"
            schemes.append(
                ramp(name, author, text, sources, len(sources), "predefined", "Two-part")
            )
            schemes.append(
                self.near(
                    f"{name}, sea", author, f"The part below the shore: {sea.lower()}", parts[0]
                )
            )
            schemes.append(
                self.near(f"{name}, land", author, f"The part above the shore: {land}", parts[1])
            )
        for name, colors, text in own.DEPTHS + own.RELIEF:
            schemes.append(ramp(name, OWN_AUTHOR, text, rgb(colors), SMOOTH_LEVEL, "predefined"))
        for name, colors, text in own.ASPECT:
            schemes.append(
                ramp(name, OWN_AUTHOR, text, rgb(colors), SMOOTH_LEVEL, "predefined", "Cyclic")
            )
        return schemes

    def unique(self):
        schemes = []
        for name, colors, normal, deficient, bounds, text in own.UNIQUE:
            schemes.append(
                distinct(name, OWN_AUTHOR, text, spread(rgb(colors), normal, deficient, bounds))
            )
        schemes.append(
            distinct(
                "Okabe and Ito",
                "Masataka Okabe, Kei Ito",
                "The set of 2002, black last",
                rgb(own.OKABE_ITO),
            )
        )
        for name, text in sets.BREWER_QUALITATIVE:
            versions = self.brewer["Qualitative"][name]
            most = max(
                n for n in versions if smallest_pair(versions[n]) >= judge.DISTINCT + judge.MARGIN
            )
            schemes.append(distinct(name, sets.BREWER, text, versions[most]))
        for name in sets.CRAMERI_CATEGORICAL:
            colors = self.table("SCM", name)
            count = 2
            while smallest_pair(colors[: count + 1]) >= judge.DISTINCT + judge.MARGIN:
                count += 1
            text = f"The first {count} of the original's {len(colors)}"
            schemes.append(distinct(name, sets.CRAMERI, text, colors[:count]))
        return schemes

    def graph(self):
        return [
            distinct(name, OWN_AUTHOR, text, spread(rgb(colors), normal, deficient, bounds))
            for name, colors, normal, deficient, bounds, text in own.GRAPH
        ]

    def range(self):
        schemes = [
            ramp(name, OWN_AUTHOR, text, rgb(colors)) for name, colors, text in own.SEQUENTIAL
        ]
        schemes += [
            ramp(name, OWN_AUTHOR, text, rgb(colors)) for name, colors, text in own.DIVERGING
        ]
        for kind, texts in (
            ("Sequential", sets.BREWER_SEQUENTIAL),
            ("Diverging", sets.BREWER_DIVERGING),
        ):
            for name, text in texts:
                schemes.append(self.best_of_brewer(kind, name, text))
        for family, name, author, text in sets.DIVERGING_TABLES:
            schemes.append(self.near(name, author, text, self.table(family, name), None))
        return schemes

    def best_of_brewer(self, kind, name, text):
        """The version of a set, by its number of colours, that tells most classes apart."""
        fits = judge.is_sequential if kind == "Sequential" else judge.is_diverging

        def rank(count):
            colors = self.brewer[kind][name][count]
            visible = judge.classes(colors, VISIONS[:1])
            safe = judge.classes(colors, VISIONS)
            return fits(colors, safe if safe >= LEAST_SAFE else visible), safe, visible, count

        versions = [n for n in self.brewer[kind][name] if n >= 5]
        # An odd number of colours has a middle.
        if kind == "Diverging":
            versions = [n for n in versions if n % 2]
        best = max(versions, key=rank)
        return ramp(name, sets.BREWER, f"{text}; the set of {best}", self.brewer[kind][name][best])

    def even(self):
        schemes = []
        for name, colors in own.THREE_COLORS + own.TWO_COLORS:
            words = "Three" if len(colors.split()) == 3 else "Two"
            schemes.append(ramp(name, OWN_AUTHOR, f"{words} colors", rgb(colors), SIMPLE_LEVEL))
        for name, text in sets.VIRIDIS_FAMILY:
            schemes.append(self.near(name, sets.VIRIDIS, text, self.viridis[name]))
        for family, name, author, text in sets.SEQUENTIAL_TABLES:
            schemes.append(self.near(name, author, text, self.table(family, name)))
        for family, name, author, text in sets.CYCLIC_TABLES:
            schemes.append(
                self.near(name, author, text, self.table(family, name), SMOOTH_LEVEL, "Cyclic")
            )
        return schemes

    def random(self):
        schemes = []
        for name, seed, box, level, safe, text in own.RANDOM:
            said = safety(safe, level).replace(f"up to {safe} classes", f"in its first {safe}")
            ramp = {"kind": "randomHsv" if box else "random", "seed": seed}
            if box:
                ramp["paramsChanged"] = True
                bounds = (bound for pair in box for bound in pair)
                ramp.update(zip(("minH", "maxH", "minS", "maxS", "minV", "maxV"), bounds))
            # Black stands for what --colors brings.
            ramp = with_colors(name, ramp, [[0, 0, 0]] * level)
            schemes.append(
                {
                    "name": name,
                    "author": OWN_AUTHOR,
                    "description": f"Qualitative, {level} classes, {said}. {text}.",
                    "ramp": ramp,
                }
            )
        return schemes

    def groups(self):
        return {
            "DEM": self.dem(),
            "Unique": self.unique(),
            "Range": self.range(),
            "Graph": self.graph(),
            "Even": self.even(),
            "Random": self.random(),
        }
