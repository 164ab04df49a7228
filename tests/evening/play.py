#!/usr/bin/python3
"""An evening of three friends with a server, told while it goes on. What is told was read from a client's screen; what
does not come out as it should stops it."""
import sys

from evening import OK, PRIVATE_CHAT, ROOM_CHAT, YES, Evening, Failure, equal, leave_nothing_when_stopped

SET_UP = {
    "greeting": "Good evening, and have fun: it is Chess night!",
    "lobbies": [{"name": "Quake3"}, {"name": "Half Life"}, {"name": "Chess"}, {"name": "Go"},
                {"name": "Members", "password": "gold"}],
}

COLOURS = {0x0000FF00: "green", 0x00FFFF00: "cyan", 0x00FFFFFF: "white"}    # red is the low byte


def tell(text):
    print(text, flush=True)


def listed(words):
    """a, b and c"""
    words = list(words)
    return " and ".join([", ".join(words[:-1]), words[-1]] if len(words) > 1 else words)


def caption(client, at):
    return client.get(at)["caption"].replace("&", "")


def words(client, key, english):
    """A text of the system in the client's language."""
    if client.language == "English":
        return english
    return client.do("ini", file="AVfLang.ini", section=client.language, key=key)["value"]


def tell_box(client, does, key, english, press=OK):
    """What the user does brings a box with this text."""
    text = client.reads_box(press)
    equal(text, words(client, key, english), f"what {client.name} reads when he {does}")
    tell(f"{client.name} {does} and reads: \"{text}\"")


def tell_room(client):
    """The room that a client shows."""
    rooms = listed(client.rows("RoomList")) or "none"
    users = listed(client.room_users()) or "nobody"
    tell(f"  {client.name}'s screen: \"{caption(client, 'RoomBorder')}\" with {users}; rooms: {rooms}.")


def tell_screen(client):
    """What the main view shows now."""
    tell(f"  {client.name}'s screen: \"{caption(client, 'ChatFrame')}\", users {listed(client.users())}, "
         f"lobbies {listed(client.lobbies())}.")


def tell_new_lines(client):
    """The chat lines of others that were not told yet."""
    lines = client.lines()
    for sender, text in lines[client.told:]:
        if sender != client.name:
            tell(f"  {client.name}'s chat: {sender}: {text}")
    client.told = len(lines)


def guest(evening, name, language=None, speaks=None):
    """Starts a client, up to the logon dialog; who chooses a language starts it for the first time."""
    client = evening.client(name, language=None)
    client.told, client.language = 0, language or speaks
    client.do("show")
    if language:
        client.sees_form("ChooseLanguage")
        buttons = [f"ChooseLanguage.Radio{number}" for number in range(1, 15)]
        offered = {caption(client, button): button for button in buttons if client.get(button)["visible"]}
        client.press(offered[language])
        client.press("ChooseLanguage.OKButton")
    client.sees_form("UsrNmPwIP")
    equal(caption(client, "UsrNmPwIP.Connect"), words(client, "Connect", "Connect"), "the language of the dialog")
    if language:
        tell(f"{name} starts a client. It offers {listed(offered)}; {name} takes {language} and gets the dialog "
             f"\"{caption(client, 'UsrNmPwIP')}\" with the button \"{caption(client, 'UsrNmPwIP.Connect')}\".")
    return client


def arrive(client, server, lobbies):
    """The first logon: refused without an account, then with a new one, and the choice of lobbies."""
    client.log_on(server)
    tell(f"{client.name} logs on without an account and reads: \"{client.reads_box()}\"")
    client.sees_form("UsrNmPwIP")
    client.open_accounts()
    client.sees_form("CreateAccount")
    title = caption(client, "CreateAccount")
    tell(f"{client.name} fills in \"{title}\" and reads: \"{client.make_account(client.name)}\"")
    client.log_on_again()
    client.sees_form("LobbyFilter")
    offered = client.rows("LobbyFilter.GameList")
    client.tick_lobbies(*lobbies)
    client.sees_lobby("Chess")
    client.sees_line("Ardvelle", SET_UP["greeting"])
    tell(f"{client.name} logs on again. The service offers {listed(offered)}; {client.name} ticks {listed(lobbies)}.")
    tell_screen(client)
    tell_new_lines(client)


