"""Logon and accounts, lobbies, chat in a lobby, the end."""
import configparser
import signal

from casebook import TWO_LOBBIES, case, closed_port, lobby_of, processor_time
from evening import LANGUAGE_FILE, Failure, equal

GREETING = "Rules of the house: be kind; have fun ~ always"
WITH_A_PASSWORD = {"lobbies": [{"name": "Chess"}, {"name": "Vault", "password": "gold"}]}
NOT_CONNECTED = "ERROR:  No longer connected to the server, data cannot be sent."
CYAN = 0x00FFFF00       # the colour of ignored users

# -- logon and accounts


@case
def a_first_start_asks_for_language_logon_and_lobbies_in_turn(evening):
    server = evening.server({**TWO_LOBBIES, "greeting": GREETING}, "--open-accounts")
    ann = evening.client("Ann", language=None)
    ann.do("show")
    ann.sees_form("ChooseLanguage")
    equal(ann.get("ChooseLanguage.Radio1")["caption"], "English", "the first language on offer")
    ann.press("ChooseLanguage.OKButton")
    ann.log_on(server)
    ann.tick_lobbies("Chess", "Go")
    ann.sees_lobby("Chess")
    ann.sees_users("Ann")
    ann.sees_lobbies("Chess : 1", "Go : 0")
    ann.sees_line("Ardvelle", GREETING)
    equal(ann.get("ChatFrame")["caption"], "Lobby - Chess", "the title over the chat")
    equal(ann.marks()["m_UserData"], "Ann;Chess;127.0.0.1", "what the client says of itself")


@case
def a_language_chosen_at_the_first_start_is_spoken_at_once_and_at_the_next_start(evening):
    words = configparser.ConfigParser(interpolation=None, comment_prefixes=(";",), strict=False)
    words.optionxform = str
    words.read(LANGUAGE_FILE, encoding="cp1252")
    german = words["Deutsch"]
    for start in ("first", "second"):
        bob = evening.client("Bob", language=None)
        bob.do("show")
        if start == "first":
            bob.sees_form("ChooseLanguage")
            bob.press("ChooseLanguage.Radio2")
            bob.press("ChooseLanguage.OKButton")
        bob.sees_form("UsrNmPwIP")
        equal(bob.get("UsrNmPwIP.Connect")["caption"], german["Connect"], f"Connect at the {start} start")
        equal(bob.get("SendMain")["caption"], german["SendLobby"], f"SendMain at the {start} start")
        bob.fill_logon("127.0.0.1", "", "Bob", "secret")
        equal(bob.reads_box(), german["Error17"], f"the box at the {start} start")
        equal(bob.quit(), 0, "the exit status")


@case
def a_wrong_password_is_refused_and_the_right_one_goes_over_the_same_connection(evening):
    server, bob = lobby_of(evening, "Bob")
    equal(bob.quit(), 0, "the exit status")

    bob = evening.client("Bob", lobbies=("Chess", "Go"))
    bob.do("show")
    bob.log_on(server, password="guess")
    equal(bob.reads_box(), "Logon Error: Invalid logon attempt.", "the refusal")
    bob.log_on(server)
    bob.sees_lobby("Chess")
    equal(len(bob.happened("connected", socket="Winsock")), 1, "connections made")


@case
def a_name_that_is_logged_on_is_refused(evening):
    server, ann = lobby_of(evening, "Ann")
    twin = evening.client("Twin", lobbies=("Chess", "Go"))
    twin.do("show")
    twin.log_on(server, user="Ann")
    equal(twin.reads_box(), "Logon Error: User already logged on.", "the refusal")
    twin.log_on(server, user="Twin")
    twin.sees_users("Ann", "Twin")
    ann.sees_users("Ann", "Twin")


@case
def an_account_is_made_in_the_dialog_and_serves_for_the_logon(evening):
    server = evening.server(TWO_LOBBIES)
    ann = evening.client("Ann", lobbies=("Chess", "Go"))
    ann.do("show")
    ann.log_on(server)
    equal(ann.reads_box(), "Logon Error: Invalid logon attempt.", "the refusal of an unknown name")
    ann.sees_form("UsrNmPwIP")

    ann.do("call", member="DisplayCreateAccount", args=[False])
    ann.sees_form("CreateAccount")
    ann.type("CreateAccount.LogonName", "Ann")
    ann.type("CreateAccount.Password", "first")
    ann.type("CreateAccount.ConfirmPassword", "second")
    ann.press("CreateAccount.Create")
    equal(ann.get("CreateAccount.sbStatusBar")["text"], "Passwords do not match.", "the status bar")
    ann.type("CreateAccount.ConfirmPassword", "first")
    ann.press("CreateAccount.Create")
    equal(ann.reads_box(), "Account created successfully.", "the answer")
    ann.sees_form("UsrNmPwIP")
    equal(ann.get("UsrNmPwIP.Password")["text"], "first", "the password in the logon dialog")
    ann.press("UsrNmPwIP.Connect")
    ann.sees_lobby("Chess")
    equal(len(ann.happened("connected", socket="Winsock")), 1, "connections made")


