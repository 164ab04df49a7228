"""Games: one press of Launch starts them on every machine of the room, with real processes."""
from casebook import TWO_LOBBIES, case
from evening import equal, until

SCALE = 0.06            # of the waits, which are ten seconds
WAIT = 10 * SCALE / 2   # a busy machine starts a program late, so that less is seen of a wait

class Game:
    """A program on somebody's disk that writes down how it was started."""

    def __init__(self, folder, name, script):
        folder.mkdir(parents=True)
        self.file = folder / name
        self.file.write_text(script)
        self.file.chmod(0o755)
        self.seen = set()

    def starts(self, count):
        """The lines that the next starts write down."""
        new = until(f"{count} starts of {self.file}", lambda: len(
            found := set(self.file.parent.glob("*.start")) - self.seen) == count and found)
        self.seen |= new
        return [file.read_text().splitlines() for file in new]


def player(evening, server, name, game, settings, registry=()):
    client = evening.client(name, "--real=process", "--wait-scale", str(SCALE), lobbies=("Chess", "Go"))
    for section, key, value in settings:
        client.do("setting", section=section, key=key, value=value)
    for key, value, text in registry:
        client.do("registry", key="HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\" + key, name=value, value=text)
    client.do("show")
    client.log_on(server)
    client.sees_lobby("Chess")
    return client, game


def open_room(ann, bob):
    ann.create_room("Base", users=" 4")
    bob.sees_rooms("Base (1/4)")
    bob.enter_room("Base")
    ann.sees_in_room("Ann", "Bob")


GAME = """#!/bin/sh
{ date +%s.%N; pwd; printf '%s\\n' "$@"; } > "$0.$$.part" && mv "$0.$$.part" "$0.$$.start"
"""


@case
def a_launch_starts_the_game_everywhere_and_everybody_comes_back(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    games = {name: Game(evening.scratch / f"games of {name}" / "Quake 3", "quake3.exe", GAME)
             for name in ("Ann", "Bob", "Cid")}
    (ann, anns), (bob, bobs), (cid, cids) = (
        player(evening, server, name, game, [("Games", "Chess", str(game.file))]) for name, game in games.items())
    open_room(ann, bob)
    for launch in ("first", "second"):
        ann.press("Launch")
        for friend in (ann, bob):
            friend.sees_form("PauseAV")
        folder = str(anns.file.parent)
        (served, *serves), (started, *hosts) = sorted(anns.starts(2))
        (joined, *joins), = bobs.starts(1)
        equal(serves, [folder, "+set", "dedicated", "2", "+map", "q3dm1"], f"how Ann's server starts at the {launch}")
        equal((hosts[1:], joins), (["+connect", "127.0.0.1"], [str(bobs.file.parent), "+connect", "127.0.0.1"]),
              f"how the games start at the {launch} launch")
        waited = min(float(started), float(joined)) - float(served)
        equal(waited >= WAIT, True, f"the games wait, and not for {waited} s, for the server")
        for friend in (ann, bob):
            equal(friend.happened("clipboard")[-1]["text"], "127.0.0.1", f"{friend.name}'s clipboard")
        cid.until("both in the game", lambda: {cid.status_of("Ann"), cid.status_of("Bob")} == {3})
        cid.until("the padlock", lambda: cid.get("RoomList")["rows"][0]["image"] == 2)

        if launch == "first":
            cid.choose_for("RoomList", "Base", "JoinServerAndPlay")
            cid.sees_form("PauseAV")
            equal(cids.starts(1)[0][2:], ["+connect", "127.0.0.1"], "what the game of the one who comes late is told")
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


@case
def a_registered_application_is_started_with_its_session(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    players = []
    for name in ("Ann", "Bob"):
        chess = Game(evening.scratch / f"application of {name}", "chess.sh", APPLICATION)
        application = "Applications\\Grand Chess"
        players.append(player(
            evening, server, name, chess,
            [("DirectPlay", "Chess", "Grand Chess"), ("DirectPlay", "DPEnabledChess", "Y")],
            [(application, "Guid", "{C}"), (application, "Path", str(chess.file.parent)),
             (application, "File", "chess.sh"),
             ("Service Providers\\Internet TCP/IP Connection For DirectPlay", "Guid", "{T}")]))
    (ann, _), (bob, _) = players
    open_room(ann, bob)
    ann.press("Launch")
    for (client, chess), hosts, flags in zip(players, "10", "21"):
        client.sees_form("PauseAV")
        (first, folder, *session), = chess.starts(1)
        equal((first, folder), (f"{hosts} 127.0.0.1", str(chess.file.parent)), f"what {client.name}'s program finds")
        wanted = {"application={C}", "provider={T}", "session=Base", f"connectionFlags={flags}",
                  f"player={client.name}"}
        equal(wanted - set(session), set(), f"what is missing in the session of {client.name}")
