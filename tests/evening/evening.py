"""Real clients and the real server, for whole-system runs: each of them a process, all places in one scratch folder.

Nothing here sleeps for a fixed time: who wants to see something lets the client go on until it is there, and gives up
with a sentence that says what was missed.
"""
import json
import os
import pathlib
import queue
import re
import shutil
import signal
import subprocess
import tempfile
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PROGRAMS = pathlib.Path(os.environ.get("OMBRIN_BIN") or ROOT / "build" / "release" / "bin")
LANGUAGE_FILE = ROOT / "assets" / "language" / "AVfLang.ini"

PATIENCE = 20           # seconds for anything that has to come; a sanitizer makes all of it slower
SILENCE = 150           # milliseconds without an arrival that count as "nothing more comes"
NOTES_SHOWN = 60        # the last lines of each process's log that a failure prints

LOOKING = {"settle", "get", "fields", "forms"}     # commands that change nothing

OK, YES, NO = 1, 6, 7   # buttons of a message box
CHAT, ROOM_CHAT, PRIVATE_CHAT = "msflxMainChatLines", "msflexRoomLines", "PMDialog.msflxPMLines"


class Failure(Exception):
    """Something did not come out as it should; the text says what."""


class Refused(Failure):
    """The client did not take a command: a person could not have given that input either."""


def equal(seen, wanted, what):
    if seen != wanted:
        raise Failure(f"{what}: {seen!r} instead of {wanted!r}")


def until(what, condition, between=lambda: time.sleep(0.005)):
    """What the condition answers, as soon as it is something."""
    end = time.monotonic() + PATIENCE
    while not (seen := condition()):
        if time.monotonic() > end:
            raise Failure(f"waited {PATIENCE} s in vain for {what}")
        between()
    return seen


class Program:
    """A child process that logs to standard error; `notes` keeps what it and we said, for a failure's report."""

    def __init__(self, name, program, *options, under=()):
        self.name = name
        self.notes = []
        self.dismissed = False      # we have asked it to end, or ended it
        command = [*under, str(PROGRAMS / program), *map(str, options)]
        try:
            self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                            stderr=subprocess.PIPE)
        except OSError as why:
            raise Failure(f"{command[0]} cannot be started: {why.strerror}") from None
        self._readers = [self._reader(self.process.stdout, self.said), self._reader(self.process.stderr, self.logged)]

    def _reader(self, stream, handler):
        def read():
            for line in stream:
                handler(line.decode("utf-8", "backslashreplace").rstrip("\r\n"))
            handler(None)
        thread = threading.Thread(target=read, daemon=True)
        thread.start()
        return thread

    def note(self, text):
        self.notes.append(text)

    def said(self, line):
        """A line on standard output, None at its end."""

    def logged(self, line):
        if line is not None:
            self.note("log  " + line)

    def errors(self):
        """Lines of standard error: of a client, which has nothing to say there, or a sanitizer's."""
        return [note for note in self.notes if note.startswith("log  ")]

    def ended(self):
        """The exit status, waited for; a process that does not end is a failure."""
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure(f"{self.name} does not end") from None
        for reader in self._readers:
            reader.join(PATIENCE)
        return status

    def kill(self):
        self.dismissed = True
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


class Server(Program):
    """`ardvelle-server` on a free port of 127.0.0.1."""

    LISTENING = re.compile(r"listening on ([^ ]+):(\d+), files on [^ ]+:\d+")

    def __init__(self, home, config=None, options=(), port=0):
        home.mkdir(parents=True, exist_ok=True)
        if config is not None:
            file = home / "evening.json"
            file.write_text(json.dumps(config))
            options = ["--config", file, *options]
        self._lines = queue.Queue()
        super().__init__("server", "ardvelle-server", "--port", port, "--home", home, *options)
        try:
            self.host, self.port = self._address()
        except Failure:
            self.kill()
            raise

    def said(self, line):
        self._lines.put(line)
        if line is not None:
            self.note("said " + line)

    def _address(self):
        try:
            line = self._lines.get(timeout=PATIENCE)
        except queue.Empty:
            line = None
        match = self.LISTENING.fullmatch(line or "")
        if not match:
            raise Failure(f"the server says {line!r} instead of where it listens: " + " / ".join(self.notes[-3:]))
        return match[1], int(match[2])

    def quit(self):
        self.dismissed = True
        self.process.send_signal(signal.SIGTERM)
        return self.ended()


