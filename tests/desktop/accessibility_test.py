"""accessibility_test.py OMBRIN_EXE ARDVELLE_SERVER LANGUAGE_FILE: what a screen reader is told of the client's windows,
read from the accessibility bus as a screen reader reads it. Display, buses, server and client are the test's own.
Ends with 77 where something that it needs is not installed."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PATIENCE = 30  # seconds
SKIPPED = 77
PYTHON = "/usr/bin/python3"  # Debian's own, for which the bindings are installed
BINDINGS = "import gi; gi.require_version('Atspi', '2.0'); from gi.repository import Atspi"
OMBRIN_EXE, SERVER, LANGUAGE_FILE = sys.argv[1:4]


def missing():
    for program in ("Xvfb", "dbus-run-session", PYTHON):
        if not shutil.which(program):
            return program
    if not Path("/usr/share/dbus-1/services/org.a11y.Bus.service").exists():
        return "at-spi2-core"
    if subprocess.run([PYTHON, "-c", BINDINGS], stderr=subprocess.DEVNULL).returncode:
        return "python3-gi or gir1.2-atspi-2.0"
    return None


def run_inside():
    """Runs the test below on a display and a session bus of its own."""
    with tempfile.TemporaryDirectory(prefix="ombrin-") as scratch:
        ours, theirs = os.pipe()
        display = subprocess.Popen(["Xvfb", "-displayfd", str(theirs), "-screen", "0", "1280x1024x24", "-noreset"],
                                   pass_fds=[theirs], stderr=subprocess.DEVNULL)
        os.close(theirs)
        try:
            number = os.fdopen(ours).readline().strip()
            if not number:
                raise SystemExit("Xvfb does not start")
            os.mkdir(f"{scratch}/run", 0o700)
            environment = {**os.environ, "DISPLAY": f":{number}", "HOME": scratch, "XDG_RUNTIME_DIR": f"{scratch}/run",
                           "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "LC_ALL": "C.UTF-8",
                           "GSETTINGS_BACKEND": "memory"}
            for name in ("XAUTHORITY", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "AT_SPI_BUS_ADDRESS", "OMBRIN_HOME"):
                environment.pop(name, None)
            return subprocess.run(["dbus-run-session", "--", PYTHON, "-B", __file__, *sys.argv[1:4], "inside"],
                                  env=environment).returncode
        finally:
            display.terminate()
            display.wait()


def until(look, what):
    """What `look` returns as soon as it is something; a fault of the bus means that a window has just gone."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            if found := look():
                return found
        except GLib.Error:
            pass
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what()}")


def walk(node):
    yield node
    for i in range(node.get_child_count()):
        if child := node.get_child_at_index(i):
            yield from walk(child)


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def spoken(node):
    """The name of a choice is what is chosen; what it is for says its label."""
    if node.get_role() == Atspi.Role.COMBO_BOX:
        for relation in node.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
    return node.get_name()


class ScreenReader(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="ombrin-")
        self.addCleanup(scratch.cleanup)
        self.root = Path(scratch.name)
        windows = self.root / "home/windows"
        windows.mkdir(parents=True)
        chosen = b"[CurrentLanguage]\r\nLanguage=English"
        (windows / "AVfLang.ini").write_bytes(
            Path(LANGUAGE_FILE).read_bytes().replace(b"[CurrentLanguage]", chosen))
        self.port = self.start_server()
        client = self.start(OMBRIN_EXE, "--home", str(self.root / "home"))
        self.app = until(lambda: self.application(client.pid), lambda: "the client on the bus")

    def start(self, *words, **how):
        process = subprocess.Popen(words, **how)

        def stop():
            process.terminate()
            self.assertEqual(process.wait(PATIENCE), 0, words[0])
        self.addCleanup(stop)
        return process

    def start_server(self):
        server = self.start(SERVER, "--home", str(self.root / "server"), "--port", "0", "--open-accounts",
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(server.stdout.close)
        ready = server.stdout.readline()
        return re.search(r":(\d+)", ready)[1]

    @staticmethod
    def application(pid):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        applications = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        return next((app for app in applications if app and app.get_process_id() == pid), None)

    def nodes(self):
        self.app.clear_cache()
        return [node for node in walk(self.app) if showing(node)]

    def find(self, *wanted):
        """One for each role and name, as soon as all are shown together."""
        def look():
            shown = {(node.get_role_name(), spoken(node)): node for node in self.nodes()}
            return [shown[one] for one in wanted] if all(one in shown for one in wanted) else None
        return until(look, lambda: f"{wanted} among\n" + self.tree())

    def tree(self):
        return "\n".join(f'{node.get_role_name()} "{spoken(node)}"' for node in self.nodes())

    def press(self, name):
        self.assertTrue(self.find(("push button", name))[0].do_action(0), name)

    def type(self, role, name, text):
        self.assertTrue(self.find((role, name))[0].set_text_contents(text), name)

    def sees(self, expected):
        """Each of these is shown, enabled or not, and nothing that a person can use is without a name."""
        for node, (role, name, enabled) in zip(self.find(*(row[:2] for row in expected)), expected):
            states = node.get_state_set()
            for state in (Atspi.StateType.ENABLED, Atspi.StateType.SENSITIVE):
                self.assertEqual(states.contains(state), enabled, f"{role} {name}: {state.value_nick}")
        for node in self.nodes():
            if node.get_state_set().contains(Atspi.StateType.FOCUSABLE):
                self.assertNotEqual(spoken(node), "", f"a {node.get_role_name()} without a name in\n" + self.tree())
            self.assertNotIn("<", node.get_description() or "", node.get_name())

    def test_names_and_roles_of_what_is_shown(self):
        self.sees([("frame", "Ombrin", True),
                   ("label", "Logon Name:", True), ("text", "Logon Name:", True),
                   ("label", "Password:", True), ("password text", "Password:", True),
                   ("label", "Host Machine:", True), ("text", "Host Machine:", True),
                   ("label", "HTTP Port:", True), ("text", "HTTP Port:", True),
                   *(("push button", name, True) for name in ("Connect", "Create Account", "Close"))])

        self.type("text", "Logon Name:", "Ann")
        self.type("password text", "Password:", "secret")
        self.type("text", "Host Machine:", "127.0.0.1")
        self.type("text", "HTTP Port:", self.port)
        self.press("Connect")
        self.press("Select All")
        self.press("OK")
        self.sees([("list", "Lobbies", True), ("list", "Users of the lobby", True), ("list", "Rooms", True),
                   ("list", "Users of the room", True), ("table", "Buddies", True),
                   ("document frame", "Chat of the lobby", True), ("document frame", "Chat of the room", True),
                   ("text", "Line for the lobby", True), ("text", "Line for the room", False),
                   ("list item", "Ann", True),
                   *(("push button", name, True) for name in
                     ("Create", "Private Message", "Add Buddy", "Remove Buddy", "News", "Files", "Ladders", "Depot",
                      "Players", "Configure")),
                   ("push button", "Enter", False)])

        self.press("Create")
        self.sees([("dialog", "New Room", True), ("text", "Room Name :", True), ("combo box", "Max Users:", True),
                   ("check box", "Password:", True), ("push button", "OK", True), ("push button", "Cancel", True)])


if __name__ == "__main__":
    if lacks := missing():
        print(f"skipped: {lacks} is not installed")
        sys.exit(SKIPPED)
    if sys.argv[4:] != ["inside"]:
        sys.exit(run_inside())
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
    unittest.main(argv=sys.argv[:1])
