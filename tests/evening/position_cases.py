"""The user's position in a lobby: every way from one to the next, with what can be pressed there."""
import socket

from casebook import case
from evening import NO, OK, PATIENCE, YES, Failure, equal

# The room that the user is in or asks for, and whether the view takes input.
POSITIONS = {
    "Lobby": ("", True),
    "Naming": ("", False),
    "Creating": ("Base", False),
    "Entering": ("Arena", False),
    "AskingPassword": ("Arena", False),
    "Creator": ("Base", True),
    "Member": ("Arena", True),
    "Launching": ("Base", False),
    "Leaving": ("", False),
    "Destroying": ("", False),
}

# E enabled, D disabled, V visible, H hidden; a dash leaves the control alone, and what is not here all of them.
CONTROLS = ("Create", "Enter", "Leave", "Destroy", "Launch", "SendRoom", "RoomText", "Logoff")
BY_EVENT = {
    "form default":   ("E V", "D V", "D H", "D H", "D H", "D", "D", "E H"),
    "first room":     ("-", "E", "-", "-", "-", "-", "-", "-"),
    "Create":         ("D", "-", "-", "-", "-", "-", "-", "-"),
    "cancelled":      ("E", "-", "-", "-", "-", "-", "-", "-"),
    "5":              ("D", "D", "-", "E V", "E V", "E", "E", "D"),     # RoomCreated
    "17":             ("E", "-", "-", "-", "-", "-", "-", "-"),
    "Enter":          ("-", "D", "-", "-", "-", "-", "-", "-"),
    "7":              ("D", "D", "E V", "-", "-", "E", "E", "D"),       # RoomEntered
    "no password":    ("-", "E", "-", "-", "-", "-", "-", "-"),
    "18":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "19":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "43":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "Launch":         ("-", "-", "-", "-", "D", "-", "-", "-"),
    "12, creator":    ("-", "-", "-", "-", "E", "-", "-", "-"),         # back from the game
    "Leave":          ("-", "-", "D", "-", "-", "-", "-", "-"),
    "9":              ("E", "E", "D H", "D", "-", "D", "D", "E"),       # LeaveRoom
    "42":             ("E", "E", "D H", "D", "-", "D", "D", "E"),
    "Destroy, Yes":   ("-", "-", "-", "D H", "-", "-", "-", "-"),
    "10":             ("E", "E V", "D", "D H", "D H", "D", "D", "E"),   # DestroyRoom
}

UD = "ann;Go;10.0.0.5"
TO_ENTER = f"Ombrin:7:{UD};Arena;;N;:~"
WITH_PASSWORD = f"Ombrin:7:{UD};Arena;key;:~"


class PlayedServer:
    """Takes one client, on a free port of 127.0.0.1, and says and hears what its case wants."""

    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.host, self.port = self._listener.getsockname()
        self._connection = None
        self._arrived = b""

    def sends(self, text):
        self._connection.sendall(text.encode("cp1252"))

    def hears(self, wanted=None):
        """The next message of the client has to be this one, if one is wanted."""
        try:
            if self._connection is None:
                self._listener.settimeout(PATIENCE)
                self._connection, _ = self._listener.accept()
                self._connection.settimeout(PATIENCE)
            while b"~" not in self._arrived:
                data = self._connection.recv(65536)
                if not data:
                    raise Failure(f"the client hangs up instead of sending {wanted!r}")
                self._arrived += data
        except TimeoutError:
            raise Failure(f"the server waits in vain for {wanted!r}") from None
        message, _, self._arrived = self._arrived.partition(b"~")
        if wanted is not None:
            equal(message.decode("cp1252") + "~", wanted, "what the server hears")