def speak(speaker, text, listeners):
    speaker.say(text)
    tell(f"{speaker.name} types: {text}")
    for listener in listeners:
        listener.sees_line(speaker.name, text)
        tell_new_lines(listener)


def ignore(client, user):
    client.choose_for("UserList", user, "IgnoreUser")
    entries = client.happened("menu", menu="UserMenu")[-1]["entries"]
    chosen = next(entry["caption"] for entry in entries if entry["entry"] == "IgnoreUser").replace("&", "")
    colour = next(row["colour"] for row in client.get("UserList")["rows"] if row["text"] == user)
    tell(f"{client.name} right-clicks {user} and chooses \"{chosen}\" of {len(entries)} entries; "
         f"{user}'s row turns {COLOURS.get(colour, f'to colour {colour:08X}')}.")


def enter_with_password(client, lobby, passwords):
    client.go_to(lobby)
    client.sees_form("ExeMainLobby")
    tell(f"{client.name} double-clicks {lobby}. The dialog \"{caption(client, 'ExeMainLobby')}\" opens and says: "
         f"\"{client.get('ExeMainLobby.StatusBar')['text']}\".")
    for password in passwords:
        shown = len(client.happened("show", form="ExeMainLobby"))
        row = client.row_of("ExeMainLobby.ExeGameList", lobby)
        client.do("select", at="ExeMainLobby.ExeGameList", row=row)
        client.fill("ExeMainLobby", "ExeGameSelect", Password=password)
        if password != passwords[-1]:
            client.until("the dialog again", lambda: len(client.happened("show", form="ExeMainLobby")) > shown)
            client.sees_form("ExeMainLobby")
            said = client.get("ExeMainLobby.StatusBar")["text"]
            tell(f"{client.name} tries \"{password}\" and reads: \"{said}\".")
    client.sees_lobby(lobby)
    tell(f"{client.name} tries \"{passwords[-1]}\" and is in.")
    client.told = 0


def open_a_room(ann, bob, cid):
    ann.create_room("Base", users=" 4", password="gold")
    ann.sees_in_room("Ann", room="Base")
    tell("Ann creates the room \"Base\" for 4 with a password.")
    for friend in (bob, cid):
        friend.sees_rooms("Base (1/4)")
        friend.until("the key on the room", lambda: friend.get("RoomList")["rows"][0]["image"] == 3)
        friend.until("Ann's picture", lambda: friend.status_of("Ann") == 2)
    bob.do("select", at="RoomList", row=0)
    bob.sees_in_room("Ann")
    tell("Bob looks into it without entering.")
    tell_room(bob)
    bob.press("Enter")
    bob.give_password("silver")
    tell_box(bob, "enters with \"silver\"", "Error5", "Error: Invalid password!")
    bob.give_password("gold")
    bob.sees_in_room("Ann", "Bob", room="Base")
    ann.sees_in_room("Ann", "Bob")
    cid.sees_rooms("Base (2/4)")
    equal(bob.marks()["m_RoomHostAddress"], "127.0.0.1", "the host's address")
    tell("Bob tries \"gold\" and is in.")
    tell_room(ann)


def chat_in_the_room(ann, bob, cid):
    for speaker, listener, text in ((ann, bob, "welcome; are you ready?"), (bob, ann, "5 min: ok ~")):
        speaker.type("RoomText", text)
        speaker.press("SendRoom")
        listener.sees_line(speaker.name, text, ROOM_CHAT)
        tell(f"{speaker.name} says in the room: {text}")
    speak(cid, "where is everybody?", [ann, bob])
    equal(cid.lines(ROOM_CHAT), [], "what Cid sees of the room's chat")
    tell("  Lines of the room on Cid's screen: 0.")


