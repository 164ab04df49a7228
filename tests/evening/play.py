#!/usr/bin/python3
"""Plays an evening with a server and three clients and tells it. What is told was read from a client's screen."""
import sys

from evening import Evening, Failure, leave_nothing_when_stopped

SET_UP = {
    "greeting": "Good evening, and have fun: it is Chess night!",
    "lobbies": [{"name": "Quake3"}, {"name": "Half Life"}, {"name": "Chess"}, {"name": "Go"},
                {"name": "Members", "password": "gold"}],
}

COLOURS = {0x0000FF00: "green", 0x00FFFF00: "cyan", 0x00FFFFFF: "white"}    # red is the low byte


def tell(text):
    print(text, flush=True)


def heading(text):
    tell(f"\n{text}")


def listed(words):
    """a, b and c"""
    words = list(words)
    return " and ".join([", ".join(words[:-1]), words[-1]] if len(words) > 1 else words)


def caption(client, at):
    return client.get(at)["caption"].replace("&", "")


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


def guest(evening, name, language):
    """Starts a client for the first time, up to the logon dialog."""
    client = evening.client(name, language=None)
    client.told = 0
    client.do("show")
    client.sees_form("ChooseLanguage")
    buttons = [f"ChooseLanguage.Radio{number}" for number in range(1, 15)]
    offered = {caption(client, button): button for button in buttons if client.get(button)["visible"]}
    client.press(offered[language])
    client.press("ChooseLanguage.OKButton")
    client.sees_form("UsrNmPwIP")
    tell(f"{name} starts a client. It offers {listed(offered)}; {name} takes {language} and gets the dialog "
         f"\"{caption(client, 'UsrNmPwIP')}\" with the button \"{caption(client, 'UsrNmPwIP.Connect')}\".")
    return client


def make_account(client, password):
    """In the dialog; the logon dialog is below it and has name and password afterwards."""
    client.do("call", member="DisplayCreateAccount", args=[False])
    client.sees_form("CreateAccount")
    title = caption(client, "CreateAccount")
    client.type("CreateAccount.LogonName", client.name)
    client.type("CreateAccount.Password", password)
    client.type("CreateAccount.ConfirmPassword", password)
    client.press("CreateAccount.Create")
    tell(f"{client.name} fills in \"{title}\" and reads: \"{client.reads_box()}\"")
    client.sees_form("UsrNmPwIP")


def arrive(client, server, lobbies):
    """The first logon: refused without an account, then with a new one, and the choice of lobbies."""
    client.log_on(server)
    tell(f"{client.name} logs on without an account and reads: \"{client.reads_box()}\"")
    client.sees_form("UsrNmPwIP")
    make_account(client, "secret")
    client.press("UsrNmPwIP.Connect")
    client.sees_form("LobbyFilter")
    offered = client.rows("LobbyFilter.GameList")
    client.tick_lobbies(*lobbies)
    client.sees_lobby()
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
    client.choose_for_user(user, "IgnoreUser")
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
        client.type("ExeMainLobby.Password", password)
        client.press("ExeMainLobby.ExeGameSelect")
        client.until("an answer to the password", lambda: client.in_lobby() or (
            client.top() == "ExeMainLobby" and len(client.happened("show", form="ExeMainLobby")) > shown))
        if client.in_lobby():
            tell(f"{client.name} tries \"{password}\" and is in.")
            client.told = 0
        else:
            tell(f"{client.name} tries \"{password}\" and reads: \"{client.get('ExeMainLobby.StatusBar')['text']}\".")


def play(evening):
    server = evening.server(SET_UP)
    tell(f"The server listens on {server.host}, port {server.port}.")

    heading("Arrival")
    ann = guest(evening, "Ann", "English")
    arrive(ann, server, ["Chess", "Go", "Members"])
    bob = guest(evening, "Bob", "Deutsch")
    arrive(bob, server, ["Chess", "Go"])
    eve = guest(evening, "Eve", "Français")
    arrive(eve, server, ["Chess", "Go"])
    for client in (ann, bob):
        client.sees_users("Ann", "Bob", "Eve")
    tell_screen(ann)

    heading("Chat")
    speak(ann, "Hello Bob; ready for a game?", [bob, eve])
    speak(bob, "Grüße! In 5 min ~ vielleicht 10: ok?", [ann])
    ignore(ann, "Eve")
    speak(eve, "BUY CHESS SETS!!!", [bob])
    speak(bob, "Not now, Eve.", [ann])
    tell(f"  Lines of Eve's in Ann's chat: {sum(sender == 'Eve' for sender, _ in ann.lines())}.")

    heading("Other lobbies")
    bob.go_to("Go")
    bob.sees_lobby("Go")
    bob.sees_users("Bob")
    bob.told = 0
    tell("Bob double-clicks Go.")
    tell_screen(bob)
    tell_new_lines(bob)
    ann.sees_users("Ann", "Eve")
    tell_screen(ann)
    enter_with_password(ann, "Members", ["silver", "gold"])
    tell_screen(ann)
    tell_new_lines(ann)
    ann.go_to("Go")
    ann.sees_lobby("Go")
    ann.sees_users("Ann", "Bob")
    ann.told = 0
    bob.sees_users("Ann", "Bob")
    tell("Ann follows Bob to Go.")
    tell_screen(bob)

    heading("The end")
    tell(f"Ann quits; her client ends with {ann.quit()}.")
    bob.sees_users("Bob")
    tell_screen(bob)
    tell(f"The server is asked to end, and ends with {server.quit()}.")
    bob.until("the end of the connection", lambda: bob.happened("closed", socket="Winsock"))
    bob.say("Gute Nacht")
    tell(f"Bob types \"Gute Nacht\" and reads: \"{bob.reads_box()}\"")
    evening.finish()
    tell("Bob and Eve quit.")


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
