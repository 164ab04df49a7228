"""install_test.py CMAKE BUILD COMPILER FLAGS: the library is installed into a scratch tree, its example is built from
that tree alone and greets a real client on a real server."""
import os
import pathlib
import queue
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests" / "evening"))

CMAKE, BUILD, COMPILER, FLAGS = sys.argv[1:]
os.environ["OMBRIN_BIN"] = str(pathlib.Path(BUILD, "bin"))

from evening import PATIENCE, Evening, Program      # noqa: E402, as it looks for the programs when it is imported


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Bot(Program):
    def __init__(self, program, *arguments):
        self.lines = queue.Queue()
        super().__init__("bot", program, *arguments)

    def said(self, line):
        self.lines.put(line)


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="ombrin-install-")
        cls.prefix = pathlib.Path(cls.folder.name, "prefix")
        run(CMAKE, "--install", BUILD, "--component", "library", "--prefix", cls.prefix)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def library(self):
        return next(self.prefix.glob("lib/**/libombrin.so.0"))

    def test_the_library_shows_what_its_headers_declare_and_nothing_else(self):
        names = {line.split(maxsplit=2)[2] for line in
                 run("nm", "--dynamic", "--defined-only", "--demangle", self.library()).splitlines()}
        foreign = {name for name in names if not re.match(r"(Dll\w+@@)?OMBRIN_0$", name) and "ombrin::host::" not in name}
        self.assertEqual(foreign, set())
        self.assertEqual({name.split("@")[0] for name in names if name.startswith("Dll")},
                         {"DllRegisterServer", "DllUnregisterServer", "DllGetClassObject", "DllCanUnloadNow"})
        inside = {name for name in names if re.search(r"::Parts|::Reader|Factory::|Held\(", name)}
        self.assertEqual(inside, set())

    def test_its_headers_name_no_file_of_the_inside_and_no_toolkit(self):
        headers = sorted(self.prefix.glob("include/ombrin/*.h"))
        self.assertIn("game_lobby.h", [header.name for header in headers])
        for header in headers:
            included = re.findall(r"#include [<\"]([^>\"]+)", header.read_text())
            self.assertEqual([name for name in included if "." in name and not name.startswith("ombrin/")], [], header)

    def test_the_greeter_greets_whoever_enters_its_lobby(self):
        build = pathlib.Path(self.folder.name, "greeter")
        run(CMAKE, "-S", ROOT / "examples" / "greeter", "-B", build, f"-DCMAKE_PREFIX_PATH={self.prefix}",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DCMAKE_CXX_FLAGS={FLAGS}")
        run(CMAKE, "--build", build)
        evening = Evening()
        try:
            server = evening.server({"lobbies": [{"name": "Chess"}]}, "--open-accounts", "--trust-embedded")
            bot = Bot(build / "greeter", evening.scratch / "bot", "Bot", "Chess", server.host, server.port)
            evening.programs.append(bot)
            self.assertEqual(bot.lines.get(timeout=PATIENCE), "Bot is in Chess")
            ann = evening.client("Ann", lobbies=("Chess",))
            ann.do("show")
            ann.log_on(server)
            ann.sees_users("Ann", "Bot")
            ann.sees_line("Bot", "Welcome, Ann!")
            bot.dismissed = True
            bot.process.terminate()
            self.assertEqual(bot.process.wait(PATIENCE), 0, bot.notes)
            ann.sees_users("Ann")
            evening.finish()
        except Exception:
            print(evening.report())
            raise
        finally:
            evening.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], warnings="ignore")
