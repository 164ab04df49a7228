"""skin_test.py SKIN CONSOLE [window]: the programs ombrin-skin, which may have a window, and ombrin-console, in a tree
and a home of their own."""

import configparser
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from struct import pack, unpack_from

SKIN, CONSOLE, *WINDOW = sys.argv[1:]


def picture(red, green, blue):
    """A pixel of it, as BMP."""
    return b"BM" + pack("<6I2H6I4B", 58, 0, 54, 40, 1, 1, 1, 24, 0, 4, 0, 0, 0, 0, blue, green, red, 0)


def skin(pictures="", desktop="", x=picture(0, 0, 255), **more):
    """Its files by name, each the content or what makes it at its place; names of pictures come without their end."""
    return {"skin.ini": f"[Skin]\n{pictures}\n[Desktop]\n{desktop}\n", "x.bmp": x,
            **{name + ".bmp": content for name, content in more.items()}}


PICTURE = picture(0, 0, 255)
BUTTON = skin("LeaveUp=x.bmp")
DUSK = skin(desktop="TextColor=88")
DAWN = skin("EnterUp=up.bmp\nCreateDown=up.bmp\nBackgroundImage=back.bmp\nLabelTextColor=255",
            "Scheme=light\nCaptions=0\nTextColor=77\n[About]\nName=Dawn \x1b[31m\nAuthor=Zoë",
            up=PICTURE, back=PICTURE, **{"up@2x": PICTURE})


def write(folder, files):
    folder.mkdir(parents=True)
    for name, content in files.items():
        if callable(content):
            content(folder / name)
        else:
            (folder / name).write_bytes(content if isinstance(content, bytes) else content.encode())


