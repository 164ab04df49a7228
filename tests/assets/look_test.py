"""look_test.py SHARE: can captions be read on every button, does each state look its own way, is the skin whole?"""

import configparser
import struct
import sys
import zlib
from pathlib import Path

CAPTION = [(x, y) for x in range(28, 92) for y in range(9, 34)]     # where a host writes it on a button of 96 by 43
TEXTS = {"look": ("e6edf3", "8496a8"), "skins/light": ("17324d", "5d7186")}     # enabled and disabled


def pixels(file):
    """The rows of a picture of 8 bit RGBA, as (red, green, blue, alpha)."""
    data, at, packed = file.read_bytes(), 33, b""
    width, height, *form = struct.unpack_from(">IIBBBBB", data, 16)
    assert form == [8, 6, 0, 0, 0], f"{file} is not 8 bit RGBA"
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        packed += data[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += length + 12
    raw, stride, above, rows = zlib.decompress(packed), width * 4 + 1, bytearray(width * 4), []
    for start in range(0, height * stride, stride):
        row, filtering = bytearray(raw[start + 1:start + stride]), raw[start]
        for x, up in enumerate(above):
            left, corner = (row[x - 4], above[x - 4]) if x >= 4 else (0, 0)
            nearest = min((left, up, corner), key=lambda value: abs(left + up - corner - value))
            row[x] = (row[x] + (0, left, up, (left + up) // 2, nearest)[filtering]) % 256
        above = row
        rows.append([tuple(row[x:x + 4]) for x in range(0, len(row), 4)])
    return rows


def luminance(colour):
    linear = [part / 3294.6 if part <= 10 else ((part / 255 + 0.055) / 1.055) ** 2.4 for part in colour[:3]]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    low, high = sorted((luminance(one), luminance(other)))
    return (high + 0.05) / (low + 0.05)


def faults(folder, texts):
    looks = {}
    for file in set(folder.glob("button-*.png")) - set(folder.glob("*@2x.png")):
        _, prefix, state = file.stem.split("-")
        rows = pixels(file)
        looks.setdefault(prefix, set()).add(str(rows))
        width, height = (37, 25) if prefix.startswith("Send") else (96, 43)
        double = struct.unpack_from(">II", file.with_stem(file.stem + "@2x").read_bytes(), 16)
        if (len(rows[0]), len(rows), *double) != (width, height, 2 * width, 2 * height):
            yield f"{file}: {len(rows[0])} by {len(rows)}, and {double} at twice the size"
            continue
        text, least = (texts[1], 3) if state == "disabled" else (texts[0], 4.5)
        behind = {rows[y][x] for x, y in CAPTION} if not prefix.startswith("Send") else set()
        worst = min((contrast(bytes.fromhex(text), colour) * (colour[3] == 255) for colour in behind), default=least)
        if worst < least:
            yield f"{file}: a caption has a contrast of {worst:.2f}"
    if [len(states) for states in looks.values()] != [3] * 17:
        yield f"{folder}: not 17 buttons with three looks each: " + str({one: len(looks[one]) for one in looks})


share = Path(sys.argv[1])
complaints = [text for folder, texts in TEXTS.items() for text in faults(share / folder, texts)]
skin = configparser.ConfigParser()
skin.read(share / "skins/light/skin.ini")
missing = [name for key, name in skin["Skin"].items()
           if key != "labeltextcolor" and not (share / "skins/light" / name).is_file()]
if missing or len(skin["Skin"]) != 53:
    complaints.append(f"the light skin has {len(skin['Skin'])} of 53 keys, and these pictures are missing: {missing}")
sys.exit("\n".join(complaints) or None)
