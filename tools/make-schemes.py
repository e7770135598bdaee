#!/usr/bin/env python3
"""Writes the built-in schemes: vomap/schemes/<Group>.json, one file a group, and for the tests the
tables that published schemes were fitted to: tests/vomap/store/originals.json.

    tools/make-schemes.py [--palettable DIR] [--cpt DIR]   writes them
    tools/make-schemes.py --check        writes nothing; reports what would change
    tools/make-schemes.py --colours TEST completes Random.json by the colours that the library makes
    tools/make-schemes.py --table TEST   writes the table of docs/quality.md

TEST is the built program tst_builtInSchemes, which prints what the last two write. Needs numpy and
two sets of freely licensed palettes (Debian: python3-numpy, python3-palettable, gmt-common; see
NOTICE). What a description claims is computed here and again by that test.
"""

import argparse
import json
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent / "schemes"))

import numpy  # noqa: E402

import judge  # noqa: E402
import own  # noqa: E402
import sets  # noqa: E402
import sources as published  # noqa: E402
from colour import VISIONS, difference, lab, rgb, smallest_pair  # noqa: E402
from fit import fitted  # noqa: E402
from spread import spread  # noqa: E402

ROOT = Path(__file__).resolve().parent.parent
OWN_AUTHOR = "vtcontrolcolorscheme"
SMOOTH_LEVEL = 64  # a strip or a shaded map without visible bands, and still a list to edit
SIMPLE_LEVEL = 10
BEGIN = "<!-- built-in schemes: begin -->\n"
END = "<!-- built-in schemes: end -->"
LEAST_SAFE = 4  # classes; fewer are no reason to pick a scheme
PART_STEPS = 12  # of the sea and of the land


def hexes(colours):
    return ["#" + "".join(f"{int(part):02x}" for part in colour) for colour in colours]


def safety(safe, count):
    if safe < min(LEAST_SAFE, count):
        return "not colour-blind safe"
    return "colour-blind safe" if safe >= count else f"colour-blind safe up to {safe} classes"


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
        raise ValueError(f"{name} does not return to its first colour")
    again = " and the first one again" if closed else ""
    return {
        "name": name,
        "author": author,
        "description": f"{type_name}, 3 to {count} classes{again}, {safety(safe, count)}. {text}.",
        "kind": kind,
        "level": level,
        "sources": hexes(sources),
    }


def distinct(name, author, text, colours):
    """A qualitative scheme: an even ramp of as many classes as sources shows just these."""
    if smallest_pair(colours) < judge.DISTINCT + judge.MARGIN:
        raise ValueError(f"{name}: a pair of {smallest_pair(colours):.1f}")
    count = len(colours)
    safe = judge.apart_in_all(colours)
    said = safety(safe, count).replace(f"up to {safe} classes", f"in its first {safe}")
    return {
        "name": name,
        "author": author,
        "description": f"Qualitative, {count} classes, {said}. {text}.",
        "kind": "even",
        "level": count,
        "sources": hexes(colours),
    }


