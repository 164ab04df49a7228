#!/usr/bin/env python3
"""Makes the pictures of a theme, each at its own size and at twice that as NAME@2x.png. Icons and drawings have no
colours of their own: their classes get them from THEME/style.css."""

import argparse
import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

HERE = Path(__file__).resolve().parent
STATES = ("up", "down", "disabled")
WIDE = ("Enter", "Create", "PM", "Logoff", "Launch", "Destroy", "Configure", "Leave", "News", "Files", "Ladders",
        "Depot", "Players", "AddBuddy", "RemoveBuddy")
SMALL = ("SendLobby", "SendRoom")
DRAWINGS = ("background", "logo", "powered-by", "brand", "image1", "user-2", "user-3", "room-2", "room-3", "ping-1",
            "ping-2", "ping-3")
ICON_SIZES = (16, 32, 48, 64, 128, 256)

# Plates leave room around them, as buttons stand one below the other without a gap.
WIDE_PLATE = {"width": 96, "height": 43, "margin": 2, "radius": 5, "left": 7, "top": 12}
SMALL_PLATE = {"width": 37, "height": 25, "margin": 0, "radius": 4, "left": 10, "top": 3}


def inside(svg):
    return re.search(r"<svg[^>]*>(.*)</svg>", svg.read_text(), re.DOTALL).group(1).strip()


def button(plate, icon, state):
    width, height, margin = plate["width"], plate["height"], plate["margin"]
    sunk = 1 if state == "down" else 0
    place = f'width="{width - 1}" height="{height - 2 * margin - 2}" rx="{plate["radius"]}"'
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">
  <g class="{state}">
    <rect class="lip" x="0.5" y="{margin + 1.5}" {place}/>
    <rect class="plate" x="0.5" y="{margin + 0.5}" {place}/>
    <g transform="translate({plate["left"]} {plate["top"] + sunk})">
  {inside(HERE / "icons" / f"{icon}.svg")}
    </g>
  </g>
</svg>
"""


def buttons():
    for state in STATES:
        for prefix in WIDE:
            yield f"button-{prefix}-{state}", button(WIDE_PLATE, prefix, state)
        for prefix in SMALL:
            yield f"button-{prefix}-{state}", button(SMALL_PLATE, "Send", state)


def renderings(folder):
    """Each source with its rsvg-convert options and the picture that comes of it."""
    for source in [f"button-{prefix}-{state}" for prefix in WIDE + SMALL for state in STATES] + list(DRAWINGS):
        where = folder if source.startswith("button-") else HERE / "drawings"
        yield where / f"{source}.svg", [], f"{source}.png"
        yield where / f"{source}.svg", ["--zoom", "2"], f"{source}@2x.png"
    for size in ICON_SIZES:
        yield HERE / "drawings/icon.svg", ["--width", str(size), "--height", str(size)], f"icon-{size}.png"


def make(theme, out, rsvg_convert):
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as composed:
        for name, text in buttons():
            (Path(composed) / f"{name}.svg").write_text(text)

        def render(job):
            source, options, name = job
            subprocess.run([rsvg_convert, "--stylesheet", HERE / theme / "style.css", *options, "--output", out / name,
                            source], check=True)

        with ThreadPoolExecutor(os.cpu_count()) as workers:
            list(workers.map(render, renderings(Path(composed))))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("theme", nargs="?", choices=[style.parent.name for style in HERE.glob("*/style.css")])
    parser.add_argument("folder", nargs="?", type=Path, help="where its pictures are made")
    parser.add_argument("--rsvg-convert", default="rsvg-convert", help="the program that renders")
    parser.add_argument("--names", action="store_true", help="only say what is made, a file name a line")
    given = parser.parse_args()
    if given.names:
        print("\n".join(name for _, _, name in renderings(Path())))
    elif given.folder:
        make(given.theme, given.folder, given.rsvg_convert)
    else:
        parser.error("a theme and a folder are needed")


if __name__ == "__main__":
    main()