class Client(Program):
    """A person at a client: what he does in a sentence each, and what he has on the screen. The program is
    `ombrin-console`, spoken to in lines of JSON: one reply a command, events in between."""

    def __init__(self, name, home, options=(), under=()):
        windows = home / "windows"
        windows.mkdir(parents=True, exist_ok=True)
        if not (windows / LANGUAGE_FILE.name).exists():     # as an installer does
            shutil.copy(LANGUAGE_FILE, windows)
        self.home = home
        self.events = []
        self._replies = queue.Queue()
        self._looks = {}            # the last reply to each command that only looks
        time_options = [] if "--wait-scale" in options else ["--virtual-time"]      # waits take time only in real time
        super().__init__(name, "ombrin-console", "--home", home, *time_options, *options, under=under)

    def said(self, line):
        if line is None:
            self._replies.put(None)
            return
        try:
            message = json.loads(line)
        except ValueError:
            message = {"reply": None, "ok": False, "error": f"no JSON: {line}"}
        if "event" in message:
            self.note("     " + line)
            self.events.append(message)
        else:
            self._replies.put(message)

    def do(self, what, **fields):
        """Gives one command and answers its reply."""
        line = json.dumps({"do": what, **fields}, ensure_ascii=False)
        if what not in LOOKING:
            self.note("  -> " + line)
        try:
            self.process.stdin.write(line.encode() + b"\n")
            self.process.stdin.flush()
            reply = self._replies.get(timeout=PATIENCE)
        except OSError:
            reply = None
        except queue.Empty:
            raise Failure(f"{self.name}'s client does not answer {line}") from None
        if reply is None:
            raise Failure(f"{self.name}'s client has ended with {self.ended()} at {line}")
        self._note_reply(what, line, reply)
        if reply.get("ok") is not True:
            raise Refused(f"{self.name}'s client refuses {line}: {reply.get('error')}")
        return reply

    def _note_reply(self, what, line, reply):
        """What is looked at again and again is noted when it has changed."""
        if what in LOOKING:
            if what == "settle" or self._looks.get(line) == reply:
                return
            self._looks[line] = reply
        self.note(f"  <- {json.dumps(reply, ensure_ascii=False)}" + (f"   to {line}" if what in LOOKING else ""))

    def get(self, at):
        return self.do("get", at=at)

    def until(self, what, condition):
        """Lets the client go on until the condition holds; answers what it answered."""
        return until(f"{self.name} to see {what}", condition, lambda: self.do("settle", ms=10))

    def settle(self):
        """Lets the client go on until nothing more comes."""
        self.do("settle", ms=SILENCE)

    def happened(self, kind, **fields):
        """The events of a kind so far, those with the given fields."""
        return [event for event in list(self.events)
                if event["event"] == kind and all(event.get(key) == value for key, value in fields.items())]

    def quit(self):
        self.dismissed = True
        self.do("quit")
        return self.ended()

    # -- the screen

    def marks(self):
        reply = self.do("fields")
        return reply.get("fields", reply)

    def forms(self):
        return self.do("forms")["forms"]

    def top(self):
        return (self.forms() or [None])[-1]

    def rows(self, at):
        """The texts of a list."""
        return [row["text"] for row in self.get(at)["rows"]]

    def row_of(self, at, start):
        """The number of the row whose text is the given one, or that and a count behind it."""
        rows = self.rows(at)
        for number, text in enumerate(rows):
            if text == start or text.startswith((start + " : ", start + " (")):
                return number
        raise Failure(f"{self.name}'s {at} has no row {start!r}: {rows}")

    def users(self):
        return sorted(self.rows("UserList"))

    def lobbies(self):
        return self.rows("lbLobbies")

    def lines(self, at=CHAT):
        """The lines of a chat as (sender, text)."""
        return [tuple(row) for row in self.get(at)["rows"][1:] if any(row)]

    def room_users(self):
        return sorted(self.rows("RoomUserList"))

    def buddies(self):
        """Where each buddy is, by name."""
        return {row["text"]: row["sub"][0] for row in self.get("BuddyLV")["rows"]}

    def status_of(self, user):
        """The picture of a user: 1 in the lobby, 2 in a room, 3 in a game."""
        return next(row["image"] for row in self.get("UserList")["rows"] if row["text"] == user)

    # -- waiting for something to be seen

    def sees_form(self, form):
        self.until(f"the form {form} on top", lambda: self.top() == form)

    def sees_lobby(self, lobby):
        self.until(f"the lobby {lobby}", lambda: (
            self.marks()["Enabled"] and not self.forms() and self.marks()["m_CurrentLobby"] == lobby))

    def sees_users(self, *names):
        self.until(f"the users {', '.join(names)} in the lobby", lambda: self.users() == sorted(names))

    def sees_lobbies(self, *rows):
        self.until(f"the lobbies {', '.join(rows)}", lambda: self.lobbies() == list(rows))

    def sees_line(self, sender, text, at=CHAT):
        self.until(f"the line {text!r} of {sender} in {at}", lambda: (sender, text) in self.lines(at))

    def sees_rooms(self, *rows):
        self.until(f"the rooms {', '.join(rows) or 'none'}", lambda: self.rows("RoomList") == list(rows))

    def sees_in_room(self, *names, room=None):
        """These users in the room that he is in, or that he looks at."""
        self.until(f"the users {', '.join(names)} of a room", lambda: self.room_users() == sorted(names) and (
            room is None or self.marks()["m_CurrentRoom"] == room))

    def sees_no_room(self):
        self.until("the lobby without a room", lambda: (
            not self.marks()["m_CurrentRoom"] and self.marks()["Enabled"] and not self.forms()))

    def sees_buddies(self, **places):
        self.until(f"the buddies {places}", lambda: self.buddies() == places)

    def reads_box(self, press=OK):
        """The text of the message box that comes; presses one of its buttons."""
        self.sees_form("MessageBox")
        text = self.happened("show", form="MessageBox")[-1]["text"]
        self.do("answer", button=press)
        return text

    # -- what a person does

    def type(self, at, text):
        self.do("type", at=at, text=text)

    def press(self, at):
        self.do("click", at=at)

    def fill(self, form, press, **texts):
        self.sees_form(form)
        for box, text in texts.items():
            self.type(f"{form}.{box}", text)
        self.press(f"{form}.{press}")

    def log_on(self, server, user=None, password="secret"):
        """From the logon dialog on; what the server answers is the caller's to see."""
        self.fill("UsrNmPwIP", "Connect", LogonName=user or self.name, Password=password, HostMachine=server.host,
                  HTTPPort=str(server.port))

    def log_on_again(self):
        """With what the dialog holds."""
        self.sees_form("UsrNmPwIP")
        self.press("UsrNmPwIP.Connect")

    def open_accounts(self):
        self.do("call", member="DisplayCreateAccount", args=[False])

    def make_account(self, name, password="secret"):
        """In that dialog; answers what the server says."""
        self.fill("CreateAccount", "Create", LogonName=name, Password=password, ConfirmPassword=password)
        return self.reads_box()

    def tick_lobbies(self, *names):
        """In the first run's dialog."""
        for name in names:
            self.do("select", at="LobbyFilter.GameList", row=self.row_of("LobbyFilter.GameList", name), on=True)
        self.press("LobbyFilter.OK")

    def say(self, text):
        self.type("MainText", text)
        self.press("SendMain")

    def go_to(self, lobby):
        self.do("dblclick", at="lbLobbies", row=self.row_of("lbLobbies", lobby))

    def choose_for(self, at, row, entry):
        """An entry of the menu that the right button opens on a row."""
        self.do("rightclick", at=at, row=self.row_of(at, row))
        self.do("choose", entry=entry)

    def create_room(self, name, users=" 2", password=None):
        self.press("Create")
        self.sees_form("NewRoom")
        self.do("select", at="NewRoom.MaxUsers", row=self.get("NewRoom.MaxUsers")["list"].index(users))
        self.do("check", at="NewRoom.PasswordRoom", on=password is not None)
        self.fill("NewRoom", "OKButton", NewRoomName=name, **({"Password": password} if password else {}))

    def enter_room(self, room, password=None):
        self.do("select", at="RoomList", row=self.row_of("RoomList", room))
        self.press("Enter")
        if password:
            self.give_password(password)

    def give_password(self, password):
        self.fill("RoomPassword", "OKButton", Password=password)

    def answer_privately(self, text):
        """To whom the dialog addresses."""
        self.fill("PMDialog", "PMSend", PrivateMessage=text)

    def write_to(self, user, text):
        """A private message by way of the user's row."""
        self.choose_for("UserList", user, "PMMenu")
        self.answer_privately(text)

    # -- behind the screen

    def log(self):
        """The client's own log file."""
        file = self.home / "system" / "AVClLogs.txt"
        return file.read_text("cp1252", "replace") if file.exists() else ""


