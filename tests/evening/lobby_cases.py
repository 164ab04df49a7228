"""Logon and accounts, chat in a lobby, who comes and goes, the end."""
import os
import signal
from types import SimpleNamespace

from casebook import INVALID_LOGON, TWO_LOBBIES, arrival, case, closed_port, lobby_of
from evening import Failure, equal


@case
def what_the_server_refuses_is_tried_again_over_the_same_connection(evening):
    server = evening.server(TWO_LOBBIES)
    ann = arrival(evening, "Ann", server)
    equal(ann.reads_box(), INVALID_LOGON, "the refusal of an unknown name")
    ann.open_accounts()
    equal(ann.make_account("Ann"), "Account created successfully.", "the answer to a new name")
    ann.log_on_again()
    ann.sees_lobby("Chess")

    eve = arrival(evening, "Eve", server, user="Ann", password="guess")
    equal(eve.reads_box(), INVALID_LOGON, "the refusal of a wrong password")
    eve.log_on(server, user="Ann")
    equal(eve.reads_box(), "Logon Error: User already logged on.", "the refusal of somebody who is there")
    eve.open_accounts()
    equal(eve.make_account("Ann"), "Error: user already exists.", "the answer to a taken name")
    equal(eve.make_account("Eve"), "Account created successfully.", "the answer in the dialog that came back")
    eve.log_on_again()
    for client in (ann, eve):
        client.sees_users("Ann", "Eve")
        equal(len(client.happened("connected", socket="Winsock")), 1, f"connections of {client.name}")


@case
def a_connection_that_is_refused_can_be_cancelled_and_tried_elsewhere(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    ann = arrival(evening, "Ann", SimpleNamespace(host="127.0.0.1", port=closed_port()))
    ann.until("the failed connection", lambda: ann.happened("failed", socket="Winsock", why="refused"))
    equal(ann.top(), "Connection", "the form on top while nothing answers")
    ann.press("Connection.CancelButton")
    ann.sees_form("UsrNmPwIP")
    equal(ann.get("UsrNmPwIP.LogonName")["text"], "Ann", "the name that the dialog kept")
    ann.log_on(server)
    ann.sees_lobby("Chess")


@case
def chat_goes_both_ways_in_the_own_lobby_whatever_characters_it_holds(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
    cid.go_to("Go")
    cid.sees_lobby("Go")
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
    cid.say("anybody here?")
    for client, lines in ((ann, spoken), (bob, spoken), (cid, [(cid, "anybody here?")])):
        client.settle()
        equal(client.lines(), [(speaker.name, text) for speaker, text in lines], f"{client.name}'s chat")


@case
def who_moves_dies_or_comes_back_is_seen_by_everybody(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
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
    cid.kill()
    for client in (ann, bob):
        client.sees_lobbies("Chess : 2", "Go : 0")
        equal(sorted(client.rows("lbAllUsers")), ["Ann", "Bob"], "the users of the service")
    cid = arrival(evening, "Cid", server)
    for client in (ann, bob, cid):
        client.sees_users("Ann", "Bob", "Cid")
    equal(cid.quit(), 0, "the exit status")
    for client in (ann, bob):
        client.sees_users("Ann", "Bob")


def processor_time(process):
    """Seconds that a process has computed so far."""
    with open(f"/proc/{process}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


@case
def a_client_ends_under_three_nested_forms_whatever_ends_it(evening):
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    for name, end in (("quit", lambda client: client.quit()),
                      ("closed input", lambda client: client.process.stdin.close()),
                      ("SIGTERM", lambda client: client.process.send_signal(signal.SIGTERM)),
                      ("SIGINT", lambda client: client.process.send_signal(signal.SIGINT))):
        client = arrival(evening, name, server)
        client.sees_lobby("Chess")
        for member, args in (("DisplayMainLobby", ["Chess,1;Go,2;"]), ("DisplayCreateAccount", [True]),
                             ("DisplayLogonBanner", [])):
            client.do("call", member=member, args=args)
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
