"""Reads freely licensed palettes from Debian packages: python3-palettable and gmt-common."""

import ast
import json
import re
from pathlib import Path

import numpy

PALETTABLE = Path("/usr/lib/python3/dist-packages/palettable")
CPT = Path("/usr/share/gmt/cpt")


def brewer(folder=PALETTABLE):
    """{type: {name: {count: colours}}} of the ColorBrewer sets."""
    data = json.loads((folder / "colorbrewer/data/colorbrewer_all_schemes.json").read_text())
    return {
        kind: {
            name: {
                int(count): numpy.array(entry["Colors"], dtype=float)
                for count, entry in sets.items()
            }
            for name, sets in names.items()
        }
        for kind, names in data.items()
    }


def viridis_family(folder=PALETTABLE):
    """{name: 256 colours}"""
    text = (folder / "matplotlib/colormaps.py").read_text()
    return {
        name.lower(): numpy.array(ast.literal_eval(rows), dtype=float)
        for name, rows in re.findall(r"_(\w+)_DATA = (\[\[.*?\]\])", text, re.DOTALL)
    }


def cpt(family, name, folder=CPT):
    """The colours of a colour table file, one a slice; refuses a file that states no licence."""
    path = folder / family / f"{name}.cpt"
    lines = path.read_text().splitlines()
    if not any("License: MIT License" in line for line in lines if line.startswith("#")):
        raise ValueError(f"{path} states no licence")
    colors = []
    for line in lines:
        words = line.split()
        if line[:1] in "#" or words[0] in "BFN":
            continue
        found = [word for word in words if word.count("/") == 2]
        colors.append([int(part) for part in found[0].split("/")])
    # Between slices, the last one ends with a colour of its own.
    if len(found) == 2 and found[0] != found[1]:
        colors.append([int(part) for part in found[1].split("/")])
    return numpy.array(colors, dtype=float)
