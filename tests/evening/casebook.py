"""What the cases have in common: their list, and the ways in which most of them begin."""
import os
import socket

CASES = []

TWO_LOBBIES = {"lobbies": [{"name": "Chess"}, {"name": "Go"}]}


def case(function):
    CASES.append(function)
    return function


def lobby_of(evening, *names, server=None, lobby="Chess"):
    """A server with two lobbies and everybody named in the first of them; server and clients."""
    server = server or evening.server(TWO_LOBBIES, "--open-accounts")
    clients = []
    for name in names:
        client = evening.client(name, lobbies=("Chess", "Go"))
        client.do("show")
        client.log_on(server)
        client.sees_lobby(lobby)
        clients.append(client)
    for client in clients:
        client.sees_users(*names)
    return server, *clients


def processor_time(process):
    """Seconds that a process has computed so far."""
    with open(f"/proc/{process}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def closed_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]
