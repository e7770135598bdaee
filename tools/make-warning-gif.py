#!/usr/bin/env python3
"""Draws colorscheme/resources/warning.gif, the 20 x 20 px sign beside a name field.

    tools/make-warning-gif.py           writes the animation
    tools/make-warning-gif.py --check   writes nothing; compares the file with what it would write

Python alone, integers only: the file is the same byte for byte on every machine.
Exit codes: 0 well, 1 the file is missing, differs or cannot be written.
"""

import argparse
import struct
import sys
from pathlib import Path

TARGET = Path(__file__).resolve().parent.parent / "colorscheme" / "resources" / "warning.gif"

# A GIF pixel is either there or not, so the slopes climb two rows a pixel: even steps need no
# soft rim, and the same outline shows on light and on dark.
#   .  nothing    o  outline    s  between outline and fill    f  fill    m  mark
PICTURE = """
....................
.........oo.........
.........oo.........
........osso........
........offo........
.......osffso.......
.......offffo.......
......osfmmfso......
......offmmffo......
.....osffmmffso.....
.....offfmmfffo.....
....osfffmmfffso....
....offffmmffffo....
...osffffmmffffso...
...offffffffffffo...
..osfffffmmfffffso..
..offffffmmffffffo..
.ooffffffffffffffoo.
.oooooooooooooooooo.
....................
"""

OUTLINE = (0xB0, 0x76, 0x0F)
MARK = (0x4A, 0x32, 0x00)
FILL_DIM = (0xF2, 0xAE, 0x2C)
FILL_BRIGHT = (0xFF, 0xE6, 0xA0)

# How far each frame's fill is from dim to bright, in sixteenths: slow at both ends, so that the
# sign breathes and does not blink.
BRIGHTNESS = (0, 1, 4, 8, 12, 15, 16, 15, 12, 8, 4, 1)
FRAME_TIME = 12  # hundredths of a second; the whole cycle takes 1.44 s

CODE_BITS = 5  # 32 colours in the table
TRANSPARENT = 0


def mix(dim, bright, sixteenths):
    return tuple((a * (16 - sixteenths) + b * sixteenths + 8) // 16 for a, b in zip(dim, bright))


def color_table():
    """The colours of all frames, and for each brightness its pair of indices (fill, between)."""
    table = [(0, 0, 0), OUTLINE, MARK]
    indices = {}
    for level in sorted(set(BRIGHTNESS)):
        fill = mix(FILL_DIM, FILL_BRIGHT, level)
        indices[level] = (len(table), len(table) + 1)
        table += [fill, mix(OUTLINE, fill, 8)]
    return table + [(0, 0, 0)] * (2**CODE_BITS - len(table)), indices


def packed(codes_and_widths):
    """The codes as a bit stream, least significant bit first."""
    stream = 0
    length = 0
    for code, width in codes_and_widths:
        stream |= code << length
        length += width
    return stream.to_bytes((length + 7) // 8, "little")


def lzw(pixels):
    """The pixels as a GIF image block: LZW as in appendix F of the GIF89a specification."""
    clear = 2**CODE_BITS
    end = clear + 1
    codes = {(value,): value for value in range(clear)}
    following = end + 1
    width = CODE_BITS + 1
    out = [(clear, width)]
    run = ()
    for pixel in pixels:
        if run + (pixel,) in codes:
            run += (pixel,)
            continue
        out.append((codes[run], width))
        codes[run + (pixel,)] = following
        # The decoder learns each entry one code later, hence the width grows past the power.
        if following == 2**width:
            width += 1
        following += 1
        run = (pixel,)
    out += [(codes[run], width), (end, width)]
    data = packed(out)
    blocks = [data[start : start + 255] for start in range(0, len(data), 255)]
    return bytes([CODE_BITS]) + b"".join(bytes([len(b)]) + b for b in blocks) + b"\0"


def animation():
    rows = PICTURE.split()
    width, height = len(rows[0]), len(rows)
    if (width, height) != (20, 20) or any(len(row) != width for row in rows):
        raise ValueError("the picture is not 20 x 20")
    table, indices = color_table()

    data = b"GIF89a" + struct.pack("<HHBBB", width, height, 0xF0 | (CODE_BITS - 1), 0, 0)
    data += b"".join(bytes(color) for color in table)
    data += b"\x21\xff\x0bNETSCAPE2.0\x03\x01" + struct.pack("<HB", 0, 0)  # loops for ever
    for level in BRIGHTNESS:
        fill, between = indices[level]
        index = {".": TRANSPARENT, "o": 1, "m": 2, "f": fill, "s": between}
        # Frames share one outline, so each simply covers the one before it.
        data += b"\x21\xf9\x04" + struct.pack("<BHBB", 0x05, FRAME_TIME, TRANSPARENT, 0)
        data += b"\x2c" + struct.pack("<HHHHB", 0, 0, width, height, 0)
        data += lzw([index[letter] for row in rows for letter in row])
    return data + b"\x3b"


def main():
    parser = argparse.ArgumentParser(description="Draw or check the warning animation.")
    parser.add_argument("--check", action="store_true", help="write nothing, only compare")
    options = parser.parse_args()
    data = animation()
    try:
        if not options.check:
            TARGET.write_bytes(data)
            print(f"wrote {TARGET.name} (20 x 20, {len(BRIGHTNESS)} frames, {len(data)} bytes)")
        elif TARGET.read_bytes() != data:
            print(f"make-warning-gif: {TARGET.name} differs from its picture", file=sys.stderr)
            return 1
        else:
            print(f"{TARGET.name} is as drawn")
    except OSError as error:
        print(f"make-warning-gif: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
