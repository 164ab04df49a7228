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
import zlib
from pathlib import Path
from struct import pack, unpack_from


def pixel(*colour):
    """A picture of one of them."""
    def chunk(kind, body):
        return pack(">I", len(body)) + kind + body + pack(">I", zlib.crc32(kind + body))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", pack(">IIBBBBB", 1, 1, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(bytes([0, *colour]))) + chunk(b"IEND", b""))


SKIN, CONSOLE, *WINDOW = sys.argv[1:]
PICTURE = pixel(0, 0, 255)
DAWN = {"skin.ini": """[About]
Name=Dawn \x1b[31m
Author=Zoë
[Skin]
EnterUp=up.png
CreateDown=up.png
BackgroundImage=back.png
LabelTextColor=255
[Desktop]
Scheme=light
Captions=0
TextColor=77
""", "up.png": PICTURE, "up@2x.png": PICTURE, "back.png": PICTURE, "notes.txt": "named by nothing"}
BUTTON = {"skin.ini": "[Skin]\nLeaveUp=x.png\n", "x.png": PICTURE}


def ini(pictures="", desktop=""):
    return {"skin.ini": f"[Skin]\n{pictures}\n[Desktop]\n{desktop}\n", "x.png": PICTURE}


def write(folder, files):
    folder.mkdir(parents=True)
    for name, content in files.items():
        (folder / name).write_bytes(content if isinstance(content, bytes) else content.encode())