def write_privately(bob, cid):
    cid.write_to("Bob", "let me in; please")
    bob.sees_line("Cid", "let me in; please", PRIVATE_CHAT)
    tell(f"Cid writes to Bob alone. \"{caption(bob, 'PMDialog')}\" opens on Bob's screen with his line.")
    bob.answer_privately("the word is gold")
    cid.sees_line("Bob", "the word is gold", PRIVATE_CHAT)
    tell(f"  Cid's dialog: {'; '.join(f'{who}: {text}' for who, text in cid.lines(PRIVATE_CHAT))}")
    for friend in (bob, cid):
        friend.press("PMDialog.OKButton")


def reject_and_ban(ann, bob, cid):
    cid.enter_room("Base", "gold")
    ann.sees_in_room("Ann", "Bob", "Cid")
    tell("Cid enters.")
    tell_room(ann)
    ann.choose_for("RoomUserList", "Cid", "RejectUserMenu")
    tell("Ann right-clicks him and chooses \"Reject\".")
    tell_box(cid, "is put out", "RoomRejection", "You were rejected from the room.")
    cid.sees_no_room()
    ann.sees_in_room("Ann", "Bob")
    cid.enter_room("Base")
    tell_box(cid, "tries again", "RoomBanned", "You are banned from this room.")
    cid.sees_no_room()
    tell_room(cid)


def ignore_cid(ann, bob, cid):
    ignore(ann, "Cid")
    cid.write_to("Ann", "sorry")
    cid.sees_line("Cid", "sorry", PRIVATE_CHAT)
    cid.press("PMDialog.OKButton")
    speak(cid, "BUY CHESS SETS!!!", [bob])
    speak(bob, "Not now, Cid.", [ann])
    equal((ann.forms(), [who for who, _ in ann.lines()].count("Cid")), ([], 1), "what Ann is shown of Cid")
    tell("  Lines of Cid's on Ann's screen, in chat and dialog, since then: 0.")
    ann.choose_for("UserList", "Cid", "UnignoreUser")
    tell("Ann takes him back.")


def leave_and_destroy(ann, bob, cid):
    bob.press("Leave")
    bob.sees_no_room()
    ann.sees_in_room("Ann")
    cid.sees_rooms("Base (1/4)")
    tell("Bob leaves the room.")
    bob.enter_room("Base", "gold")
    ann.sees_in_room("Ann", "Bob")
    tell("He comes back.")
    ann.press("Destroy")
    tell_box(ann, "destroys the room", "DestroyRoom", "Are you sure you want to destroy this room?", YES)
    for friend in (ann, bob, cid):
        friend.sees_no_room()
        friend.sees_rooms()
        friend.until("everybody in the lobby", lambda: {friend.status_of(name) for name in friend.users()} == {1})
    tell_room(bob)


def follow_buddies(ann, bob, cid):
    bob.press("btnAddBuddy")
    bob.do("answer", text="Cid")
    bob.sees_buddies(Cid="Chess")
    tell(f"Bob makes Cid a buddy. Bob's pane: Cid, {bob.buddies()['Cid']}.")
    cid.go_to("Go")
    cid.sees_lobby("Go")
    cid.sees_users("Cid")
    cid.told = 0
    bob.sees_buddies(Cid="Go")
    tell("Cid double-clicks Go.")
    tell_screen(cid)
    tell_new_lines(cid)
    tell(f"  Bob's pane: Cid, {bob.buddies()['Cid']}.")
    ann.sees_users("Ann", "Bob")
    tell_screen(ann)
    enter_with_password(ann, "Members", ["silver", "gold"])
    tell_screen(ann)
    tell_new_lines(ann)
    for friend in (ann, cid):
        friend.go_to("Chess")
        friend.sees_lobby("Chess")
        friend.told = 0
    for friend in (ann, bob, cid):
        friend.sees_users("Ann", "Bob", "Cid")
    tell("Ann and Cid come back to Chess.")


