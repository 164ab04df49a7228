"""sounds_test.py FOLDER: what a listener would object to in the sounds made there."""

import struct
import sys
import wave
from pathlib import Path

QUIET = 64      # of 32767: no click, where a sound begins or ends in it
EDGE = 44       # samples: a millisecond

complaints = []
for name in ("AVChat.wav", "BudNotif.wav", "EnterLobby.wav", "EnterLobby2.wav", "EnterRoom.wav", "PMRecved.wav"):
    with wave.open(str(Path(sys.argv[1]) / name)) as sound:
        form = sound.getparams()[:3]
        values = [abs(value) for value, in struct.iter_unpack("<h", sound.readframes(sound.getnframes()))]
    checks = {f"has the form {form}": form == (1, 2, 44100),
              f"lasts {len(values) / 44100:.2f} s": 0.15 <= len(values) / 44100 <= 0.6,
              f"has a peak of {max(values)}": 1000 <= max(values) <= 32767 / 2,     # heard, and at most -6 dB
              "begins with a click": max(values[:EDGE // 4]) <= QUIET,
              "ends with a click": max(values[-EDGE:]) <= QUIET}
    complaints += [f"{name} {text}" for text, good in checks.items() if not good]
sys.exit("\n".join(complaints) or None)