@case
def a_taken_account_name_brings_the_account_dialog_back(evening):
    server = evening.server(TWO_LOBBIES)
    for name, takes in (("Ann", ("Ann",)), ("Eve", ("Ann", "Eve"))):
        client = evening.client(name, lobbies=("Chess", "Go"))
        client.do("show")
        client.log_on(server)
        client.reads_box()
        client.do("call", member="DisplayCreateAccount", args=[False])
        for account in takes:
            client.sees_form("CreateAccount")
            client.type("CreateAccount.LogonName", account)
            client.type("CreateAccount.Password", "secret")
            client.type("CreateAccount.ConfirmPassword", "secret")
            client.press("CreateAccount.Create")
            wanted = "Account created successfully." if account == name else "Error: user already exists."
            equal(client.reads_box(), wanted, f"the answer to {name} who asks for {account}")
        client.sees_form("UsrNmPwIP")
        client.press("UsrNmPwIP.Connect")
        client.sees_lobby("Chess")


@case
def accounts_outlive_the_server(evening):
    server, ann = lobby_of(evening, "Ann")
    equal(ann.quit(), 0, "the client's exit status")
    equal(server.quit(), 0, "the server's exit status")

    server = evening.server(TWO_LOBBIES)        # no account at once for a stranger this time
    stranger = evening.client("Stranger", lobbies=("Chess", "Go"))
    stranger.do("show")
    stranger.log_on(server)
    equal(stranger.reads_box(), "Logon Error: Invalid logon attempt.", "the refusal of an unknown name")
    lobby_of(evening, "Ann", server=server)


