"""What a container of the controls sees: the entry control, and the members that it can call."""
import os
import socket

from casebook import TWO_LOBBIES, case
from evening import Refused, equal

# An address of this run's own, so that nothing else answers on the fixed port.
ENTRY_HOST = f"127.80.{os.getpid() // 250 % 250}.{os.getpid() % 250 + 1}"
ENTRY_PORT = 80


def may_listen_on_entry_port():
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind((ENTRY_HOST, ENTRY_PORT))
        except OSError as why:
            print(f"skipped: the entry control's port cannot be had here: {why.strerror}", flush=True)
            return False
    return True


def refused(client, member, *args, on=None):
    try:
        client.do("call", member=member, args=list(args), **({"on": on} if on else {}))
    except Refused as why:
        return str(why).rsplit(": ", 1)[1]
    return None


def called(client, member, *args, on=None):
    return client.do("call", member=member, args=list(args), **({"on": on} if on else {})).get("value")


@case
def the_entry_control_lists_the_games_of_a_server(evening):
    if not may_listen_on_entry_port():
        return
    evening.server(TWO_LOBBIES, "--listen", ENTRY_HOST, port=ENTRY_PORT)
    page = evening.client("Page", "--wire", language=None)
    page.do("show", control="MainLobby", ipAddress=ENTRY_HOST)
    page.until("the games", lambda: len(page.rows("MainLobby.GameList")) == 2)
    page.until("the end", lambda: page.happened("closed", socket="Winsock"))
    equal(page.rows("MainLobby.GameList"), ["Chess", "Go"], "the games")
    equal(page.get("MainLobby.GameList")["rows"][0]["selected"], True, "the first row")
    equal(page.get("MainLobby.Label1")["caption"], "Games", "the label")
    equal(page.marks()["m_GameLobby"], "", "the choice before a click")
    page.do("select", at="MainLobby.GameList", row=1)
    equal(page.marks()["m_GameLobby"], "GameListBox=Go", "the choice")
    equal(called(page, "m_GameLobby"), "GameListBox=Go", "the choice, as a container reads it")
    equal([event["data"] for event in page.happened("sent")], ["Ombrin:0:"], "what it sent")


@case
def a_container_calls_the_members_of_the_entry_control(evening):
    page = evening.client("Page", language=None)
    page.do("show", control="MainLobby")
    for member, value in (("BackColor", 7), ("ForeColor", -1), ("Enabled", True), ("Font", "Sans"), ("BackStyle", 1),
                          ("BorderStyle", 1), ("BytesReceived", 9), ("m_GameLobby", "x")):
        called(page, member, value)
        equal(called(page, member), value, member)
    for member, args in (("Refresh", []), ("Connect", []), ("Connect", ["host", 80]), ("SendData", ["x"])):
        equal(called(page, member, *args), None, member)
    equal(refused(page, "IPAddress"), "no such member", "the address")
    equal(refused(page, "CloseSocket"), "no such member", "a member of the other control")
    equal(refused(page, "SendData"), "these are not its arguments", "no argument")
    try:
        page.do("show")
    except Refused:
        return
    raise AssertionError("a second control is shown")


@case
def a_container_calls_the_members_of_the_main_control(evening):
    ann = evening.client("Ann")
    providers = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay8\\Applications\\{A}"
    ann.do("registry", key=providers, name="ApplicationName", value="Ants")
    ann.do("show", userData="ann;Chess;127.0.0.1;1")
    for member, value in (("Test", "t"), ("UserName", "bob"), ("ConfiguredGame", "Go"), ("DPGameList", "a;"),
                          ("m_DPGameList", "b;"), ("BackColor", 7), ("Font", "Sans"), ("Enabled", True)):
        called(ann, member, value)
        equal(called(ann, member), value, member)
    for member, name in (("objDX", "DirectX7"), ("objDP4", "DirectPlay4"), ("objDPLobby", "DirectPlayLobby3"),
                         ("objDPEnumServProv", "DirectPlayEnumConnections"),
                         ("objDPEnumLocApps", "DirectPlayEnumLocalApps"),
                         ("objDPLobbyConnection", "DirectPlayLobbyConnection"),
                         ("objDPSessionData", "DirectPlaySessionData")):
        equal(called(ann, member), name, member)
    equal(called(ann, "SetAXParams", "cid"), "", "SetAXParams")
    equal(called(ann, "UserName"), "cid", "the name that it has set")
    equal((called(ann, "Refresh"), called(ann, "Buddies_Click")), (None, None), "members that do nothing")
    equal(ann.do("call", member="SendData", args=["x"]).get("value"), None, "SendData waits in its box")
    ann.reads_box()
    equal(called(ann, "dx8", on="clsDirectPlay"), None, "an object before it is made")
    called(ann, "GetDirectPlay8Games", on="clsDirectPlay")
    equal(called(ann, "dx8", on="clsDirectPlay"), "DirectX8", "the object")
    equal(called(ann, "DP8LobbyClient", on="clsDirectPlay"), "DirectPlay8LobbyClient", "its client")


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
    equal(ann.do("registry", key=key, name="other")["value"], None, "what it wrote")
    equal(refused(ann, "QueryValueEx", key, "other"), "Invalid procedure call or argument", "a missing value")
    equal(refused(ann, "SetValueEx", key, "v", 4, "x"), "Type mismatch", "a number that is none")
    equal(refused(ann, "SetValueEx", key, "v", 4294967300, 1), "these are not its arguments", "a type out of range")