class Walk:
    """One client, followed from position to position."""

    def __init__(self, evening):
        self.server = PlayedServer()
        self.ann = evening.client("ann", lobbies=("Go", "Chess"))
        self.ann.do("show")
        self.ann.log_on(self.server, password="pw")
        self.server.hears()
        self.server.sends("45:10.0.0.5;~22:Go,1;Chess,2;~")
        self.server.hears(f"Ombrin:2:{UD};;:~")
        self.server.sends("0:ann;1;bob;1;~")
        self.server.hears("Ombrin:19:ann:~")
        self.position = "Lobby"
        self.expected = {}
        self.follow("form default")
        self.server.sends("2:Arena;4;10.0.0.9;1;8;~")
        self.ann.until("the room", lambda: self.ann.rows("RoomList"))
        self.follow("first room")

    def follow(self, event):
        for control, change in zip(CONTROLS, BY_EVENT.get(event, "-" * len(CONTROLS))):
            enabled, visible = self.expected.get(control, (None, None))
            for mark in change:
                enabled = {"E": True, "D": False}.get(mark, enabled)
                visible = {"V": True, "H": False}.get(mark, visible)
            self.expected[control] = (enabled, visible)
            seen = self.ann.get(control)
            equal(seen["enabled"], enabled, f"{control} enabled")
            if visible is not None and control != "Logoff":     # which the logon shows, too
                equal(seen["visible"], visible, f"{control} visible")

    def goes(self, event, do, to, hears=None, box=None, form=None, press=OK):
        """One transition: what is done, what the server hears, what is read, where it leads."""
        before = self.position
        try:
            do()
            if box is not None:
                equal(self.ann.reads_box(press), box, "the box")
            if hears is not None:
                self.server.hears(hears)
            if form is not None:
                self.ann.sees_form(form)
            room, enabled = POSITIONS[to]
            self.ann.until(f"the position {to}", lambda: (
                self.ann.marks()["m_CurrentRoom"], self.ann.marks()["Enabled"]) == (room, enabled))
            equal(self.ann.top(), form, "the form on top")
            self.follow(event)
        except Failure as why:
            raise Failure(f"{before}, {event}: {why}") from None
        self.position = to

    # -- the ways that several roads share

    def creates(self):
        self.goes("Create", lambda: self.ann.press("Create"), "Naming", form="NewRoom")
        self.ann.type("NewRoom.NewRoomName", "Base")
        self.goes("confirmed", lambda: self.ann.press("NewRoom.OKButton"), "Creating",
                  hears=f"Ombrin:4:{UD};Base;2;0;;N;:~")

    def asks(self, how="button"):
        ways = {
            "button": lambda: self.ann.press("Enter"),
            "double click": self.double_click,
            "menu": lambda: (self.ann.do("rightclick", at="RoomList", row=0),
                             self.server.hears(f"Ombrin:11:{UD};Arena;:~"),
                             self.ann.do("choose", entry="EnterRoomMenu")),
        }
        self.goes("Enter", ways[how], "Entering", hears=TO_ENTER)

    def double_click(self):
        self.ann.do("dblclick", at="RoomList", row=0)
        self.server.hears(f"Ombrin:11:{UD};Arena;:~")       # its click is a preview

    def says(self, code, to, payload="", **seen):
        self.goes(code, lambda: self.server.sends(f"{code}:{payload}~"), to, **seen)

    def plays(self, to, room):
        """The game runs until the user resumes; then his lists are empty, and the server fills them."""
        def until_resumed():
            self.server.sends("12:10.0.0.9;~")
            self.ann.sees_form("PauseAV")
            self.ann.press("PauseAV.ResumeButton")
        self.goes(f"12, {to.lower()}", until_resumed, to, hears=f"Ombrin:14:{UD};{room};:~")
        self.server.sends("2:Arena;4;10.0.0.9;1;8;~")
        self.ann.until("the room", lambda: self.ann.rows("RoomList"))

    def gives(self, password):
        self.ann.type("RoomPassword.Password", password)
        self.goes("password", lambda: self.ann.press("RoomPassword.OKButton"), "Entering", hears=WITH_PASSWORD)


@case
def every_way_from_one_position_to_the_next_sets_what_can_be_pressed(evening):
    walk = Walk(evening)
    ann = walk.ann

    walk.goes("Create", lambda: ann.press("Create"), "Naming", form="NewRoom")
    walk.goes("cancelled", lambda: ann.press("NewRoom.CancelButton"), "Lobby")
    walk.creates()
    walk.says("17", "Lobby", box="Error: Room already exists.")
    walk.creates()
    walk.says("5", "Creator", "ann;10.0.0.5;N;")
    sure = "Are you sure you want to destroy this room?"
    walk.goes("Destroy, No", lambda: ann.press("Destroy"), "Creator", box=sure, press=NO)
    walk.goes("Launch", lambda: ann.press("Launch"), "Launching", hears=f"Ombrin:10:{UD};Base;:~")
    walk.plays("Creator", "Base")
    walk.goes("Destroy, Yes", lambda: ann.press("Destroy"), "Destroying", box=sure, press=YES,
              hears=f"Ombrin:9:{UD};Base;:~")
    walk.says("10", "Lobby")

    for how, code, text in (("button", "18", "Error: Room is not available."),
                            ("double click", "19", "Error: Room does not exist."),
                            ("menu", "43", "You are banned from this room.")):
        walk.asks(how)
        walk.says(code, "Lobby", box=text)
    walk.asks()
    walk.says("34", "AskingPassword", form="RoomPassword")
    walk.goes("no password", lambda: ann.press("RoomPassword.CancelButton"), "Lobby")

    def enters():
        walk.asks()
        walk.says("34", "AskingPassword", form="RoomPassword")
        walk.gives("key")
        walk.says("33", "AskingPassword", box="Error: Invalid password!", form="RoomPassword")
        walk.gives("key")
        walk.says("7", "Member", "bob;")

    enters()
    walk.plays("Member", "Arena")
    walk.goes("Leave", lambda: ann.press("Leave"), "Leaving", hears=f"Ombrin:8:{UD};Arena;:~")
    walk.says("9", "Lobby")
    enters()
    walk.says("42", "Lobby", box="You were rejected from the room.")
    enters()
    walk.says("10", "Lobby")
