"""What the cases have in common: their list, and the ways in which most of them begin."""
import socket

CASES = []

TWO_LOBBIES = {"lobbies": [{"name": "Chess"}, {"name": "Go"}]}
INVALID_LOGON = "Logon Error: Invalid logon attempt."


def case(function):
    CASES.append(function)
    return function


def case_if(possible):
    """A case that there is only where the system has what it needs."""
    return case if possible else lambda function: function


def arrival(evening, name, server, *options, **logon):
    """A client that has pressed Connect; what the server answers is the case's to see."""
    client = evening.client(name, *options, lobbies=("Chess", "Go"))
    client.do("show")
    client.log_on(server, **logon)
    return client


def lobby_of(evening, *names):
    """A server with two lobbies and everybody named in the first of them; server and clients."""
    server = evening.server(TWO_LOBBIES, "--open-accounts")
    clients = [arrival(evening, name, server) for name in names]
    for client in clients:
        client.sees_lobby("Chess")
        client.sees_users(*names)
    return server, *clients


def closed_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]
