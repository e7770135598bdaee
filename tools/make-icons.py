#!/usr/bin/env python3
"""Renders the icon family of colorscheme/resources from its SVG sources.

    tools/make-icons.py           writes icon/<Name>.png (24 px) and icon/<Name>@2x.png (48 px)
    tools/make-icons.py --check   writes nothing; reports every broken rule of the family and every
                                  picture that is not what its source renders to

Both need rsvg-convert (Debian: librsvg2-bin).
Exit codes: 0 well, 1 a source or a picture breaks a rule, 2 the renderer is missing or failed.
"""

import argparse
import re
import shutil
import struct
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
import zlib
from pathlib import Path

RESOURCES = Path(__file__).resolve().parent.parent / "colorscheme" / "resources"
SVG_DIR = RESOURCES / "svg"
PNG_DIR = RESOURCES / "icon"
QRC_FILE = RESOURCES / "VTControlColorScheme.qrc"

# Qt takes the "@2x" file by itself on a display with a device pixel ratio above 1.
SIZES = {"": 24, "@2x": 48}

# Lines keep 3:1 against #ffffff, #f0f0f0 and #2b2b2b alike; fills only ever stand inside a line.
LINES = {"#6f7f94", "#3b7fd6", "#2b9158", "#dc4f46", "#b0760f"}
FILLS = {"#f7f9fc", "#f6c453", "#5cba82", "#a9ccf5", "#8e68d8"}
MASKS = {"#ffffff", "#000000"}  # masks, and the white signs on badges
BACKGROUNDS = ("#ffffff", "#f0f0f0", "#2b2b2b")
LINE_CONTRAST = 3.0
LINE_WIDTH = "2"

# Releases of the renderer may round a soft rim differently; what was drawn anew differs by more.
RIM_TOLERANCE = 16  # of 255

PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"


def png_size(path):
    """(width, height) from the file's header, or None where it is no whole PNG."""
    data = path.read_bytes()
    if data[:8] != PNG_SIGNATURE or data[12:16] != b"IHDR" or b"IEND" not in data[-12:]:
        return None
    return struct.unpack(">II", data[16:24])


def unfiltered(lines, width):
    """The bytes of the pixels from the filtered lines of a PNG (chapter 9 of its specification)."""
    pixels = bytearray()
    above = bytes(width)
    for start in range(0, len(lines), width + 1):
        kind, line = lines[start], bytearray(lines[start + 1 : start + 1 + width])
        for i in range(width):
            left = line[i - 4] if i >= 4 else 0
            corner = above[i - 4] if i >= 4 else 0
            if kind == 1:
                guess = left
            elif kind == 2:
                guess = above[i]
            elif kind == 3:
                guess = (left + above[i]) // 2
            elif kind == 4:
                target = left + above[i] - corner
                guess = min((left, above[i], corner), key=lambda byte: abs(target - byte))
            else:
                guess = 0
            line[i] = (line[i] + guess) % 256
        pixels += line
        above = line
    return pixels


def shown_pixels(data):
    """What shows of each pixel: red, green and blue times alpha, and alpha; 0 to 255 each. None
    for anything but a PNG of eight bits a channel, with alpha and not interlaced."""
    if data[:8] != PNG_SIGNATURE or data[24:29] != b"\x08\x06\0\0\0":
        return None
    width = struct.unpack(">I", data[16:20])[0]
    stream = b""
    at = 8
    while at + 8 <= len(data):
        length, name = struct.unpack(">I4s", data[at : at + 8])
        if name == b"IDAT":
            stream += data[at + 8 : at + 8 + length]
        at += length + 12
    pixels = unfiltered(zlib.decompress(stream), width * 4)
    return [value * pixels[i | 3] / 255 if i % 4 < 3 else value for i, value in enumerate(pixels)]


def rendered(source, size):
    """The picture of a source, as the bytes of a PNG."""
    command = ["rsvg-convert", "--width", str(size), "--height", str(size), str(source)]
    return subprocess.run(command, check=True, capture_output=True).stdout


