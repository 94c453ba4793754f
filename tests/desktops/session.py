# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A session on a screen of its own: the X server, the buses, the desktop's programs, Quillbar."""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

WIDTH, HEIGHT = 1280, 800
LOOKS = 5
# Sway refuses root; this user exists everywhere and owns nothing.
NOBODY = 65534
# In /proc/PID/stat behind the program's name: the session, and the time in it and in the kernel.
SESSION_FIELD, TICKS_FIELDS = 3, (11, 12)
ENDPOINTS = {"ca-file": "QUILLBAR_CA_FILE", "rest": "QUILLBAR_REST_ENDPOINTS",
             "stream": "QUILLBAR_STREAM_ENDPOINTS", "market-caps": "QUILLBAR_MARKETCAP_ENDPOINT",
             "icons": "QUILLBAR_ICON_ENDPOINT"}


class Failure(Exception):
    """Something did not come about in time; the text says what."""


def wait_for(what, question, patience=30.0, pause=0.2):
    """The first true answer of the question; a Failure once the patience is over."""
    end = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failure(f"{what}: not within {patience:g} s")
        time.sleep(pause)


def files_in(folder):
    """The files of a folder, each with what tells it from another that takes its place."""
    found = {}
    for path in folder.iterdir():
        try:
            state = path.lstat()
        except FileNotFoundError:
            continue
        found[path] = state.st_ino, state.st_ctime_ns
    return found


