"""A server that a case plays itself: it says what it likes, when it likes."""
import queue
import socket
import threading

from evening import PATIENCE, Failure


class PlayedServer:
    """Takes one client at a time, on a free port of 127.0.0.1."""

    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.host, self.port = self._listener.getsockname()
        self._connection = None
        self._connected = threading.Event()
        self._heard = queue.Queue()
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            self._connection = connection
            self._connected.set()
            self._read(connection)

    def _read(self, connection):
        rest = b""
        while True:
            try:
                data = connection.recv(65536)
            except OSError:
                return
            if not data:
                return
            *messages, rest = (rest + data).split(b"~")
            for message in messages:
                self._heard.put(message.decode("cp1252") + "~")

    def sends(self, text):
        if not self._connected.wait(PATIENCE):
            raise Failure("nobody connects to the played server")
        self._connection.sendall(text.encode("cp1252"))

    def hears(self, wanted):
        """The next message of the client has to be this one."""
        try:
            heard = self._heard.get(timeout=PATIENCE)
        except queue.Empty:
            raise Failure(f"the server waits in vain for {wanted!r}") from None
        if heard != wanted:
            raise Failure(f"the server hears {heard!r} instead of {wanted!r}")

    def hears_any(self):
        try:
            return self._heard.get(timeout=PATIENCE)
        except queue.Empty:
            raise Failure("the server hears nothing") from None

    def close(self):
        self._listener.close()
        if self._connection:
            self._connection.close()