class Evening:
    """Keeps everything that one run starts, and ends it."""

    going_on = []

    def __init__(self):
        self.going_on.append(self)
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="ombrin-evening-"))
        self.programs = []

    def server(self, config=None, *options, port=0):
        server = Server(self.scratch / "server", config, options, port)
        self.programs.append(server)
        return server

    def client(self, name, *options, language="English", lobbies=(), under=()):
        """A client before its start, by way of the command `under`; settings that are given here are not asked for."""
        client = Client(name, self.scratch / name, options, under)
        self.programs.append(client)
        if language:
            client.do("ini", file="AVfLang.ini", section="CurrentLanguage", key="Language", value=language)
        if lobbies:
            client.do("ini", file="AV.ini", section="GameFilter", key="DisplayedGames",
                      value="".join(name + ";" for name in lobbies))
        return client

    def finish(self):
        """Ends what still runs, clients first; one that does not end properly is a failure."""
        for program in sorted(self.programs, key=lambda program: isinstance(program, Server)):
            if program.dismissed:
                continue
            if program.process.poll() is not None:
                raise Failure(f"{program.name} has ended with {program.ended()}, and nobody asked for it")
            equal(program.quit(), 0, f"the exit status of {program.name}")

    def report(self):
        """What every process said, for a failure."""
        parts = []
        for program in self.programs:
            log = program.log() if isinstance(program, Client) else ""
            parts += [f"--- {program.name} (process {program.process.pid}, exit status {program.process.poll()})",
                      *program.notes[-NOTES_SHOWN:], "and its log file:", *log.splitlines()[-NOTES_SHOWN:]]
        return "\n".join(parts)

    def close(self):
        for program in self.programs:
            program.kill()
        shutil.rmtree(self.scratch)
        self.going_on.remove(self)


def leave_nothing_when_stopped():
    """From now on SIGINT and SIGTERM end this run and all that it has started. No exception does that: it would come
    in the middle of a wait, and the wait would make another one of it."""
    def leave(number, _):
        for evening in Evening.going_on:
            for program in evening.programs:
                program.process.kill()
            shutil.rmtree(evening.scratch, ignore_errors=True)
        os.write(2, b"\nStopped.\n")
        os._exit(128 + number)
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, leave)