def come_and_go(evening, bob, cid):
    """Cid, as he is after a new start of his client."""
    tell(f"Cid quits; his client ends with {cid.quit()}.")
    bob.sees_buddies(Cid="Offline")
    tell(f"  Bob's pane: Cid, {bob.buddies()['Cid']}.")
    sounds = len(bob.happened("sound", name="BudNotif.wav"))
    cid = guest(evening, "Cid", speaks=cid.language)
    cid.log_on_again()
    cid.sees_users("Ann", "Bob", "Cid")
    bob.sees_buddies(Cid="Chess")
    tell(f"He starts it again and is back. Bob's pane: Cid, {bob.buddies()['Cid']}; "
         f"{len(bob.happened('sound', name='BudNotif.wav')) - sounds} sound of a buddy.")
    return cid


def lose_the_server(evening, server, friends):
    ann, bob, cid = friends
    ann.create_room("Again")
    ann.sees_in_room("Ann", room="Again")
    bob.sees_rooms("Again (1/2)")
    server.kill()
    tell("Ann has another room when the server dies.")
    for friend in friends:
        friend.until("the end of the connection", lambda: not friend.marks()["connected"])
        equal(friend.forms(), [], f"{friend.name}'s forms")
    bob.say("hello?")
    tell_box(bob, "types \"hello?\"", "Error18",
             "ERROR:  No longer connected to the server, data cannot be sent.")
    server = evening.server(SET_UP, port=server.port)
    tell("The server is back, on the same port.")
    for friend in friends:
        friend.do("call", member="CloseSocket", args=[])
        friend.log_on_again()
        friend.told = 0
    for friend in friends:
        friend.sees_users("Ann", "Bob", "Cid")
        friend.sees_rooms()
    bob.sees_buddies(Cid="Chess")
    tell("Everybody logs on again with what the dialog holds.")
    for friend in friends:
        tell_screen(friend)
    ann.create_room("Third")
    for friend in (bob, cid):
        friend.sees_rooms("Third (1/2)")
    tell_room(bob)
    return server


def play(evening):
    server = evening.server(SET_UP)
    tell(f"The server listens on {server.host}, port {server.port}.")

    tell("\nArrival")
    ann = guest(evening, "Ann", "English")
    arrive(ann, server, ["Chess", "Go", "Members"])
    bob = guest(evening, "Bob", "Deutsch")
    arrive(bob, server, ["Chess", "Go"])
    cid = guest(evening, "Cid", "Français")
    arrive(cid, server, ["Chess", "Go"])
    for client in (ann, bob):
        client.sees_users("Ann", "Bob", "Cid")
    tell_screen(ann)
    speak(ann, "Hello Bob; ready for a game?", [bob, cid])
    speak(bob, "Grüße! In 5 min ~ vielleicht 10: ok?", [ann])

    tell("\nA room")
    open_a_room(ann, bob, cid)
    chat_in_the_room(ann, bob, cid)
    write_privately(bob, cid)
    reject_and_ban(ann, bob, cid)
    ignore_cid(ann, bob, cid)
    leave_and_destroy(ann, bob, cid)

    tell("\nBuddies and other lobbies")
    follow_buddies(ann, bob, cid)
    cid = come_and_go(evening, bob, cid)

    tell("\nThe server dies, and returns")
    server = lose_the_server(evening, server, (ann, bob, cid))

    tell("\nThe end")
    tell(f"Ann quits; her client ends with {ann.quit()}.")
    for friend in (bob, cid):
        friend.sees_users("Bob", "Cid")
        friend.sees_rooms()
    tell_screen(bob)
    tell_room(bob)
    tell(f"The server is asked to end, and ends with {server.quit()}.")
    evening.finish()
    tell("Bob and Cid quit.")


def main():
    leave_nothing_when_stopped()
    evening = Evening()
    try:
        play(evening)
    except Failure as why:
        print(f"\nThe evening stops here: {why}\n\n{evening.report()}", file=sys.stderr)
        return 1
    finally:
        evening.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