class Session:
    """Ends everything that it started, and removes its folder."""

    def __init__(self, programs, *, plain_user):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillbar-desktop-"))
        self._user = NOBODY if plain_user and os.geteuid() == 0 else None
        self._processes = {}
        self.home = self._make("home")
        self.runtime = self._make("runtime", 0o700)
        self._logs = self._make("logs")
        self._bin = self._make("bin")
        for name in ("quillbar", "quillbar-simulator"):
            shutil.copy2(programs / name, self._bin)
        self._give(self.folder)
        self.folder.chmod(0o755)
        self.variables = {"PATH": os.environ["PATH"], "HOME": str(self.home), "TZ": "UTC",
                          "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": str(self.runtime),
                          "NO_AT_BRIDGE": "1"}
        # What programs inside a nested compositor see instead of the variables.
        self.inside = {}
        self._control = None
        self._system_files = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for name in reversed(list(self._processes)):
            self.stop(name)
        self._end_strays()
        for path in self._system_files:
            path.unlink(missing_ok=True)
        shutil.rmtree(self.folder, ignore_errors=True)

    def _give(self, path):
        if self._user is not None:
            os.chown(path, self._user, self._user)

    def _make(self, name, mode=0o755):
        path = self.folder / name
        path.mkdir(mode=mode)
        self._give(path)
        return path

    def write(self, name, text):
        """A file below the home folder."""
        path = self.home / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        for part in (path, *path.relative_to(self.home).parents):
            self._give(self.home / part)
        return path

    def write_system(self, path, text):
        """A file outside the folder, for desktops that read it nowhere else."""
        self._system_files.append(pathlib.Path(path))
        pathlib.Path(path).write_text(text, encoding="utf-8")

    # Programs.

    def spawn(self, name, *command, pass_fds=(), **variables):
        """Starts a program that goes on running, known by `name`; its output is the log."""
        with open(self._logs / name, "ab") as log:
            self._processes[name] = subprocess.Popen(
                [str(word) for word in command], cwd=self.home, env={**self.variables, **variables},
                stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True,
                pass_fds=pass_fds, **self._identity())

    def call(self, *command, patience=15, **variables):
        """What a program that ends has printed; None where it failed."""
        try:
            done = subprocess.run([str(word) for word in command], cwd=self.home, check=False,
                                  env={**self.variables, **variables}, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                  timeout=patience, **self._identity())
        except subprocess.TimeoutExpired:
            return None
        return done.stdout if done.returncode == 0 else None

    def text(self, *command, **variables):
        return (self.call(*command, **variables) or b"").decode("utf-8", "replace")

    def _identity(self):
        if self._user is None:
            return {}
        return {"user": self._user, "group": self._user, "extra_groups": []}

    def is_running(self, name):
        return name in self._processes and self._processes[name].poll() is None

    def stop(self, name, how=signal.SIGTERM):
        """Ends a program of this session and those that it started."""
        process = self._processes.pop(name, None)
        if process is None:
            return
        for sign in (how, signal.SIGKILL):
            try:
                os.killpg(process.pid, sign)
                process.wait(timeout=5)
            except (ProcessLookupError, subprocess.TimeoutExpired):
                continue

    def _end_strays(self):
        """Ends what the bus and the desktop's programs have started apart from their sessions."""
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if self._is_ours(process):
                    os.kill(int(process.name), signal.SIGKILL)
            except OSError:
                continue

    def log(self, name):
        path = self._logs / name
        return path.read_text(encoding="utf-8", errors="replace") if path.exists() else ""

    def ended_programs(self):
        """The names of those that were to go on running and did not."""
        return [name for name in self._processes if not self.is_running(name)]

    def processor_seconds(self, name):
        """What a program, and those that it started, have used so far."""
        leader = self._processes[name].pid
        return self._seconds_of(lambda _, fields: int(fields[SESSION_FIELD]) == leader)

    def processor_seconds_of(self, programs):
        """The same of programs that the bus has started, by the names of their files."""
        return self._seconds_of(lambda process, _: self._is_ours(process)
                                and self._program_of(process) in programs)

    @staticmethod
    def _seconds_of(is_meant):
        ticks = 0
        for path in pathlib.Path("/proc").glob("[0-9]*/stat"):
            try:
                fields = path.read_text(encoding="utf-8").rpartition(")")[2].split()
                if is_meant(path.parent, fields):
                    ticks += sum(int(fields[field]) for field in TICKS_FIELDS)
            except (OSError, UnicodeDecodeError):
                continue
        return ticks / os.sysconf("SC_CLK_TCK")

    @staticmethod
    def _program_of(process):
        command = (process / "cmdline").read_bytes().split(b"\0")[0]
        return pathlib.Path(os.fsdecode(command)).name

    def _is_ours(self, process):
        """Whether it runs in this session, also when the bus has started it."""
        return f"HOME={self.home}".encode() in (process / "environ").read_bytes().split(b"\0")

    # What every desktop stands on.

    def start_server(self):
        # Without -noreset the end of the last client takes the desktop's colour away again.
        number = self._told("server", "Xvfb", "-displayfd", "{}", "-screen", "0",
                            f"{WIDTH}x{HEIGHT}x24", "-dpi", "96", "-noreset")
        self.variables["DISPLAY"] = f":{number}"

    def start_bus(self):
        """The bus of the session, and one that a desktop may take for the system's."""
        for name, variable in (("bus", "DBUS_SESSION_BUS_ADDRESS"),
                               ("system-bus", "DBUS_SYSTEM_BUS_ADDRESS")):
            self.variables[variable] = self._told(name, "dbus-daemon", "--session", "--nofork",
                                                  "--nopidfile", "--print-address={}")

    def activate_environment(self):
        """What the bus starts sees the session's variables. Before any portal."""
        self.call("dbus-update-activation-environment", *self.variables)

    def _told(self, name, *command):
        reader, writer = os.pipe()
        self.spawn(name, *(word.format(writer) for word in command), pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader, encoding="utf-8") as lines:
            line = lines.readline().strip()
        if not line:
            raise Failure(f"{name} did not start: {self.log(name)[-300:]}")
        return line

    def start_compositor(self, *command, **variables):
        """A Wayland compositor in a window of the X server; programs inside see it."""
        displays = pathlib.Path("/tmp/.X11-unix")
        # A server that was killed has left its socket, and the next one takes the same number.
        before = files_in(displays).items()
        self.spawn("compositor", *command, **variables)

        def sockets():
            wayland = [path for path in self.runtime.glob("wayland-*") if path.is_socket()]
            x11 = sorted(path for path, _ in files_in(displays).items() - before)
            return (wayland[0], x11[0]) if wayland and x11 else None
        wayland, x11 = wait_for("the compositor", sockets)
        self.inside = {**variables, "WAYLAND_DISPLAY": wayland.name, "DISPLAY": f":{x11.name[1:]}",
                       "XDG_SESSION_TYPE": "wayland"}
        for authority in self.runtime.glob(".mutter-Xwaylandauth.*"):
            self.inside["XAUTHORITY"] = str(authority)

    def look(self, *form):
        """What the screen shows, in a form of ImageMagick's; nothing where that cannot be told."""
        for _ in range(LOOKS):
            # One look in some hundreds fails, and the next one does not.
            picture = self.call("import", "-silent", "-window", "root", *form, patience=60)
            if picture:
                return picture
            time.sleep(0.3)
        return b""

    def keep_picture(self, path, part=None):
        """Keeps what the screen shows, or a part of it such as 320x28+960+0, as a file."""
        crop = ("-crop", part, "+repage") if part else ()
        path.write_bytes(self.look(*crop, "-define", "png:compression-level=1", "png:-"))

    def keep_logs(self, path):
        """Keeps what the desktop's programs and the application have said, as one file."""
        path.write_text("".join(f"== {log.name}\n{self.log(log.name)}"
                                for log in sorted(self._logs.iterdir())), encoding="utf-8")

    # The exchange and the application.

    def start_exchange(self):
        self.spawn("exchange", self._bin / "quillbar-simulator", "--ca-file",
                   self.runtime / "ca.pem")
        wait_for("the exchange", lambda: "\nready" in self.log("exchange"))
        for line in self.log("exchange").splitlines():
            name, _, value = line.partition(" ")
            if name in ENDPOINTS:
                self.variables[ENDPOINTS[name]] = value
            elif name == "control":
                self._control = value

    def move_market(self):
        """Minutes of the market at once, so that what the item shows changes."""
        self.call("wget", "-q", "-O", "-", f"{self._control.rstrip('/')}/tick?steps=200")

    def start_application(self):
        self.spawn("quillbar", self._bin / "quillbar", "--background", **self.inside)

    def command(self, *options):
        """Runs the program a second time; true when it says that all went well."""
        return self.call(self._bin / "quillbar", *options, **self.inside) is not None

    def has_host(self):
        """Whether a host of the newer protocol is there."""
        return "boolean true" in self.text(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus",
            "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner",
            "string:org.kde.StatusNotifierWatcher")

    def registered_items(self):
        """How many items the host of the newer protocol has, ours and others'."""
        answer = self.text(
            "dbus-send", "--session", "--print-reply", "--dest=org.kde.StatusNotifierWatcher",
            "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get",
            "string:org.kde.StatusNotifierWatcher", "string:RegisteredStatusNotifierItems")
        return len(re.findall(r'string "', answer))
