#!/usr/bin/env python3
"""Writes the built-in schemes: vomap/schemes/<Group>/<name>.vcs, the list that embeds them, and for
the tests the tables that published schemes were fitted to: tests/vomap/store/originals.json.

    tools/make-schemes.py [--palettable DIR] [--cpt DIR]   writes them; takes some minutes
    tools/make-schemes.py --check        writes nothing; reports what would change
    tools/make-schemes.py --list         writes the list alone, with files that are new in a folder
    tools/make-schemes.py --colors FILES gives the schemes the colours that the library makes
    tools/make-schemes.py --table TEST   writes the table of docs/schemes.md

FILES is the built program tst_builtInFiles and TEST is tst_builtInSchemes: they print what the last
two write. The first two need numpy and two sets of freely licensed palettes (Debian: python3-numpy, python3-palettable,
gmt-common; see NOTICE). What a description claims is computed here and again by that test.
"""

import argparse
import json
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent / "schemes"))

import files  # noqa: E402

BEGIN = "<!-- built-in schemes: begin -->\n"
END = "<!-- built-in schemes: end -->"


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
    """Replaces the rows between the markers of docs/schemes.md by those that the test prints."""
    printed = subprocess.run(
        [program, "theDocumentsTableIsTheComputedOne"], capture_output=True, text=True
    )
    rows = [line for line in printed.stdout.splitlines() if line.startswith("| ")]
    path = files.ROOT / "docs/schemes.md"
    before, rest = path.read_text().split(BEGIN)
    table, after = rest.split(END)
    head = [line for line in table.splitlines() if line.startswith("|")][:2]
    body = "\n".join(head + rows)
    path.write_text(f"{before}{BEGIN}\n{body}\n\n{END}{after}")
    print(len(rows), "rows")


def write_colors(program):
    """Gives all schemes the colours that the test prints for them."""
    printed = subprocess.run(
        [program, "storedColorsAreThoseOfTheirParameters"], capture_output=True, text=True
    )
    rows = dict(line.split("|", 1) for line in printed.stdout.splitlines() if "|#" in line)
    for group, names in files.listed().items():
        for name in names:
            path = files.path_of(group, name)
            text = path.read_text(encoding="utf-8")
            scheme = json.loads(text)
            del scheme["format"], scheme["schema"]
            scheme["ramp"]["colors"] = [
                [int(word[i : i + 2], 16) for i in (1, 3, 5)] for word in rows[name].split("|")
            ]
            if files.text_of_scheme(scheme) != text:
                print(f"wrote {path.relative_to(files.ROOT)}")
                path.write_text(files.text_of_scheme(scheme), encoding="utf-8")


def make(palettable, cpt, check):
    """Writes what is not as it should be, or only says so."""
    from maker import Maker  # here: the other commands do without numpy

    maker = Maker(palettable, cpt)
    groups = maker.groups()
    texts = {
        files.path_of(group, scheme["name"]): files.text_of_scheme(scheme)
        for group, schemes in groups.items()
        for scheme in schemes
    }
    names = {group: [scheme["name"] for scheme in groups[group]] for group in groups}
    texts[files.LIST] = files.text_of_list(files.in_order(names))
    texts[files.ROOT / "tests/vomap/store/originals.json"] = text_of_originals(maker.originals)
    stale = [
        path
        for path, text in texts.items()
        if not path.exists() or path.read_text(encoding="utf-8") != text
    ]
    for path in stale:
        print(f"{'would change' if check else 'wrote'} {path.relative_to(files.ROOT)}")
        if not check:
            path.parent.mkdir(exist_ok=True)
            path.write_text(texts[path], encoding="utf-8")
    print(", ".join(f"{name} {len(schemes)}" for name, schemes in groups.items()))
    print(sum(len(schemes) for schemes in groups.values()), "schemes")
    return 1 if check and stale else 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--palettable", type=Path)
    parser.add_argument("--cpt", type=Path)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--colors", metavar="PROGRAM")
    parser.add_argument("--table", metavar="PROGRAM")
    arguments = parser.parse_args()
    if arguments.list:
        files.LIST.write_text(files.text_of_list(files.in_order({})), encoding="utf-8")
        return 0
    if arguments.colors:
        write_colors(arguments.colors)
        return 0
    if arguments.table:
        write_table(arguments.table)
        return 0
    return make(arguments.palettable, arguments.cpt, arguments.check)


if __name__ == "__main__":
    sys.exit(main())
