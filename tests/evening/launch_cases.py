"""Games: one press of Launch starts them on every machine of the room, with real processes."""
import stat
import time

from casebook import TWO_LOBBIES, case
from evening import PATIENCE, Failure, equal

SCALE = 0.06            # of the waits, which are ten seconds
WAIT = 10 * SCALE / 2   # a busy machine starts a program late, so that less is seen of a wait

GAME = """#!/bin/sh
{ date +%s.%N; pwd; printf '%s\\n' "$@"; } > "$0.$$.part" && mv "$0.$$.part" "$0.$$.start"
"""


class Game:
    """A game on somebody's disk that writes down how it was started."""

    def __init__(self, folder):
        folder.mkdir(parents=True)
        self.file = folder / "quake3.exe"
        self.file.write_text(GAME)
        self.file.chmod(self.file.stat().st_mode | stat.S_IXUSR)
        self.seen = set()

    def starts(self, count):
        """The next starts, each its time and its arguments, in their order."""
        end = time.monotonic() + PATIENCE
        while True:
            new = {file for file in self.file.parent.glob("*.start")} - self.seen
            if len(new) >= count:
                break
            if time.monotonic() > end:
                raise Failure(f"{len(new)} starts of {self.file} instead of {count}")
            time.sleep(0.01)
        self.seen |= new
        starts = sorted([float(moment), arguments] for moment, folder, *arguments in (
            file.read_text().splitlines() for file in new) if folder == str(self.file.parent))
        equal(len(starts), count, f"starts of {self.file} in its own directory")
        return starts


def player(evening, server, name):
    game = Game(evening.scratch / f"games of {name}" / "Quake 3")
    client = evening.client(name, "--real=process", "--wait-scale", str(SCALE), lobbies=("Chess", "Go"))
    client.do("setting", section="Games", key="Chess", value=str(game.file))
    client.do("show")
    client.log_on(server)
    client.sees_lobby("Chess")
    return client, game


@case
def a_launch_starts_the_game_everywhere_and_everybody_comes_back(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    (ann, anns), (bob, bobs), (cid, cids) = (player(evening, server, name) for name in ("Ann", "Bob", "Cid"))
    ann.create_room("Base", users=" 4")
    bob.sees_rooms("Base (1/4)")
    bob.enter_room("Base")
    ann.sees_in_room("Ann", "Bob")
    for launch in ("first", "second"):
        ann.press("Launch")
        for friend in (ann, bob):
            friend.sees_form("PauseAV")
        (served, options), (started, hosts) = anns.starts(2)
        (joined, joins), = bobs.starts(1)
        equal(options, ["+set", "dedicated", "2", "+map", "q3dm1"], f"what Ann's server is told at the {launch} launch")
        equal((hosts, joins), (["+connect", "127.0.0.1"],) * 2, f"what the games are told at the {launch} launch")
        if min(started, joined) - served < WAIT:
            raise Failure(f"the games wait {min(started, joined) - served} s for the server instead of {2 * WAIT}")
        for friend in (ann, bob):
            equal(friend.happened("clipboard")[-1]["text"], "127.0.0.1", f"{friend.name}'s clipboard")
        cid.until("both in the game", lambda: {cid.status_of("Ann"), cid.status_of("Bob")} == {3})
        cid.until("the padlock", lambda: cid.get("RoomList")["rows"][0]["image"] == 2)

        if launch == "first":
            cid.choose_for("RoomList", cid.rows("RoomList")[0], "JoinServerAndPlay")
            cid.sees_form("PauseAV")
            (_, late), = cids.starts(1)
            equal(late, ["+connect", "127.0.0.1"], "what the game of the one who comes late is told")
            cid.press("PauseAV.ResumeButton")
            cid.sees_users("Ann", "Bob", "Cid")

        for friend in (ann, bob):
            friend.press("PauseAV.ResumeButton")
        for friend in (ann, bob):
            friend.sees_users("Ann", "Bob", "Cid")
            friend.sees_in_room("Ann", "Bob", room="Base")
        cid.until("both back in the room", lambda: {cid.status_of("Ann"), cid.status_of("Bob")} == {2})
        cid.until("no padlock any more", lambda: cid.get("RoomList")["rows"][0]["image"] == 1)


APPLICATION = """#!/bin/sh
{ echo "$DIRECTPLAY_HOST $DIRECTPLAY_ADDRESS"; pwd; cat "$DIRECTPLAY_SESSION"; } > "$0.part" && mv "$0.part" "$0.start"
"""
PLACE = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\"


@case
def a_registered_application_is_started_with_its_session(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    folders = {}
    for name in ("Ann", "Bob"):
        client = evening.client(name, "--real=process", "--wait-scale", str(SCALE), lobbies=("Chess", "Go"))
        folders[client] = folder = evening.scratch / f"application of {name}"
        folder.mkdir()
        program = folder / "chess.sh"
        program.write_text(APPLICATION)
        program.chmod(program.stat().st_mode | stat.S_IXUSR)
        for key, value, text in (("Applications\\Grand Chess", "Guid", "{C}"),
                                 ("Applications\\Grand Chess", "Path", str(folder)),
                                 ("Applications\\Grand Chess", "File", program.name),
                                 ("Service Providers\\Internet TCP/IP Connection For DirectPlay", "Guid", "{T}")):
            client.do("registry", key=PLACE + key, name=value, value=text)
        client.do("setting", section="DirectPlay", key="Chess", value="Grand Chess")
        client.do("setting", section="DirectPlay", key="DPEnabledChess", value="Y")
        client.do("show")
        client.log_on(server)
        client.sees_lobby("Chess")
    ann, bob = folders
    ann.create_room("Base", users=" 4")
    bob.sees_rooms("Base (1/4)")
    bob.enter_room("Base")
    ann.sees_in_room("Ann", "Bob")
    ann.press("Launch")
    for client, hosts, flags in ((ann, "1", "2"), (bob, "0", "1")):
        client.sees_form("PauseAV")
        note = folders[client] / "chess.sh.start"
        end = time.monotonic() + PATIENCE
        while not note.exists() and time.monotonic() < end:
            time.sleep(0.01)
        first, folder, *session = note.read_text().splitlines()
        equal((first, folder), (f"{hosts} 127.0.0.1", str(folders[client])), f"what {client.name}'s application finds")
        for line in ("application={C}", "provider={T}", "session=Base", f"connectionFlags={flags}",
                     f"player={client.name}"):
            if line not in session:
                raise Failure(f"{line} is not in the session of {client.name}: {session}")
