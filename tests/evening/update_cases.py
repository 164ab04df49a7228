"""Updates: an older client, a server with newer files, the transfer, the patcher, and the new client running."""
import contextlib
import functools
import os
import pathlib
import random
import shutil
import signal
import subprocess
import tempfile

from casebook import TWO_LOBBIES, case, case_if
from evening import PATIENCE, PROGRAMS, equal, until

OLDER, NEWER = "0.0.9", "0.2.0"
CANCEL = 2
DIRECTORIES = {1: pathlib.Path("Client"), 2: pathlib.Path("system")}     # below the home
QUESTION = "In order to continue a required download is available.  Download now?"

# The release: name, directory, bytes behind the line with the version. The two programs are real ones.
TEXTS = [("Readme.txt", 1, 100), ("Maps.dat", 1, 3_000_000), ("Rules.txt", 1, 8_000), ("Colours.txt", 1, 1),
         ("Ombrin.ocx", 2, 20_000), ("Ping.ocx", 2, 5_000), ("Names.txt", 2, 70_000), ("Places.txt", 2, 4_096)]
HANDED_OVER = {"OmbrinExe.exe", "Ombrin.ocx", "Ping.ocx"}
NO_SCREEN = {"QT_QPA_PLATFORM": "offscreen", "DISPLAY": "", "WAYLAND_DISPLAY": ""}


@functools.lru_cache(maxsize=None)
def stripped(program):
    """As it is delivered: without what only a debugger reads, which is nine tenths of it."""
    with tempfile.NamedTemporaryFile(prefix="ombrin-evening-") as file:
        subprocess.run(["strip", "-o", file.name, PROGRAMS / program], check=True, timeout=PATIENCE)
        return pathlib.Path(file.name).read_bytes()


def stamped(program, version):
    """One of our programs as if it had been built under another version."""
    data = bytearray(stripped(program))
    owner = data.index(b"\1\0\0\0Ombrin\0\0") + 4      # behind the note's type
    size = int.from_bytes(data[owner - 8:owner - 4], "little")
    data[owner + 8:owner + 8 + size] = version.encode().ljust(size, b"\0")
    return bytes(data)