@case
def a_connection_that_is_refused_can_be_cancelled_and_tried_elsewhere(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    ann = evening.client("Ann", lobbies=("Chess", "Go"))
    ann.do("show")
    ann.fill_logon("127.0.0.1", closed_port(), "Ann", "secret")
    ann.until("the failed connection", lambda: ann.happened("failed", socket="Winsock", why="refused"))
    equal(ann.top(), "Connection", "the form on top while nothing answers")
    ann.press("Connection.CancelButton")
    ann.sees_form("UsrNmPwIP")
    equal(ann.get("UsrNmPwIP.LogonName")["text"], "Ann", "the name that the dialog kept")
    ann.log_on(server)
    ann.sees_lobby("Chess")


# -- lobbies


@case
def the_lobby_filter_wants_a_choice_and_keeps_it(evening):
    server = evening.server({"lobbies": [{"name": name} for name in ("Quake3", "Half Life", "Chess", "Go")]},
                            "--open-accounts")
    ann = evening.client("Ann")
    ann.do("show")
    ann.log_on(server)
    ann.sees_form("LobbyFilter")
    equal(ann.rows("LobbyFilter.GameList"), ["Quake3", "Half Life", "Chess", "Go"], "the lobbies on offer")
    ann.press("LobbyFilter.OK")
    equal(ann.get("LobbyFilter.StatusBar1")["text"], "At leat one game must be selected.", "OK without a choice")
    ann.press("LobbyFilter.Cancel")
    equal(ann.get("LobbyFilter.StatusBar1")["text"],
          "At least one game must be selected and you must press OK.", "Cancel without a choice")
    ann.tick_lobbies("Half Life", "Go")
    ann.sees_lobby("Half Life")
    ann.sees_lobbies("Half Life : 1", "Go : 0")
    equal(ann.do("ini", file="AV.ini", section="GameFilter", key="DisplayedGames")["value"], "Half Life;Go;",
          "the filter that is kept")


@case
def a_move_to_another_lobby_is_seen_by_everybody(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
    for client in (ann, bob, cid):
        client.sees_lobbies("Chess : 3", "Go : 0")
    bob.go_to("Go")
    bob.sees_lobby("Go")
    bob.sees_users("Bob")
    equal(bob.get("ChatFrame")["caption"], "Lobby - Go", "the title over the chat")
    for client in (ann, cid):
        client.sees_users("Ann", "Cid")
    for client in (ann, bob, cid):
        client.sees_lobbies("Chess : 2", "Go : 1")

    cid.go_to("Go")
    bob.sees_users("Bob", "Cid")
    bob.go_to("Chess")
    for client in (ann, bob):
        client.sees_users("Ann", "Bob")
    for client in (ann, bob, cid):
        client.sees_lobbies("Chess : 2", "Go : 1")


@case
def a_double_click_on_the_own_lobby_changes_nothing(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    ann.say("still here")
    ann.go_to("Chess")
    ann.settle()
    equal(ann.lines(), [("Ann", "still here")], "the chat")
    equal(ann.users(), ["Ann", "Bob"], "the users")
    equal(ann.lobbies(), ["Chess : 2", "Go : 0"], "the lobbies")
    equal(ann.marks()["Enabled"], True, "Enabled")


@case
def a_lobby_with_a_password_asks_until_it_is_right(evening):
    server = evening.server(WITH_A_PASSWORD, "--open-accounts")
    ann = evening.client("Ann", lobbies=("Chess", "Vault"))
    ann.do("show")
    ann.log_on(server)
    ann.sees_lobby("Chess")
    ann.go_to("Vault")
    ann.sees_form("ExeMainLobby")
    equal(ann.get("ExeMainLobby.StatusBar")["text"], "Invalid lobby password", "the status bar")

    def tries(password):
        ann.do("select", at="ExeMainLobby.ExeGameList", row=ann.row_of("ExeMainLobby.ExeGameList", "Vault"))
        ann.type("ExeMainLobby.Password", password)
        shown = len(ann.happened("show", form="ExeMainLobby"))
        ann.press("ExeMainLobby.ExeGameSelect")
        return shown

    shown = tries("gol;d")
    ann.settle()
    equal(len(ann.happened("show", form="ExeMainLobby")), shown, "a reserved character: how often the dialog came")
    equal(ann.top(), "ExeMainLobby", "the form on top behind a reserved character")
    equal(ann.get("ExeMainLobby.StatusBar")["text"], "Invalid lobby password", "the status bar behind it")
    shown = tries("silver")
    ann.until("the dialog again", lambda: len(ann.happened("show", form="ExeMainLobby")) > shown)
    ann.sees_form("ExeMainLobby")
    equal(ann.get("ExeMainLobby.StatusBar")["text"], "Invalid lobby password", "the status bar behind a wrong one")
    tries("gold")
    ann.sees_lobby("Vault")
    ann.sees_users("Ann")
    ann.sees_lobbies("Chess : 0", "Vault : 1")


# -- chat


@case
def chat_goes_both_ways_whatever_characters_it_holds(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    spoken = [
        (ann, "a:b;c~d"),
        (bob, ":;~"),
        (ann, "~~~ :: ;;"),
        (bob, "  blanks around  "),
        (ann, "100 % of ^ { | } # @ ` / < * and \"quotes\""),
        (bob, "Grüße für 5 €, ça va? ÿ"),
        (ann, "\\n is no line break"),
    ]
    for speaker, text in spoken:
        speaker.say(text)
        for listener in (ann, bob):
            listener.sees_line(speaker.name, text)
    for listener in (ann, bob):
        listener.settle()
        equal(listener.lines(), [(speaker.name, text) for speaker, text in spoken], f"{listener.name}'s chat")


@case
def enter_sends_a_line_too_and_only_to_the_own_lobby(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
    cid.go_to("Go")
    cid.sees_lobby("Go")
    ann.type("MainText", "one press of Enter")
    equal(ann.do("key", at="MainText", key=13)["swallowed"], True, "Enter behind a text is swallowed")
    equal(ann.get("MainText")["text"], "", "the box behind it")
    equal(ann.do("key", at="MainText", key=13)["swallowed"], False, "Enter in an empty box is swallowed")
    bob.sees_line("Ann", "one press of Enter")
    cid.say("anybody here?")
    cid.settle()
    equal(cid.lines(), [("Cid", "anybody here?")], "the chat of the other lobby")
    bob.settle()
    equal(bob.lines(), [("Ann", "one press of Enter")], "Bob's chat")


@case
def an_ignored_user_is_not_heard_until_he_is_taken_back(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
    bob.say("before")
    ann.sees_line("Bob", "before")

    def colour_of(user):
        return next(row["colour"] for row in ann.get("UserList")["rows"] if row["text"] == user)

    ann.choose_for_user("Bob", "IgnoreUser")
    equal(colour_of("Bob"), CYAN, "the colour of an ignored user")
    if colour_of("Cid") == CYAN:
        raise Failure("a user who is not ignored has the colour of one who is")
    bob.say("ignored")
    cid.sees_line("Bob", "ignored")
    cid.say("heard")
    ann.sees_line("Cid", "heard")
    equal(ann.lines(), [("Bob", "before"), ("Cid", "heard")], "Ann's chat while she ignores Bob")

    ann.choose_for_user("Bob", "UnignoreUser")
    bob.say("after")
    ann.sees_line("Bob", "after")
    equal(ann.lines(), [("Bob", "before"), ("Cid", "heard"), ("Bob", "after")], "Ann's chat behind it")


@case
def an_ignored_user_stays_ignored_when_he_comes_back(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    ann.choose_for_user("Bob", "IgnoreUser")
    bob.go_to("Go")
    ann.sees_users("Ann")
    bob.go_to("Chess")
    ann.sees_users("Ann", "Bob")
    colours = {row["text"]: row["colour"] for row in ann.get("UserList")["rows"]}
    equal(colours["Bob"], CYAN, "the colour of an ignored user who came back")


# -- the end


@case
def who_quits_is_gone_from_everybodys_lists(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    equal(bob.quit(), 0, "the exit status")
    ann.sees_users("Ann")
    ann.sees_lobbies("Chess : 1", "Go : 0")
    equal(ann.rows("lbAllUsers"), ["Ann"], "the users of the service")


@case
def who_is_killed_is_gone_from_everybodys_lists_and_can_come_back(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    bob.kill()
    ann.sees_users("Ann")
    ann.sees_lobbies("Chess : 1", "Go : 0")
    bob = evening.client("Bob", lobbies=("Chess", "Go"))
    bob.do("show")
    bob.log_on(server)
    bob.sees_users("Ann", "Bob")
    ann.sees_users("Ann", "Bob")


@case
def a_server_that_ends_is_noticed_at_the_next_line(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    equal(server.quit(), 0, "the server's exit status")
    for client in (ann, bob):
        client.until("the end of the connection", lambda: client.happened("closed", socket="Winsock"))
        equal(client.forms(), [], f"{client.name}'s forms")
        client.say("hello?")
        equal(client.reads_box(), NOT_CONNECTED, f"what {client.name} reads")
        equal(client.lines(), [(client.name, "hello?")], f"{client.name}'s chat")


@case
def a_client_that_starts_again_remembers_who_logged_on_where(evening):
    server, ann = lobby_of(evening, "Ann")
    equal(server.quit(), 0, "the server's exit status")
    ann.until("the end of the connection", lambda: ann.happened("closed", socket="Winsock"))
    equal(ann.quit(), 0, "the client's exit status")

    server = evening.server(TWO_LOBBIES, port=server.port)
    ann = evening.client("Ann", language=None)
    ann.do("show")
    ann.sees_form("UsrNmPwIP")
    for box, text in (("LogonName", "Ann"), ("HostMachine", server.host), ("HTTPPort", str(server.port))):
        equal(ann.get(f"UsrNmPwIP.{box}")["text"], text, f"the box {box}")
    ann.press("UsrNmPwIP.Connect")
    ann.sees_lobby("Chess")
    ann.sees_users("Ann")
    ann.sees_lobbies("Chess : 1", "Go : 0")


@case
def a_client_ends_under_three_nested_forms_whatever_ends_it(evening):
    ends = {
        "quit": lambda client: client.quit(),
        "the end of its input": lambda client: client.process.stdin.close(),
        "SIGTERM": lambda client: client.process.send_signal(signal.SIGTERM),
        "SIGINT": lambda client: client.process.send_signal(signal.SIGINT),
    }
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    for number, (name, end) in enumerate(ends.items()):
        client = evening.client(f"Guest {number}", lobbies=("Chess", "Go"))
        client.do("show")
        client.log_on(server)
        client.sees_lobby("Chess")
        client.do("call", member="DisplayMainLobby", args=["Chess,1;Go,2;"])
        client.do("call", member="DisplayCreateAccount", args=[True])
        client.do("call", member="DisplayLogonBanner", args=[])
        equal(client.forms(), ["ExeMainLobby", "CreateAccount", "UsrNmPwIP"], "the nested forms")
        before = processor_time(client.process.pid)
        client.do("settle", ms=300)
        spent = processor_time(client.process.pid) - before
        if spent > 0.15:
            raise Failure(f"a waiting client spent {spent} s of processor time in 0.3 s")
        client.dismissed = True
        end(client)
        equal(client.ended(), 0, f"the exit status after {name}")
        equal(client.errors(), [], f"complaints after {name}")
