"""What whoever starts the programs sees, and a container of the controls: the entry control, and the members."""
import os
import socket
import subprocess

from casebook import TWO_LOBBIES, case
from evening import PATIENCE, PROGRAMS, Refused, equal

# An address of this run's own, so that nothing else answers on the fixed port.
ENTRY_HOST = f"127.80.{os.getpid() // 250 % 250}.{os.getpid() % 250 + 1}"
ENTRY_PORT = 80
WRONG_ARGUMENTS = "these are not its arguments"


def may_listen_on_entry_port():
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind((ENTRY_HOST, ENTRY_PORT))
        except OSError as why:
            print(f"skipped: the entry control's port cannot be had here: {why.strerror}", flush=True)
            return False
    return True


def called(client, member, *args, **on):
    return client.do("call", member=member, args=list(args), **on).get("value")


def refused(client, *call):
    try:
        return f"not, but {called(client, *call)}"
    except Refused as why:
        return str(why).rsplit(": ", 1)[1]


@case
def the_entry_control_lists_the_games_of_a_server(evening):
    if not may_listen_on_entry_port():
        return
    evening.server(TWO_LOBBIES, "--listen", ENTRY_HOST, port=ENTRY_PORT)
    page = evening.client("Page", "--wire", language=None)
    page.do("show", control="MainLobby", ipAddress=ENTRY_HOST)
    page.until("the end", lambda: page.happened("closed", socket="Winsock"))
    equal(page.rows("MainLobby.GameList"), ["Chess", "Go"], "the games")
    equal(page.get("MainLobby.GameList")["rows"][0]["selected"], True, "the first row")
    equal(called(page, "m_GameLobby"), "", "the choice before a click")
    page.do("select", at="MainLobby.GameList", row=1)
    equal(called(page, "m_GameLobby"), "GameListBox=Go", "the choice, as a container reads it")
    equal([event["data"] for event in page.happened("sent")], ["Ombrin:0:"], "what it sent")


@case
def a_container_calls_the_members_of_either_control(evening):
    page = evening.client("Page", language=None)
    page.do("show", control="MainLobby")
    for member, args in (("Refresh", []), ("Connect", []), ("Connect", ["host", 80]), ("SendData", ["x"])):
        equal(called(page, member, *args), None, member)
    for member, why in (("IPAddress", "no such member"), ("CloseSocket", "no such member"),
                        ("SendData", WRONG_ARGUMENTS)):
        equal(refused(page, member), why, f"the refusal of {member}")
    ann = evening.client("Ann")
    ann.do("show", userData="ann;Chess;127.0.0.1;1")
    written = (("BackColor", 7), ("Font", "Sans"), ("Enabled", True))
    for client, members in ((page, (*written, ("BackStyle", 1), ("BytesReceived", 9), ("m_GameLobby", "x"))),
                            (ann, (*written, ("Test", "t"), ("UserName", "bob"), ("ConfiguredGame", "Go"),
                                   ("DPGameList", "a;"), ("m_DPGameList", "b;")))):
        for member, value in members:
            called(client, member, value)
            equal(called(client, member), value, member)
    equal((called(ann, "objDX"), called(ann, "objDPLobby")), ("DirectX7", "DirectPlayLobby3"), "the objects")
    equal((called(ann, "SetAXParams", "cid"), called(ann, "UserName")), ("", "cid"), "the name that is set")
    equal(called(ann, "SendData", "x"), None, "SendData waits in its box")
    ann.reads_box()
    directplay = {"on": "clsDirectPlay"}
    equal(called(ann, "dx8", **directplay), None, "an object before it is made")
    called(ann, "GetDirectPlay8Games", **directplay)
    equal(called(ann, "dx8", **directplay), "DirectX8", "the object")


@case
def a_container_reads_and_writes_the_registry_by_the_main_control(evening):
    ann = evening.client("Ann")
    ann.do("show", userData="ann;Chess;127.0.0.1;1")
    key = "HKEY_CURRENT_USER\\Software\\Maker"
    for kind, given, held in ((1, "text", "text"), (1, 12, "12"), (4, 12, 12), (4, " 12 ", 12)):
        equal(called(ann, "SetValueEx", key, "v", kind, given), 0, "the result of writing")
        reply = ann.do("call", member="QueryValueEx", args=[key, "v", ""])
        equal((reply["value"], reply["vValue"]), (0, held), f"{given!r} as type {kind}")
    equal(called(ann, "SetValueEx", key, "other", 3, "x"), 0, "a type that writes nothing")
    for call, why in ((("QueryValueEx", key, "other"), "Invalid procedure call or argument"),
                      (("SetValueEx", key, "v", 4, "x"), "Type mismatch"),
                      (("SetValueEx", key, "v", 4294967300, 1), WRONG_ARGUMENTS)):
        equal(refused(ann, *call), why, f"the refusal of {call}")


@case
def options_are_answered_without_a_display_and_a_home_is_its_users_alone(evening):
    bare = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}

    def run(program, *words):
        return subprocess.run([PROGRAMS / program, *words], env=bare, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=PATIENCE, check=False)
    shipped = [name for name in ("OmbrinExe", "ombrin-skin", "ombrin-console", "OBPatch", "ardvelle-server")
               if (PROGRAMS / name).exists()]
    for name in shipped:
        for option, status in (("--help", 0), ("--version", 0), ("--nonsense", 2)):
            ran = run(name, option)
            equal((ran.returncode, ran.stdout == "", ran.stderr == ""), (status, status != 0, status == 0),
                  f"{name} {option}: its status, and the silence of its two outputs")
    if "OmbrinExe" in shipped:
        ran = run("OmbrinExe", "--home", evening.scratch / "window")
        equal((ran.returncode, "no window can be opened" in ran.stderr), (1, True), f"no display, after {ran.stderr}")
    home = evening.scratch / "new" / "home"
    equal(run("ombrin-console", "--home", f"{home}/").returncode, 0, "the exit status at the end of the input")
    equal(home.stat().st_mode & 0o777, 0o700, "who may look into a home")
