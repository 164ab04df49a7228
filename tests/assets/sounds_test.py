"""sounds_test.py FOLDER: what a listener would object to in the sounds made there."""

import struct
import sys
import wave
from pathlib import Path

QUIET = 64 # of 32767: no click, where a sound begins or ends in it


def faults(file):
    with wave.open(str(file)) as sound:
        if (sound.getnchannels(), sound.getsampwidth(), sound.getframerate()) != (1, 2, 44100):
            return ["is not 16 bit mono at 44.1 kHz"]
        count = sound.getnframes()
        values = [abs(value) for value, in struct.iter_unpack("<h", sound.readframes(count))]
    edge = 44 # a millisecond
    checks = {
        f"lasts {count / 44100:.2f} s": 0.15 <= count / 44100 <= 0.6,
        f"has a peak of {max(values)}": 1000 <= max(values) <= 32767 / 2, # heard, and at most -6 dB
        "begins with a click": max(values[:edge // 4]) <= QUIET,
        "ends with a click": max(values[-edge:]) <= QUIET,
    }
    return [text for text, good in checks.items() if not good]


found = {file.name: faults(file) for file in Path(sys.argv[1]).glob("*.wav")}
missing = {"AVChat.wav", "BudNotif.wav", "EnterLobby.wav", "EnterRoom.wav", "PMRecved.wav"} - found.keys()
complaints = [f"{name} {text}" for name, texts in found.items() for text in texts]
complaints += [f"{name} is missing" for name in missing]
sys.exit("\n".join(complaints) or None)
