#!/usr/bin/env python3
"""The client's sounds: make.py --names says what is made, make.py FOLDER makes them there as 16 bit mono files."""

import math
import struct
import sys
import wave
from pathlib import Path

RATE = 44100 # samples a second
ATTACK, RELEASE = 0.012, 0.06 # seconds; shorter ones click
D5, E5, G5, A5, B5, D6, E6 = 587.33, 659.26, 783.99, 880.0, 987.77, 1174.66, 1318.51 # Hz

# Overtones of a struck wooden bar: multiple of the pitch, strength, decay in 1/s as a multiple of the note's.
BAR = ((1, 1.0, 1.0), (2, 0.22, 1.6), (3.9, 0.12, 3.0))

# Length in seconds, peak in dB below full scale, decay in 1/s, and notes as start in seconds and pitch. Whatever comes
# often is short and soft: a line of chat most of all.
SOUNDS = {
    "AVChat.wav": (0.15, -20, 26, ((0, A5),)),
    "EnterLobby.wav": (0.30, -14, 13, ((0, D5), (0.07, A5))),
    "EnterLobby2.wav": (0.30, -14, 13, ((0, A5), (0.07, D5))),
    "EnterRoom.wav": (0.42, -11, 10, ((0, G5), (0.09, D6))),
    "PMRecved.wav": (0.52, -9, 8, ((0, B5), (0.11, E6))),
    "BudNotif.wav": (0.60, -9, 8, ((0, G5), (0.09, B5), (0.18, D6))),
}


def swell(share):
    return 0.5 - 0.5 * math.cos(math.pi * min(max(share, 0), 1))


def note(time, pitch, decay):
    """A note that was struck so many seconds ago."""
    if time < 0:
        return 0
    return swell(time / ATTACK) * sum(strength * math.exp(-decay * faster * time) * math.sin(math.tau * pitch * times * time)
                                      for times, strength, faster in BAR)


def samples(length, peak, decay, notes):
    times = [number / RATE for number in range(round(length * RATE))]
    tones = [swell((length - time) / RELEASE) * sum(note(time - start, pitch, decay) for start, pitch in notes)
             for time in times]
    scale = 32767 * 10 ** (peak / 20) / max(map(abs, tones))
    return [round(scale * tone) for tone in tones]


def make(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, sound in SOUNDS.items():
        values = samples(*sound)
        with wave.open(str(folder / name), "wb") as out:
            out.setparams((1, 2, RATE, len(values), "NONE", ""))
            out.writeframes(struct.pack(f"<{len(values)}h", *values))


if __name__ == "__main__":
    if sys.argv[1:] == ["--names"]:
        print("\n".join(SOUNDS))
    elif len(sys.argv) == 2 and not sys.argv[1].startswith("-"):
        make(Path(sys.argv[1]))
    else:
        sys.exit(__doc__)