class Skin(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="ombrin-")
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        self.home, self.share = self.root / "home", self.root / "share/ombrin/skins"
        self.own, self.settings = self.home / "app/skins", self.home / "settings.ini"
        (self.root / "bin").mkdir()
        self.program = shutil.copy(SKIN, self.root / "bin")
        for name, files in (("dawn", DAWN), ("dusk", DUSK), ("button", BUTTON)):
            write(self.share / name, files)

    def run_skin(self, *words, status=0):
        ran = subprocess.run([self.program, *words, "--home", self.home], capture_output=True, text=True,
                             env={name: os.environ[name] for name in ("PATH", "TSAN_OPTIONS") if name in os.environ})
        self.assertEqual(ran.returncode, status, (words, ran.stdout, ran.stderr))
        return ran.stdout if status == 0 else ran.stderr

    def store(self, section):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.settings)
        return dict(parser[section]) if section in parser else {}

    def console(self, *commands):
        """What a client that is given these replies."""
        ran = subprocess.run([CONSOLE, "--home", self.home, "--virtual-time"], capture_output=True, text=True,
                             input="".join(json.dumps(command) + "\n" for command in commands), timeout=60)
        return [json.loads(line) for line in ran.stdout.splitlines()]

    def seen(self, *controls):
        """Of a client that starts now."""
        self.home.joinpath("windows/AVfLang.ini").write_text("[CurrentLanguage]\nLanguage=English\n")
        replies = self.console({"do": "show"}, *({"do": "get", "at": control} for control in controls), {"do": "quit"})
        return [line for line in replies if line.get("reply") == "get"]

    def test_a_client_shows_what_was_put_on_and_the_built_in_look_again(self):
        self.run_skin("use", "dawn")
        self.assertEqual({file.name for file in (self.own / "dawn").iterdir()},
                         {".copied", "back.bmp", "skin.ini", "up.bmp", "up@2x.bmp"})     # x.bmp is named by nothing
        place = str(self.own / "dawn/").replace("/skins/dawn", "\\skins\\dawn\\")
        enter, create, back, label, chat = self.seen("Enter", "Create", "OBSkin", "ChatFrame", "MainText")
        self.assertEqual(enter["pictures"], {"up": place + "up.bmp", "down": "built-in", "disabled": "built-in"})
        self.assertEqual((enter["flat"], create["pictures"]["down"]), (True, place + "up.bmp"))
        self.assertEqual((back["picture"], label["foreColour"], chat["foreColour"]), (place + "back.bmp", 255, 77))
        self.assertLessEqual({"Name": "dawn", "Scheme": "light", "Captions": "0"}.items(), self.store("Skins").items())
        self.assertRegex(self.run_skin("list"), r"(?m)^\* dawn +Dawn \?\[31m  Zoë  " + str(self.share / "dawn") + "$")

        self.run_skin("use", "button")  # keys that it lacks are gone with the skin that had them
        self.assertEqual(self.store("Skins").keys(), {"LeaveUp", "Name"})
        self.assertFalse((self.own / "dawn").exists())
        self.run_skin("remove")
        self.assertEqual(self.store("Skins"), {})
        self.assertEqual(self.seen("Leave")[0]["pictures"]["up"], "built-in")
        self.assertIn("No skin is in use", self.run_skin("remove"))

    def test_the_own_text_colour_comes_back_unless_it_was_changed(self):
        for step, colour in (("chooses", "5"), ("use dawn", "77"), ("use dawn", "77"), ("use dusk", "88"),
                             ("use button", "5"), ("use dusk", "88"), ("remove", "5"),
                             ("use dawn", "77"), ("chooses", "6"), ("use dusk", "88"), ("remove", "6"),
                             ("chooses", ""), ("use dawn", "77"), ("remove", "")):
            word, *what = step.split()
            if word == "chooses":
                self.console({"do": "setting", "section": "Settings", "key": "TextColor", "value": colour})
            else:
                self.run_skin(word, *what)
            self.assertEqual(self.store("Settings").get("TextColor", ""), colour, step)

    def test_a_skin_of_somebody_else_is_refused_with_its_fault(self):
        lots = "".join(f"Key{i}=../{i}\n" for i in range(200))
        for name, files, said in [
                ("slash", skin("EnterUp=../dawn/up.bmp"), "of EnterUp is no name of a picture beside it"),
                ("backslash", skin("EnterUp=..\\x.bmp"), "of EnterUp is no name of a picture beside it"),
                ("mark", skin("BackgroundImage=.copied"), "of BackgroundImage is no name"),
                ("steered", skin("EnterUp=a\x1b[2J.bmp"), 'the value "a?[2J.bmp" of EnterUp is no name'),
                ("missing", skin("EnterUp=y.bmp"), "missing/y.bmp is missing"),
                ("link", skin("EnterUp=x.bmp", **{"x@2x": lambda at: at.symlink_to("x.bmp")}), "x@2x.bmp is a link"),
                ("pipe", skin("EnterUp=y.bmp", y=os.mkfifo), "pipe/y.bmp is no plain file"),
                ("large", skin("EnterUp=x.bmp", x=PICTURE.ljust(16777217)), "large/x.bmp is larger than 16384 KiB"),
                ("text", skin("EnterUp=skin.ini"), "of EnterUp is no name"),
                ("noise", skin("EnterUp=x.bmp", x="MZ"), "noise/x.bmp is no picture"),
                ("huge", {"skin.ini": "x" * 65537}, "huge/skin.ini is larger than 64 KiB"),
                ("word", skin("LabelTextColor=red"), 'the value "red" of LabelTextColor is no colour'),
                ("white+1", skin("", "TextColor=16777216"), "of TextColor is no colour"),
                ("negative", skin("LabelTextColor=-1"), "of LabelTextColor is no colour"),
                ("grey", skin("", "Scheme=grey"), 'the value "grey" of Scheme is neither "dark" nor "light"'),
                ("maybe", skin("", "Captions=2"), 'of Captions is neither "0" nor "1"'),
                ("Ж", BUTTON, "the code page windows-1252 cannot hold the name Ж"),
                ("nowhere", None, "there is no skin of that name: nowhere"),
                ("../skins/dawn", None, "there is no skin of that name")]:
            with self.subTest(name):
                if files:
                    write(self.share / name, files)
                self.run_skin("use", "dawn")
                before = self.settings.read_text()
                complaint = self.run_skin("use", name, status=1)
                self.assertIn(said, complaint)
                self.assertEqual(complaint.count("\n"), 1)
                self.assertEqual(self.settings.read_text(), before)
                self.assertEqual({file.name for file in self.own.iterdir()} - {".lock"}, {"dawn"})
        self.assertRegex(self.run_skin("list"), r"(?m)^  grey .* cannot be used: .*Scheme is neither")
        write(self.share / "many", skin(lots + "LeaveUp=x.bmp"))
        self.run_skin("use", "many")

    def test_a_copy_follows_what_came_along_and_an_own_folder_is_nobody_elses(self):
        copied = self.own / "dawn/up.bmp"
        (self.own / ".dawn.new/left").mkdir(parents=True)   # by a copying that was killed
        self.run_skin("use", "dawn")
        self.assertFalse((self.own / ".dawn.new").exists())
        (self.share / "dawn/up.bmp").write_bytes(PICTURE + b"newer")
        self.run_skin("use", "dawn")
        self.assertEqual(copied.read_bytes(), PICTURE + b"newer")

        copied.write_bytes(PICTURE + b"mine")
        self.assertIn(str(self.own / "dawn"), self.run_skin("list"))
        for words in (["use", "dawn"], ["remove"]):
            self.run_skin(*words)
            self.assertEqual(copied.read_bytes(), PICTURE + b"mine")
        shutil.rmtree(self.own / "dawn")
        (self.own / "dawn").mkdir()
        self.assertIn("dawn is in the way: it is no skin", self.run_skin("use", "dawn", status=1))

    @unittest.skipUnless(WINDOW, "this build has no window")
    def test_a_preview_shows_the_skin_whole_or_says_why_not(self):
        write(self.share / "red", skin("BackgroundImage=x.bmp", x=picture(255, 0, 0)))
        write(self.share / "night", skin(desktop="TextColor=255"))      # differs from dusk in what is written alone
        write(self.share / "torn", {**BUTTON, "x.bmp": PICTURE[:40]})
        out = self.root / "seen.png"
        seen = []
        for name, scale in (("dawn", 1), ("dusk", 1), ("night", 1), ("red", 1), ("red", 2)):
            self.run_skin("preview", name, "--size", "600x400", "--scale", str(scale), "--out", str(out))
            seen.append(out.read_bytes())
            self.assertEqual(unpack_from(">II", seen[-1], 16), (600 * scale, 400 * scale))
        self.assertEqual(len(set(seen)), len(seen))
        out.unlink()
        self.assertIn("cannot be shown whole: x.bmp: Invalid picture",
                      self.run_skin("preview", "torn", "--out", str(out), status=1))
        self.assertFalse(out.exists())
        self.assertIn("there is no display", self.run_skin("preview", "red", status=1))
        self.assertFalse(self.own.exists())     # nothing of it is put on

    def test_wrong_use_ends_with_2(self):
        for words in ("use", "wear dawn", "list --out x", "preview dawn --size 9x9", "preview dawn --scale 0"):
            with self.subTest(words):
                self.run_skin(*words.split(), status=2)


unittest.main(argv=sys.argv[:1])