def picture_faults(picture, source, size):
    """What differs between a picture and what its source renders to."""
    if png_size(picture) != (size, size):
        return [f"{picture.name}: is {png_size(picture)}, not {size} x {size}"]
    try:
        kept, anew = shown_pixels(picture.read_bytes()), shown_pixels(rendered(source, size))
    except subprocess.CalledProcessError:
        return [f"{source.name}: cannot be rendered"]
    if kept is None or anew is None or len(kept) != len(anew):
        return [f"{picture.name}: cannot be compared with its source"]
    difference = max(abs(a - b) for a, b in zip(kept, anew))
    if difference > RIM_TOLERANCE:
        return [f"{picture.name}: differs from its source by {difference:.0f} of 255"]
    return []


def luminance(color):
    """Relative luminance of "#rrggbb" as WCAG 2.1 defines it."""
    total = 0.0
    for start, weight in ((1, 0.2126), (3, 0.7152), (5, 0.0722)):
        part = int(color[start : start + 2], 16) / 255
        linear = part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4
        total += weight * linear
    return total


def contrast(one, other):
    """Contrast ratio of two colours, 1 to 21, as WCAG 2.1 defines it."""
    dark, light = sorted((luminance(one), luminance(other)))
    return (light + 0.05) / (dark + 0.05)


def svg_faults(path):
    try:
        root = ElementTree.parse(path).getroot()
    except ElementTree.ParseError as error:
        return [f"{path.name}: not well-formed: {error}"]
    faults = []
    if root.get("viewBox") != "0 0 24 24":
        faults.append(f"{path.name}: viewBox is {root.get('viewBox')}, not 0 0 24 24")
    for element in root.iter():
        for key in ("fill", "stroke"):
            color = element.get(key)
            if color and color != "none" and color not in LINES | FILLS | MASKS:
                faults.append(f"{path.name}: {key} {color} is not in the palette")
        if element.get("stroke", "none") != "none" and element.get("stroke-width") != LINE_WIDTH:
            faults.append(f"{path.name}: a line is not {LINE_WIDTH} wide")
    return faults


def family_faults(sources):
    """Everything that is wrong with the sources, the pictures and the resource list."""
    faults = []
    for line in sorted(LINES):
        for background in BACKGROUNDS:
            if contrast(line, background) < LINE_CONTRAST:
                faults.append(f"line {line} is too faint on {background}")
    expected = {}
    for source in sources:
        faults += svg_faults(source)
        for suffix, size in SIZES.items():
            expected[f"{source.stem}{suffix}.png"] = (source, size)
    for name, (source, size) in expected.items():
        picture = PNG_DIR / name
        if not picture.is_file():
            faults.append(f"{name}: missing")
        else:
            faults += picture_faults(picture, source, size)
    present = {path.name for path in PNG_DIR.glob("*.png")}
    faults += [f"{name}: has no SVG source" for name in sorted(present - expected.keys())]
    if not QRC_FILE.is_file():
        return faults + [f"{QRC_FILE.name}: missing"]
    pattern = r'<file alias="([^"]+)">icon/\1</file>'
    embedded = set(re.findall(pattern, QRC_FILE.read_text(encoding="utf-8")))
    faults += [f"{QRC_FILE.name}: lacks {name}" for name in sorted(expected.keys() - embedded)]
    faults += [f"{QRC_FILE.name}: {name} has no SVG" for name in sorted(embedded - expected.keys())]
    return faults


def write_pictures(source):
    for suffix, size in SIZES.items():
        target = PNG_DIR / f"{source.stem}{suffix}.png"
        target.write_bytes(rendered(source, size))
        print(f"wrote {target.relative_to(RESOURCES)} ({size} x {size})")


def main():
    parser = argparse.ArgumentParser(description="Render or check the icons of the library.")
    parser.add_argument("--check", action="store_true", help="write nothing, only report faults")
    options = parser.parse_args()

    sources = sorted(SVG_DIR.glob("*.svg"))
    if not sources:
        print(f"make-icons: no SVG sources in {SVG_DIR}", file=sys.stderr)
        return 1
    if not shutil.which("rsvg-convert"):
        print("make-icons: rsvg-convert is missing; on Debian: apt-get install librsvg2-bin",
              file=sys.stderr)
        return 2
    try:
        if not options.check:
            PNG_DIR.mkdir(exist_ok=True)
            for source in sources:
                write_pictures(source)
        faults = family_faults(sources)
    except subprocess.CalledProcessError as error:
        print(f"make-icons: {error}", file=sys.stderr)
        return 2

    for fault in faults:
        print(f"make-icons: {fault}", file=sys.stderr)
    print(f"{len(sources)} icons, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