class Skin(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="ombrin-")
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        self.home, self.share = self.root / "home", self.root / "share/ombrin/skins"
        self.own = self.home / "app/skins"
        (self.root / "bin").mkdir()
        self.program = shutil.copy(SKIN, self.root / "bin")
        write(self.share / "dawn", DAWN)

    def run_skin(self, *words, status=0):
        ran = subprocess.run([self.program, *words, "--home", self.home], capture_output=True, text=True,
                             env={"PATH": os.environ["PATH"]})
        self.assertEqual(ran.returncode, status, (words, ran.stdout, ran.stderr))
        return ran.stdout if status == 0 else ran.stderr

    def store(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.home / "settings.ini")
        return {(section, key): value for section in parser.sections() for key, value in parser[section].items()}

    def set_text_colour(self, value):
        (self.home / "settings.ini").write_text(f"[Settings]\nTextColor={value}\n" if value else "[Settings]\n")

    def choose_text_colour(self, old, new):
        file = self.home / "settings.ini"
        settings = file.read_text()
        file.write_text(settings.replace(f"[Settings]\nTextColor={old}\n", f"[Settings]\nTextColor={new}\n"))
        self.assertNotEqual(file.read_text(), settings)

    def seen(self, *controls):
        """What a client that starts now shows."""
        self.home.joinpath("windows/AVfLang.ini").write_text("[CurrentLanguage]\nLanguage=English\n")
        commands = [{"do": "show"}, *({"do": "get", "at": control} for control in controls), {"do": "quit"}]
        ran = subprocess.run([CONSOLE, "--home", self.home, "--virtual-time"], capture_output=True, text=True,
                             input="".join(json.dumps(command) + "\n" for command in commands), timeout=60)
        lines = [json.loads(line) for line in ran.stdout.splitlines()]
        return [line for line in lines if line.get("reply") == "get"]

    def test_a_client_shows_what_was_put_on_and_the_built_in_look_again(self):
        self.run_skin("use", "dawn")
        self.assertEqual(sorted(file.name for file in (self.own / "dawn").iterdir()),
                         [".copied", "back.png", "skin.ini", "up.png", "up@2x.png"])
        place = str(self.own / "dawn/").replace("/skins/dawn", "\\skins\\dawn\\")
        enter, create, back, label, chat = self.seen("Enter", "Create", "OBSkin", "ChatFrame", "MainText")
        self.assertEqual(enter["pictures"], {"up": place + "up.png", "down": "built-in", "disabled": "built-in"})
        self.assertEqual((enter["flat"], create["pictures"]["down"]), (True, place + "up.png"))
        self.assertEqual((back["picture"], label["foreColour"], chat["foreColour"]), (place + "back.png", 255, 77))
        self.assertEqual({key: self.store()["Skins", key] for key in ("Name", "Scheme", "Captions")},
                         {"Name": "dawn", "Scheme": "light", "Captions": "0"})
        self.assertRegex(self.run_skin("list"), r"(?m)^\* dawn  Dawn \?\[31m  Zoë  " + str(self.share / "dawn") + "$")

        write(self.own / "button", BUTTON)
        self.run_skin("use", "button") # keys that it lacks are gone with the skin that had them
        self.assertEqual({key for section, key in self.store() if section == "Skins"}, {"LeaveUp", "Name"})
        self.assertFalse((self.own / "dawn").exists())
        self.run_skin("remove")
        self.assertEqual({key for section, key in self.store() if section == "Skins"}, set())
        self.assertTrue((self.own / "button/x.png").exists())
        self.assertEqual(self.seen("Leave")[0]["pictures"]["up"], "built-in")
        self.assertIn("No skin is in use", self.run_skin("remove"))

    def test_the_own_text_colour_comes_back_unless_it_was_changed(self):
        write(self.share / "dusk", {"skin.ini": "[Desktop]\nTextColor=88\n"})
        write(self.share / "button", BUTTON)
        for before, words, meanwhile, after in [
                ("5", ["use dawn", "remove"], None, "5"),
                (None, ["use dawn", "remove"], None, None),
                ("5", ["use dawn", "use dawn", "use dusk", "remove"], None, "5"),
                ("5", ["use dawn", "use button"], None, "5"),
                ("5", ["use dawn", "remove"], "6", "6"),
                ("5", ["use dawn", "use dusk", "remove"], "6", "6"),
                ("77", ["use dawn", "remove"], None, "77"),
        ]:
            with self.subTest(before=before, words=words, meanwhile=meanwhile):
                self.home.mkdir(exist_ok=True)
                self.set_text_colour(before)
                self.run_skin(*words[0].split())
                self.assertEqual(self.store()["Settings", "TextColor"], "77")
                if meanwhile:
                    self.choose_text_colour("77", meanwhile)
                for command in words[1:]:
                    self.run_skin(*command.split())
                self.assertEqual(self.store().get(("Settings", "TextColor")), after)

    def test_a_skin_of_somebody_else_is_refused_with_its_fault(self):
        lots = "".join(f"Key{i}=../{i}\n" for i in range(200))
        for name, files, said in [
                ("slash", ini("EnterUp=../dawn/up.png"), "of EnterUp is no name of a picture beside it"),
                ("backslash", ini("EnterUp=..\\x.png"), "of EnterUp is no name of a picture beside it"),
                ("absolute", ini("BackgroundImage=/etc/passwd"), "of BackgroundImage is no name"),
                ("dots", ini("EnterUp=.."), "of EnterUp is no name"),
                ("mark", ini("EnterUp=.copied"), "of EnterUp is no name"),
                ("steered", ini("EnterUp=a\x1b[2J.png"), 'the value "a?[2J.png" of EnterUp is no name'),
                ("missing", ini("EnterUp=y.png"), "missing/y.png is missing"),
                ("folder", ini("EnterUp=y.png"), "folder/y.png is no plain file"),
                ("link", ini("EnterUp=y.png"), "link/y.png is a link"),
                ("companion", ini("EnterUp=x.png"), "companion/x@2x.png is a link"),
                ("pipe", ini("EnterUp=y.png"), "pipe/y.png is no plain file"),
                ("large", ini("EnterUp=y.png"), "large/y.png is larger than 16384 KiB"),
                ("text", ini("EnterUp=skin.ini"), "of EnterUp is no name"),
                ("noise", {**ini("EnterUp=x.png"), "x.png": "MZ"}, "noise/x.png is no picture"),
                ("huge", {"skin.ini": "x" * 65537}, "huge/skin.ini is larger than 64 KiB"),
                ("word", ini("LabelTextColor=red"), 'the value "red" of LabelTextColor is no colour'),
                ("white+1", ini("", "TextColor=16777216"), "of TextColor is no colour"),
                ("negative", ini("LabelTextColor=-1"), "of LabelTextColor is no colour"),
                ("endless", ini("LabelTextColor=99999999999999999999"), "of LabelTextColor is no colour"),
                ("grey", ini("", "Scheme=grey"), 'the value "grey" of Scheme is neither "dark" nor "light"'),
                ("maybe", ini("", "Captions=2"), 'of Captions is neither "0" nor "1"'),
                ("Ж", BUTTON, "the code page windows-1252 cannot hold the name Ж"),
                ("nowhere", None, "there is no skin of that name: nowhere"),
                ("../skins/dawn", None, "there is no skin of that name"),
                ("many", {**BUTTON, "skin.ini": "[Skin]\n" + lots + "LeaveUp=x.png\n"}, None),
        ]:
            with self.subTest(name):
                if files:
                    write(self.share / name, files)
                special = {"folder": lambda file: file.mkdir(), "large": lambda file: os.truncate(file, 16777217),
                           "link": lambda file: file.symlink_to("x.png"), "pipe": os.mkfifo}
                if name == "large":
                    (self.share / "large/y.png").write_bytes(PICTURE)
                if name in special:
                    special[name](self.share / name / "y.png")
                if name == "companion":
                    (self.share / "companion/x@2x.png").symlink_to("x.png")
                self.run_skin("use", "dawn")
                before = self.store()
                if said is None:
                    self.run_skin("use", name)
                    continue
                complaint = self.run_skin("use", name, status=1)
                self.assertIn(said, complaint)
                self.assertEqual(complaint.count("\n"), 1)
                self.assertEqual(self.store(), before)
                self.assertEqual({file.name for file in self.own.iterdir()} - {".lock"}, {"dawn"})
        listed = self.run_skin("list")
        self.assertRegex(listed, r"(?m)^  grey .* cannot be used: .*Scheme is neither")
        self.assertRegex(listed, r"(?m)^\* many ")

    def test_a_copy_follows_what_came_along_and_an_own_folder_is_nobody_elses(self):
        (self.own / ".dawn.new/left").mkdir(parents=True) # by a copying that was killed
        self.run_skin("use", "dawn")
        self.assertFalse((self.own / ".dawn.new").exists())
        (self.share / "dawn/up.png").write_bytes(PICTURE + b"newer")
        self.run_skin("use", "dawn")
        self.assertEqual((self.own / "dawn/up.png").read_bytes(), PICTURE + b"newer")

        (self.own / "dawn/up.png").write_bytes(PICTURE + b"mine")
        self.assertIn(str(self.own / "dawn"), self.run_skin("list"))
        for words in (["use", "dawn"], ["remove"]):
            self.run_skin(*words)
            self.assertEqual((self.own / "dawn/up.png").read_bytes(), PICTURE + b"mine")

        shutil.rmtree(self.own / "dawn")
        (self.own / "dawn").mkdir()
        self.assertIn("dawn is in the way: it is no skin", self.run_skin("use", "dawn", status=1))

    @unittest.skipUnless(WINDOW, "this build has no window")
    def test_a_preview_shows_the_skin_whole_or_says_why_not(self):
        write(self.share / "red", {"skin.ini": "[Skin]\nBackgroundImage=x.png\n", "x.png": pixel(255, 0, 0)})
        write(self.share / "torn", {**BUTTON, "x.png": PICTURE[:40]})
        seen = {}
        for name, scale in (("dawn", 1), ("red", 1), ("red", 2)):
            file = self.root / f"{name}{scale}.png"
            self.run_skin("preview", name, "--size", "600x400", "--scale", str(scale), "--out", str(file))
            seen[name, scale] = file.read_bytes()
            self.assertEqual(unpack_from(">II", seen[name, scale], 16), (600 * scale, 400 * scale))
        self.assertNotEqual(seen["dawn", 1], seen["red", 1])
        self.assertIn("cannot be shown whole: x.png: Invalid picture",
                      self.run_skin("preview", "torn", "--out", str(self.root / "torn.png"), status=1))
        self.assertFalse((self.root / "torn.png").exists())
        self.assertIn("there is no display", self.run_skin("preview", "red", status=1))
        self.assertFalse((self.home / "app/skins").exists()) # nothing of it is put on

    def test_wrong_use_ends_with_2(self):
        for words in (["use"], ["wear", "dawn"], ["list", "--out", "x"], ["preview", "dawn", "--size", "9x9"],
                      ["preview", "dawn", "--scale", "0"]):
            with self.subTest(words):
                self.run_skin(*words, status=2)


unittest.main(argv=sys.argv[:1])
