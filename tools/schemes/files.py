"""The files of the built-in schemes: one scheme file each, and the list that embeds them."""

import json
import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDER = ROOT / "vomap/schemes"
LIST = FOLDER / "VTColorSchemes_builtIn.qrc"
GROUPS = ("DEM", "Unique", "Range", "Graph", "Even", "Random")


def path_of(group, name):
    return FOLDER / group / f"{name}.vcs"


def text_of_scheme(scheme):
    """As the library writes it: a member a line, a color a line."""

    def text_of(value, indent):
        if isinstance(value, dict):
            members = (
                f"{indent}  {json.dumps(key)}: {text_of(member, indent + '  ')}"
                for key, member in value.items()
            )
            return "{\n" + ",\n".join(members) + f"\n{indent}}}"
        if isinstance(value, list):
            colors = (f"{indent}  [{', '.join(map(str, color))}]" for color in value)
            return "[\n" + ",\n".join(colors) + f"\n{indent}]" if value else "[]"
        return json.dumps(value, ensure_ascii=False)

    head = {"format": "vtcontrolcolorscheme.scheme", "schema": 1}
    return text_of({**head, **scheme}, "") + "\n"


def with_colors(name, parameters, made):
    """The ramp of these parameters. The colors on disk stay while the parameters and their number
    do: they come from the library, whose rounding counts."""
    known = {}
    for path in FOLDER.glob(f"*/{name}.vcs"):
        known = json.loads(path.read_text(encoding="utf-8"))["ramp"]
    colors = known.pop("colors", [])
    kept = known == parameters and len(colors) == len(made)
    return {**parameters, "colors": colors if kept else made}


def listed():
    """{group: names} in the order of the list."""
    names = {group: [] for group in GROUPS}
    for group, name in re.findall(r">(\w+)/([^<]+)\.vcs</file>", LIST.read_text(encoding="utf-8")):
        names[group].append(name)
    return names


def in_order(first):
    """{group: names} of all files there are or will be: those of `first` in their order, then what
    is listed already, then what is not."""
    known = listed() if LIST.exists() else {group: [] for group in GROUPS}
    order = {}
    for group in GROUPS:
        found = sorted(path.stem for path in (FOLDER / group).glob("*.vcs"))
        candidates = first.get(group, []) + [name for name in known[group] if name in found] + found
        order[group] = list(dict.fromkeys(candidates))
    return order


def text_of_list(order):
    """The resource list. A file's alias is its place in the group."""
    lines = ["<!DOCTYPE RCC>", '<RCC version="1.0">']
    lines.append('    <qresource prefix="/vtcontrolcolorscheme/schemes">')
    for group, names in order.items():
        for place, name in enumerate(names):
            lines.append(f'        <file alias="{group}/{place}">{group}/{name}.vcs</file>')
    return "\n".join(lines + ["    </qresource>", "</RCC>", ""])
