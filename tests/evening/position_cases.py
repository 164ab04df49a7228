"""The user's position in a lobby: every way from one to the next, with what can be pressed there."""
from casebook import case
from evening import OK, Failure, equal
from played_server import PlayedServer

YES, NO = 6, 7

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

# E enabled, D disabled, V visible, H hidden; a dash leaves the control alone.
CONTROLS = ("Create", "Enter", "Leave", "Destroy", "Launch", "SendRoom", "RoomText", "Logoff")
BY_EVENT = {
    "form default":   ("E V", "D V", "D H", "D H", "D H", "D", "D", "E H"),
    "first room":     ("-", "E", "-", "-", "-", "-", "-", "-"),
    "Create":         ("D", "-", "-", "-", "-", "-", "-", "-"),
    "cancelled":      ("E", "-", "-", "-", "-", "-", "-", "-"),
    "confirmed":      ("-", "-", "-", "-", "-", "-", "-", "-"),
    "5":              ("D", "D", "-", "E V", "E V", "E", "E", "D"),     # RoomCreated
    "17":             ("E", "-", "-", "-", "-", "-", "-", "-"),
    "Enter":          ("-", "D", "-", "-", "-", "-", "-", "-"),
    "7":              ("D", "D", "E V", "-", "-", "E", "E", "D"),       # RoomEntered
    "34":             ("-", "-", "-", "-", "-", "-", "-", "-"),
    "33":             ("-", "-", "-", "-", "-", "-", "-", "-"),
    "password":       ("-", "-", "-", "-", "-", "-", "-", "-"),
    "no password":    ("-", "E", "-", "-", "-", "-", "-", "-"),
    "18":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "19":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "43":             ("-", "E", "-", "-", "-", "-", "-", "-"),
    "Launch":         ("-", "-", "-", "-", "D", "-", "-", "-"),
    "12, creator":    ("-", "-", "-", "-", "E", "-", "-", "-"),         # back from the game
    "12, member":     ("-", "-", "-", "-", "-", "-", "-", "-"),
    "Leave":          ("-", "-", "D", "-", "-", "-", "-", "-"),
    "9":              ("E", "E", "D H", "D", "-", "D", "D", "E"),       # LeaveRoom
    "42":             ("E", "E", "D H", "D", "-", "D", "D", "E"),
    "Destroy, No":    ("-", "-", "-", "-", "-", "-", "-", "-"),
    "Destroy, Yes":   ("-", "-", "-", "D H", "-", "-", "-", "-"),
    "10":             ("E", "E V", "D", "D H", "D H", "D", "D", "E"),   # DestroyRoom
}

UD = "ann;Go;10.0.0.5"
TO_ENTER = f"Ombrin:7:{UD};Arena;;N;:~"
WITH_PASSWORD = f"Ombrin:7:{UD};Arena;key;:~"


class Walk:
    """One client, followed from position to position."""

    def __init__(self, evening):
        self.server = PlayedServer()
        self.ann = evening.client("ann", lobbies=("Go", "Chess"))
        self.ann.do("show")
        self.ann.log_on(self.server, password="pw")
        self.server.hears_any()
        self.server.sends("45:10.0.0.5;~22:Go,1;Chess,2;~")
        self.server.hears(f"Ombrin:2:{UD};;:~")
        self.server.sends("0:ann;1;bob;1;~")
        self.server.hears("Ombrin:19:ann:~")
        self.position = "Lobby"
        self.seen = set()
        self.expected = {}
        self.follow("form default")
        # the logon hides nothing of the table, but for the button of a change of lobby, which the view shows
        self.check(self.expected)
        self.server.sends("2:Arena;4;10.0.0.9;1;8;~")
        self.ann.until("the room", lambda: self.ann.rows("RoomList"))
        self.follow("first room")
        self.check(self.expected)

    def follow(self, event):
        for control, change in zip(CONTROLS, BY_EVENT[event]):
            enabled, visible = self.expected.get(control, (None, None))
            for mark in change:
                enabled = {"E": True, "D": False}.get(mark, enabled)
                visible = {"V": True, "H": False}.get(mark, visible)
            self.expected[control] = (enabled, visible)

    def check(self, expected):
        for control, (enabled, visible) in expected.items():
            seen = self.ann.get(control)
            equal(seen["enabled"], enabled, f"{control} enabled")
            if visible is not None and control != "Logoff":
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
            self.follow(event)
            room, enabled = POSITIONS[to]
            self.ann.until(f"the position {to}", lambda: (
                self.ann.marks()["m_CurrentRoom"], self.ann.marks()["Enabled"]) == (room, enabled))
            equal(self.ann.top(), form, "the form on top")
            self.check(self.expected)
        except Failure as why:
            raise Failure(f"{before}, {event}: {why}") from None
        self.seen.add((before, event, to))
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


def the_whole_table():
    """Every transition."""
    rows = [("Lobby", "Create", "Naming"), ("Naming", "cancelled", "Lobby"), ("Naming", "confirmed", "Creating"),
            ("Creating", "5", "Creator"), ("Creating", "17", "Lobby"), ("Lobby", "Enter", "Entering"),
            ("Entering", "7", "Member"), ("Entering", "34", "AskingPassword"), ("Entering", "33", "AskingPassword"),
            ("AskingPassword", "password", "Entering"), ("AskingPassword", "no password", "Lobby"),
            ("Entering", "18", "Lobby"), ("Entering", "19", "Lobby"), ("Entering", "43", "Lobby"),
            ("Member", "Leave", "Leaving"), ("Leaving", "9", "Lobby"), ("Member", "42", "Lobby"),
            ("Creator", "Launch", "Launching"), ("Launching", "12, creator", "Creator"),
            ("Member", "12, member", "Member"), ("Creator", "Destroy, Yes", "Destroying"), ("Creator", "Destroy, No", "Creator"),
            ("Destroying", "10", "Lobby"), ("Member", "10", "Lobby")]
    return set(rows)


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

    equal(walk.seen, the_whole_table(), "the ways that were gone")
    walk.server.close()
