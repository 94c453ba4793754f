# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Programs that the report starts, talks to in lines, and looks at from outside."""
import dataclasses
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

from apart import Apart


class MeasurementFailed(Exception):
    """Something could not be measured; the text says what and why."""


class Reader(threading.Thread):
    """Reads the lines of a pipe to its end, so that the writer never waits."""

    def __init__(self, pipe):
        super().__init__(daemon=True)
        self._pipe = pipe
        self.lines = []
        self.arrived = threading.Condition()
        self.is_at_end = False
        self.start()

    def run(self):
        for line in self._pipe:
            with self.arrived:
                self.lines.append(line.rstrip("\n"))
                self.arrived.notify_all()
        with self.arrived:
            self.is_at_end = True
            self.arrived.notify_all()

    def wait_for(self, wanted, seconds, seen=0):
        """The first line that is wanted, after as many as were seen; None when none comes in time."""
        deadline = time.monotonic() + seconds
        with self.arrived:
            while True:
                for line in self.lines[seen:]:
                    if wanted(line):
                        return line
                seen = len(self.lines)
                left = deadline - time.monotonic()
                if self.is_at_end or left <= 0:
                    return None
                self.arrived.wait(left)


class Program:
    """A running program that is talked to in lines; stopped at the end of a with statement. What it
    says on standard error is shown when the statement ends with an error."""

    def __init__(self, command, environment=None):
        self.name = pathlib.Path(command[0]).name
        self.began = time.monotonic_ns()
        self._errors = tempfile.TemporaryFile("w+", encoding="utf-8")
        self._process = subprocess.Popen(command, stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=self._errors, text=True,
                                         encoding="utf-8", env=environment)
        self.output = Reader(self._process.stdout)
        self.pid = self._process.pid

    def __enter__(self):
        return self

    def __exit__(self, error, *_):
        if error:
            self._errors.seek(0)
            sys.stderr.write(self._errors.read())
        self._errors.close()
        self._process.stdin.close()
        self._process.send_signal(signal.SIGTERM)
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def tell(self, line):
        self._process.stdin.write(line + "\n")
        self._process.stdin.flush()

    def awaited(self, wanted, what, seen=0):
        """The first line that is wanted, after as many as were seen."""
        line = self.output.wait_for(wanted, 30, seen)
        if line is None:
            raise MeasurementFailed(f"{self.name}: {what} did not come")
        return line

    def processor_seconds(self):
        # The number of the clock that counts this process's time (clock_getcpuclockid(3)): the sum
        # of user and system time, to the nanosecond where /proc counts hundredths.
        return time.clock_gettime(~self.pid << 3 | 2)

    def sizes(self, file):
        """The sizes in KiB that a file of the process tells in lines like "Rss:  123 kB"."""
        text = pathlib.Path(f"/proc/{self.pid}/{file}").read_text(encoding="utf-8")
        return {words[0].rstrip(":"): int(words[1])
                for words in (line.split() for line in text.splitlines())
                if len(words) == 3 and words[2] == "kB"}


def started(*command, environment=None):
    """A program that says "ready", which has."""
    program = Program(command, environment)
    if program.output.wait_for(lambda line: line.split(" ")[0] == "ready", 30) is None:
        with program:
            raise MeasurementFailed(f"{program.name} did not get ready")
    return program


@dataclasses.dataclass
class Programs:
    """The programs of a build, and the copies of those that only help."""
    folder: pathlib.Path
    apart: Apart

    def path(self, name):
        return str(self.folder / name)

    @property
    def application(self):
        return self.path("quillbar")

    @property
    def label(self):
        return self.path("quillbar-label")

    @property
    def panel(self):
        return [self.path("quillbar-desktop-benchmark"), "panel"]

    def started_apart(self, name, *arguments, environment=os.environ):
        return started(self.apart.copy(self.path(name)), *arguments,
                       environment=self.apart.environment(environment))

    def exchange(self, *arguments):
        """The simulator."""
        return self.started_apart("quillbar-simulator", *arguments)

    def flood(self, prices_a_second):
        """An exchange of 1,000 coins and more that sends so many prices."""
        return self.started_apart("quillbar-desktop-benchmark", "flood", str(prices_a_second))


def environment_of(simulator, home, environment=os.environ):
    """What a program needs to use the simulator and a home of its own, beside what is given."""
    addresses = dict(line.split(" ", 1) for line in simulator.output.lines if " " in line)
    return at_home(home, environment) | {
        "QUILLBAR_CA_FILE": addresses["ca-file"],
        "QUILLBAR_REST_ENDPOINTS": addresses["rest"],
        "QUILLBAR_STREAM_ENDPOINTS": addresses["stream"],
        "QUILLBAR_MARKETCAP_ENDPOINT": addresses["market-caps"],
        "QUILLBAR_ICON_ENDPOINT": addresses["icons"],
    }


def environment_without_exchange(home, environment=os.environ):
    """What a program needs to find nobody where the exchange is, beside what is given. It trusts
    the authorities that every program does."""
    nobody = "127.0.0.1:9"
    return at_home(home, environment) | {
        "QUILLBAR_REST_ENDPOINTS": f"https://{nobody}/api/v3",
        "QUILLBAR_STREAM_ENDPOINTS": f"wss://{nobody}",
        "QUILLBAR_MARKETCAP_ENDPOINT": f"https://{nobody}/api/v3",
        "QUILLBAR_ICON_ENDPOINT": f"https://{nobody}/icons",
    }


def at_home(home, environment):
    return dict(environment) | {"XDG_DATA_HOME": home, "XDG_CONFIG_HOME": home,
                                "XDG_CACHE_HOME": home}
