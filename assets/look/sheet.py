#!/usr/bin/env python3
"""A contact sheet: sheet.py FOLDER LISTS PICTURE puts the pictures of a theme, as make.py left them in FOLDER, on the
theme's background, at their own size and at twice that; those of the lists on LISTS, the colour of the lists."""

import subprocess
import sys
from pathlib import Path

import make

WIDTH, COLUMN, ROW = 992, 102, 46


def placed(name, left, top, width, height, scale):
    picture = name if scale == 1 else f"{name}@2x"
    return f'<image href="{picture}.png" x="{left}" y="{top}" width="{width}" height="{height}"/>'


def sheet(lists, scale):
    parts = [placed("background", 0, 0, WIDTH, 754, scale), placed("logo", 20, 6, 176, 78, scale),
             placed("powered-by", 220, 10, 112, 60, scale), placed("brand", 350, 6, 135, 90, scale),
             placed("image1", 500, 20, 32, 32, scale)]
    for number, prefix in enumerate(make.WIDE):
        for row, state in enumerate(make.STATES):
            left, top = 20 + number % 8 * COLUMN, 115 + number // 8 * 152 + row * ROW
            parts.append(placed(f"button-{prefix}-{state}", left, top, 96, 43, scale))
    for row, state in enumerate(make.STATES):
        parts += [placed(f"button-{prefix}-{state}", 860 + 50 * column, 115 + 46 * row, 37, 25, scale)
                  for column, prefix in enumerate(make.SMALL)]
    parts.append(f'<rect x="20" y="440" width="320" height="30" fill="{lists}"/>')
    small = [name for name in make.DRAWINGS if name[-2:] in ("-1", "-2", "-3")]
    parts += [placed(name, 30 + 40 * number, 448, 14, 14, scale) for number, name in enumerate(small)]
    left = 20
    for size in make.ICON_SIZES:
        parts.append(f'<image href="icon-{size}.png" x="{left}" y="490" width="{size}" height="{size}"/>')
        left += size + 12
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH * scale}" height="{754 * scale}" '
            f'viewBox="0 0 {WIDTH} 754">{"".join(parts)}</svg>')


if len(sys.argv) != 4:
    sys.exit(__doc__)
folder, lists, picture = Path(sys.argv[1]), sys.argv[2], Path(sys.argv[3])
for scale, name in ((1, picture), (2, picture.with_stem(picture.stem + "@2x"))):
    source = folder / "sheet.svg" # beside the pictures, as no other files may be named in it
    source.write_text(sheet(lists, scale))
    subprocess.run(["rsvg-convert", "--output", name, source], check=True)
    source.unlink()
