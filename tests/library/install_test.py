"""install_test.py CMAKE BUILD COMPILER --flags=FLAGS [qt]: the library is installed into a scratch tree; its examples are built
from that tree alone and meet a real client on a real server."""
import contextlib
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

CMAKE, BUILD, COMPILER, FLAGS, *QT = sys.argv[1:]
FLAGS = FLAGS.removeprefix("--flags=")        # empty ones would be no argument at all
os.environ["QT_QPA_PLATFORM"] = "offscreen"
os.environ["OMBRIN_BIN"] = str(pathlib.Path(BUILD, "bin"))

# They look for the programs when they are imported.
from casebook import TWO_LOBBIES        # noqa: E402
from evening import PATIENCE, Evening, Program      # noqa: E402
from host_cases import ENTRY_HOST, ENTRY_PORT, may_listen_on_entry_port     # noqa: E402


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Said(Program):
    def __init__(self, *arguments):
        self.lines = queue.Queue()
        super().__init__(*arguments)

    def said(self, line):
        self.lines.put(line)


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="ombrin-install-")
        cls.prefix = pathlib.Path(cls.folder.name, "prefix")
        for component in ("library", "library-qt") if QT else ("library",):
            run(CMAKE, "--install", BUILD, "--component", component, "--prefix", cls.prefix)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def built(self, example):
        """The example's program, from the installed tree alone."""
        build = pathlib.Path(self.folder.name, example)
        run(CMAKE, "-S", ROOT / "examples" / example, "-B", build, f"-DCMAKE_PREFIX_PATH={self.prefix}",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DCMAKE_CXX_FLAGS={FLAGS}")
        run(CMAKE, "--build", build)
        return build / example

    @contextlib.contextmanager
    def evening(self):
        evening = Evening()
        try:
            yield evening
            evening.finish()
        except Exception:
            print(evening.report())
            raise
        finally:
            evening.close()

    def library(self):
        return next(self.prefix.glob("lib/**/libombrin.so.0"))

    def test_the_library_shows_what_its_headers_declare_and_nothing_else(self):
        names = {line.split(maxsplit=2)[2] for line in
                 run("nm", "--dynamic", "--defined-only", "--demangle", self.library()).splitlines()}
        foreign = {name for name in names
                   if not re.match(r"(Dll\w+@@)?OMBRIN_0$", name) and "ombrin::host::" not in name}
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
        with self.evening() as evening:
            server = evening.server({"lobbies": [{"name": "Chess"}]}, "--open-accounts", "--trust-embedded")
            bot = Said("bot", self.built("greeter"), evening.scratch / "bot", "Bot", "Chess", server.host, server.port)
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

    @unittest.skipUnless(QT, "the widget is not built")
    def test_the_embedded_page_leads_from_the_games_of_a_server_into_one_of_them(self):
        if not may_listen_on_entry_port():
            self.skipTest("no entry port")
        with self.evening() as evening:
            server = evening.server(TWO_LOBBIES, "--open-accounts", "--trust-embedded", "--listen", ENTRY_HOST,
                                    port=ENTRY_PORT)
            windows = evening.scratch / "page" / "windows"
            windows.mkdir(parents=True)
            (windows / "AVfLang.ini").write_text("[CurrentLanguage]\nLanguage=English\n")
            page = Said("page", self.built("embedded"), "--entry", ENTRY_HOST, "--host", server.host, "--port",
                        server.port, "--home", evening.scratch / "page", "--name", "Zoe", "--game", "Go")
            evening.programs.append(page)
            self.assertEqual(page.lines.get(timeout=PATIENCE), f"Zoe;Go;{server.host};{server.port}")
            ann = evening.client("Ann", lobbies=("Go",))
            ann.do("show")
            ann.log_on(server)
            ann.sees_users("Ann", "Zoe")
            page.dismissed = True
            page.process.terminate()
            ann.sees_users("Ann")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], warnings="ignore")