HAS_WINDOW = (PROGRAMS / "OmbrinExe").exists()
OWN_MOUNTS = ("unshare", "--map-root-user", "--mount")
HAS_OWN_MOUNTS = subprocess.run([*OWN_MOUNTS, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0


def release(version):
    """Its files by name: the directory and the content."""
    client = "OmbrinExe" if HAS_WINDOW else "ombrin-console"
    files = {"OmbrinExe.exe": (1, stamped(client, version)), "OBPatch.exe": (2, stamped("OBPatch", version))}
    noise = random.Random(version)
    for name, code, size in TEXTS:
        files[name] = code, f";FileVersion={version}\r\n".encode() + noise.randbytes(size)
    return files


def place(home, name, code):
    return home / DIRECTORIES[code] / name


def install(home, files):
    """As an installer does."""
    for name, (code, data) in files.items():
        file = place(home, name, code)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(data)
        file.chmod(0o755 if data.startswith(b"\x7fELF") else 0o644)


def installed(home, files):
    """Which of the files are in place, by name."""
    return {name for name, (code, data) in files.items() if place(home, name, code).is_file()
            and place(home, name, code).read_bytes() == data}


def left_over(home):
    """Files under temporary names, old ones that were kept, and marks of a hand-over."""
    return sorted(file.name for folder in DIRECTORIES.values() for file in (home / folder).iterdir()
                  if file.is_file() and (file.stem[-1] in "78" or file.suffix in (".part", ".state", ".new")))


class Update:
    """A server with the newer files, and Ann, who has the older ones and is asked whether she wants them."""

    def __init__(self, evening, key=False, endless=None, small_disk=False, packaged=False):
        os.environ.update(NO_SCREEN)    # for what the patcher starts
        self.old, self.new = release(OLDER), release(NEWER)
        if packaged:
            # No package brings the first two, without which a client takes no update; the patcher is the installed one.
            for name in ("Ombrin.ocx", "Ping.ocx", "OBPatch.exe"):
                del self.new[name]
        offered = evening.scratch / "server" / "files"
        offered.mkdir(parents=True)
        for name, (_, data) in self.new.items():
            (offered / name).write_bytes(data)
        if endless:     # more than comes while somebody looks and presses a button
            os.truncate(offered / endless, 256 << 20)
        order = sorted(self.new, key=lambda name: name != "Readme.txt")
        order.insert(1, order.pop(order.index("Maps.dat")))       # small, large, and the others
        config = {**TWO_LOBBIES, "files": [{"name": n, "directory": self.new[n][0]} for n in order]}
        public = ""
        if key:
            config["updateKey"] = "update.key"
            made = subprocess.run([PROGRAMS / "ardvelle-server", "--make-update-key", offered.parent / "update.key"],
                                  check=True, capture_output=True, text=True, timeout=PATIENCE)
            public = made.stdout.split()[-1]
        self.server = evening.server(config, "--open-accounts")
        self.offered = offered

        self.ann = evening.client("Ann", "--real=process,register", lobbies=("Chess", "Go"),
                                  under=OWN_MOUNTS if small_disk else ())
        self.home = self.ann.home
        if small_disk:
            client, folder = self.ann.process.pid, self.home / DIRECTORIES[1]
            folder.mkdir(parents=True)
            # With room for the copy of the client whose version is looked at.
            size = (16 << 20) + 2 * sum(len(data) for code, data in self.old.values() if code == 1)
            subprocess.run(["nsenter", f"--target={client}", "--user", "--mount", "--preserve-credentials", "mount",
                            "-t", "tmpfs", "-o", f"size={size}", "tmpfs", folder], check=True, timeout=PATIENCE)
            self.home = pathlib.Path(f"/proc/{client}/root") / self.home.relative_to("/")
        if not packaged:
            install(self.home, self.old)
            for name, value in (("ClientDirectory", self.ann.home), ("UpdateKey", public)):
                self.ann.do("setting", section="Settings", key=name, value=str(value))
        self.ann.do("show")
        self.ann.log_on(self.server)

    def begin(self):
        equal(self.ann.reads_box(), QUESTION, "the question")
        until("the dialog", lambda: self.ann.top() == "DownloadProgress")

    def reaches_file(self, number):
        """Looks all the time: who lets the client go on until it is quiet sees the last file."""
        wanted = f"Downloading file {number} of"
        until(wanted, lambda: self.ann.get("DownloadProgress.DPLabel")["caption"].startswith(wanted))

    def sees_the_end(self):
        """The client asks to be ended, and nothing has changed on the disk. The boxes that came before."""
        texts = []
        while not self.ann.happened("CloseClient"):
            self.ann.until("a box or the wish to end", lambda: self.ann.top() == "MessageBox"
                           or self.ann.happened("CloseClient"))
            if self.ann.top() == "MessageBox":
                texts.append(self.ann.reads_box())
        equal(installed(self.home, self.old), set(self.old), "the old files")
        equal(left_over(self.home), [], "files left over")
        return texts

    def ends_like_a_cancel(self, *reasons):
        """The first of the boxes gives the reasons; answers how many there were."""
        texts = self.sees_the_end()
        equal([reason for reason in reasons if reason not in texts[0]], [], f"reasons that are not in {texts}")
        equal(texts[-1].startswith("Download canceled."), True, f"the end of {texts}")
        return len(texts)

    def is_put_in_place(self):
        """The dialog is done, the client ends, the patcher does its part, and the new client is there."""
        self.begin()
        self.ann.until("the end of the transfer", lambda: self.ann.get("DownloadProgress.OK")["visible"])
        self.ann.press("DownloadProgress.OK")
        self.ann.until("the wish to end", lambda: self.ann.happened("CloseClient"))
        equal(self.ann.quit(), 0, "the exit status of the old client")
        until("the end of the hand-over", lambda: "OBPatch: the hand-over ends" in self.ann.log())
        end_client(self.home)


def running(program):
    """The processes that run this very file."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):      # it has just ended, or is not ours
            if os.readlink(process / "exe") == str(program.resolve()):
                found.append(int(process.name))
    return found


def end_client(home):
    """The client that the patcher has started, with a window where there is one, is there and ends when asked."""
    program = place(home, "OmbrinExe.exe", 1)
    if not HAS_WINDOW:
        return      # without input it has ended by itself
    for process in until("the new client", lambda: running(program)):
        os.kill(process, signal.SIGTERM)
    until("the end of the new client", lambda: not running(program))


@case
def a_signed_update_is_fetched_and_put_in_place_and_the_new_client_starts(evening):
    update = Update(evening, key=True)
    update.is_put_in_place()
    equal(installed(update.home, update.new), set(update.new), "the new files")
    until("a tidy disk", lambda: not left_over(update.home))


@contextlib.contextmanager
def started(program, home):
    """A client with its window that is on its way; it may become another program."""
    client = subprocess.Popen([program, "--home", home], env={**os.environ, **NO_SCREEN}, stderr=subprocess.DEVNULL)
    try:
        yield client
    finally:
        client.kill()
        client.wait()
        for process in running(place(home, "OmbrinExe.exe", 1)):
            os.kill(process, signal.SIGKILL)


@case_if(HAS_WINDOW)
def a_packaged_client_is_renewed_in_its_home_and_gives_way_to_the_new_one(evening):
    home = evening.scratch / "Ann"
    own = place(home, "OmbrinExe.exe", 1)
    with started(PROGRAMS / "OmbrinExe", home):
        until("the way from the home to the installed client", lambda: own.is_symlink() and own.exists())
    update = Update(evening, packaged=True)
    update.is_put_in_place()
    equal(installed(home, update.new), set(update.new), "the new files")
    with started(PROGRAMS / "OmbrinExe", home) as client:
        until("the new client in place of the installed one", lambda: client.pid in running(own))
    shutil.copy(PROGRAMS / "OmbrinExe", own)
    before = update.ann.log()
    with started(PROGRAMS / "OmbrinExe", home):
        until("a line in the log", lambda: update.ann.log() != before)
        equal(running(own), [], "clients that have given way to one of the same version")


@case
def who_refuses_an_update_ends_with_his_old_files(evening):
    update = Update(evening)
    equal(update.ann.reads_box(CANCEL), QUESTION, "the question")
    equal(update.sees_the_end(), [], "boxes")


@case
def a_cancel_in_the_second_file_leaves_the_old_files_alone(evening):
    update = Update(evening, endless="Maps.dat")
    update.begin()
    update.reaches_file(2)
    update.ann.press("DownloadProgress.Cancel")
    equal(update.ends_like_a_cancel(), 1, "boxes")


@case
def a_server_that_dies_in_the_middle_leaves_the_old_files_alone(evening):
    update = Update(evening, endless="Maps.dat")
    update.begin()
    update.reaches_file(2)
    update.server.kill()
    update.ends_like_a_cancel()


@case
def with_a_key_one_wrong_byte_puts_nothing_in_place(evening):
    update = Update(evening, key=True)
    file = update.offered / "Names.txt"
    times, data = file.stat(), bytearray(file.read_bytes())
    data[40_000] ^= 1
    file.write_bytes(data)
    os.utime(file, ns=(times.st_atime_ns, times.st_mtime_ns))
    update.begin()
    update.ends_like_a_cancel("Names.txt")


@case
def with_a_key_a_file_that_cannot_be_written_puts_nothing_in_place(evening):
    update = Update(evening, key=True)
    (update.home / "system" / "Names7.txt").mkdir()
    update.begin()
    update.ends_like_a_cancel("Names.txt")


@case_if(HAS_OWN_MOUNTS)
def with_a_key_a_disk_that_fills_up_puts_nothing_in_place(evening):
    update = Update(evening, key=True, small_disk=True)
    update.ann.until("the question", lambda: update.ann.top() == "MessageBox")
    with open(update.home / DIRECTORIES[1] / "of.others", "wb", buffering=0) as others:
        try:
            while others.write(bytes(1 << 16)):
                pass
        except OSError:
            others.truncate(others.tell() - (1 << 20))       # room for the sums and the first file
    update.begin()
    update.ends_like_a_cancel("Maps.dat: it is too short.")


@case
def a_target_that_is_read_only_stays_and_the_client_is_renewed_all_the_same(evening):
    update = Update(evening)
    place(update.home, "Names.txt", 2).chmod(0o444)
    update.is_put_in_place()
    equal(installed(update.home, update.old), {"Names.txt", "Places.txt"}, "what could not be put in place, and what "
          "stands behind it")
    equal(update.ann.log().count("Error: occured in module CopyTemporaryFiles().  Error number: 75"), 1, "complaints")


@case_if(HAS_WINDOW)
def a_client_started_over_a_broken_hand_over_finishes_it_first(evening):
    old, new = release(OLDER), release(NEWER)
    home = evening.scratch / "Ann"
    install(home, old)
    (home / "settings.ini").write_text(f"[Settings]\nClientDirectory={home}\n")
    # As a patcher leaves it that was killed between two files.
    (home / "system" / "OBPatch.state").write_text("placing\n")
    shutil.copy(place(home, "Ping.ocx", 2), home / "system" / "Ping8.ocx")
    place(home, "Ping.ocx", 2).write_bytes(new["Ping.ocx"][1])
    (home / "system" / "Ombrin7.ocx").write_bytes(new["Ombrin.ocx"][1])
    (home / "Client" / "OmbrinExe7.exe").write_bytes(new["OmbrinExe.exe"][1])

    with started(place(home, "OmbrinExe.exe", 1), home) as client:
        equal(client.wait(PATIENCE), 0, "the exit status of the client that became the patcher")
        end_client(home)
    equal(installed(home, new), HANDED_OVER, "the new files")
    equal(left_over(home), [], "files left over")