class Maker:
    def __init__(self, palettable, cpt):
        self.brewer = published.brewer(palettable)
        self.viridis = published.viridis_family(palettable)
        self.cpt_folder = cpt
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
        text = f"{text}; {len(sources)} colours, within {said:.1f} of the original"
        return ramp(name, author, text, sources, level, "predefined", type_name)

    def dem(self):
        schemes = []
        for name, colours, text in own.HEIGHTS:
            sources = rgb(colours)
            type_name = None if judge.is_sequential(sources, SMOOTH_LEVEL) else "Elevation tint"
            schemes.append(
                ramp(name, OWN_AUTHOR, text, sources, SMOOTH_LEVEL, "predefined", type_name)
            )
        for name, colours, text in own.SEA_AND_LAND:
            sources = rgb(colours)
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
            whole = f"{sea}, {land}; {PART_STEPS} colours of the original a part"
            schemes.append(
                ramp(name, author, whole, sources, len(sources), "predefined", "Two-part")
            )
            schemes.append(
                self.near(
                    f"{name}, sea", author, f"The part below the shore: {sea.lower()}", parts[0]
                )
            )
            schemes.append(
                self.near(f"{name}, land", author, f"The part above the shore: {land}", parts[1])
            )
        for name, colours, text in own.DEPTHS + own.RELIEF:
            schemes.append(ramp(name, OWN_AUTHOR, text, rgb(colours), SMOOTH_LEVEL, "predefined"))
        for name, colours, text in own.ASPECT:
            schemes.append(
                ramp(name, OWN_AUTHOR, text, rgb(colours), SMOOTH_LEVEL, "predefined", "Cyclic")
            )
        return schemes

    def unique(self):
        schemes = []
        for name, colours, normal, deficient, bounds, text in own.UNIQUE:
            schemes.append(
                distinct(name, OWN_AUTHOR, text, spread(rgb(colours), normal, deficient, bounds))
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
            colours = self.table("SCM", name)
            count = 2
            while smallest_pair(colours[: count + 1]) >= judge.DISTINCT + judge.MARGIN:
                count += 1
            text = f"The first {count} of the original's {len(colours)}"
            schemes.append(distinct(name, sets.CRAMERI, text, colours[:count]))
        return schemes

    def graph(self):
        return [
            distinct(name, OWN_AUTHOR, text, spread(rgb(colours), normal, deficient, bounds))
            for name, colours, normal, deficient, bounds, text in own.GRAPH
        ]

    def range(self):
        schemes = [
            ramp(name, OWN_AUTHOR, text, rgb(colours)) for name, colours, text in own.SEQUENTIAL
        ]
        schemes += [
            ramp(name, OWN_AUTHOR, text, rgb(colours)) for name, colours, text in own.DIVERGING
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
            colours = self.brewer[kind][name][count]
            visible = judge.classes(colours, VISIONS[:1])
            safe = judge.classes(colours, VISIONS)
            return fits(colours, safe if safe >= LEAST_SAFE else visible), safe, visible, count

        versions = [n for n in self.brewer[kind][name] if n >= 5]
        # An odd number of colours has a middle.
        if kind == "Diverging":
            versions = [n for n in versions if n % 2]
        best = max(versions, key=rank)
        return ramp(name, sets.BREWER, f"{text}; the set of {best}", self.brewer[kind][name][best])

    def even(self):
        schemes = []
        for name, colours in own.THREE_COLOURS + own.TWO_COLOURS:
            words = "Three" if len(colours.split()) == 3 else "Two"
            schemes.append(ramp(name, OWN_AUTHOR, f"{words} colours", rgb(colours), SIMPLE_LEVEL))
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
        path = ROOT / "vomap/schemes/Random.json"
        known = json.loads(path.read_text())["schemes"] if path.exists() else []
        schemes = []
        for name, seed, box, level, safe, text in own.RANDOM:
            said = safety(safe, level).replace(f"up to {safe} classes", f"in its first {safe}")
            scheme = {
                "name": name,
                "author": OWN_AUTHOR,
                "description": f"Qualitative, {level} classes, {said}. {text}.",
                "kind": "random-hsv" if box else "random",
                "level": level,
                "seed": seed,
            }
            if box:
                scheme.update(zip(("hue", "saturation", "value"), (list(pair) for pair in box)))
            # Colours come from the library itself, and stay while their parameters do.
            parameters = {key: value for key, value in scheme.items() if key != "description"}
            for other in known:
                if "colours" in other and parameters.items() <= other.items():
                    scheme["colours"] = other["colours"]
            schemes.append(scheme)
        return schemes


def text_of_group(name, schemes):
    """JSON to read: one line a field, the colours of a scheme in rows."""
    entries = []
    for scheme in schemes:
        fields = []
        for key, value in scheme.items():
            if key in ("sources", "colours"):
                rows = [value[i : i + 8] for i in range(0, len(value), 8)]
                body = ",\n        ".join(", ".join(json.dumps(v) for v in row) for row in rows)
                fields.append(
                    f'"{key}": [\n        {body}\n      ]'
                    if len(rows) > 1
                    else f'"{key}": [{body}]'
                )
            else:
                fields.append(f'"{key}": {json.dumps(value, ensure_ascii=False)}')
        entries.append("    {\n      " + ",\n      ".join(fields) + "\n    }")
    return (
        f'{{\n  "group": {json.dumps(name)},\n  "schemes": [\n' + ",\n".join(entries) + "\n  ]\n}\n"
    )


def text_of_originals(originals):
    entries = []
    for name, table in originals.items():
        words = table.split()
        rows = [" ".join(words[i : i + 13]) for i in range(0, len(words), 13)]
        entries.append(
            f"  {json.dumps(name)}: [\n" + ",\n".join(f'    "{row}"' for row in rows) + "\n  ]"
        )
    return "{\n" + ",\n".join(entries) + "\n}\n"


def write_table(program):
    """Replaces the rows between the markers of docs/quality.md by those that the test prints."""
    printed = subprocess.run(
        [program, "theDocumentsTableIsTheComputedOne"], capture_output=True, text=True
    )
    rows = [line for line in printed.stdout.splitlines() if line.startswith("| ")]
    path = ROOT / "docs/quality.md"
    before, rest = path.read_text().split(BEGIN)
    table, after = rest.split(END)
    head = [line for line in table.splitlines() if line.startswith("|")][:2]
    body = "\n".join(head + rows)
    path.write_text(f"{before}{BEGIN}\n{body}\n\n{END}{after}")
    print(len(rows), "rows")


def write_colours(program):
    """Completes the random schemes by the colours that the test prints for them."""
    path = ROOT / "vomap/schemes/Random.json"
    schemes = json.loads(path.read_text())["schemes"]
    printed = subprocess.run(
        [program, "storedColorsAreThoseOfTheirSeeds"], capture_output=True, text=True
    )
    rows = dict(line.split("|", 1) for line in printed.stdout.splitlines() if "|#" in line)
    for scheme in schemes:
        scheme["colours"] = rows[scheme["name"]].split("|")
    path.write_text(text_of_group("Random", schemes))
    print(len(schemes), "schemes")


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--palettable", type=Path, default=published.PALETTABLE)
    parser.add_argument("--cpt", type=Path, default=published.CPT)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--colours", metavar="PROGRAM")
    parser.add_argument("--table", metavar="PROGRAM")
    arguments = parser.parse_args()
    if arguments.colours:
        write_colours(arguments.colours)
        return 0
    if arguments.table:
        write_table(arguments.table)
        return 0

    maker = Maker(arguments.palettable, arguments.cpt)
    groups = {
        "DEM": maker.dem(),
        "Unique": maker.unique(),
        "Range": maker.range(),
        "Graph": maker.graph(),
        "Even": maker.even(),
        "Random": maker.random(),
    }
    files = {
        ROOT / "vomap/schemes" / f"{name}.json": text_of_group(name, schemes)
        for name, schemes in groups.items()
    }
    files[ROOT / "tests/vomap/store/originals.json"] = text_of_originals(maker.originals)
    stale = [path for path, text in files.items() if not path.exists() or path.read_text() != text]
    for path in stale:
        print(f"{'would change' if arguments.check else 'wrote'} {path.relative_to(ROOT)}")
        if not arguments.check:
            path.parent.mkdir(exist_ok=True)
            path.write_text(files[path])
    print(", ".join(f"{name} {len(schemes)}" for name, schemes in groups.items()))
    print(sum(len(schemes) for schemes in groups.values()), "schemes")
    return 1 if arguments.check and stale else 0


if __name__ == "__main__":
    sys.exit(main())
