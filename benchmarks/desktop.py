# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A desktop of its own for the application: a screen (Xvfb), a session bus, and the bar that the
desktop benchmark plays.

What keeps the user waiting is judged by the processor time of the application's main thread, which
another busy program hardly changes; the time on the clock stands beside it. An opening: from
before the bar sends its click until the panel's frame, its rows in it, has been painted and the X
server has answered a question asked after it. All clocks are the machine's one steady clock.
"""
import contextlib
import dataclasses
import json
import os
import pathlib
import ssl
import statistics
import tempfile
import time
import urllib.request

from processes import (MeasurementFailed, Program, environment_of, environment_without_exchange)
from rows import Row
from usage import is_priced

# The bar takes no more than one click of a double click.
BETWEEN_CLICKS_SECONDS = 0.8


@dataclasses.dataclass
class Took:
    """Milliseconds: of the main thread's processor time, and on the clock."""
    processor: float
    wall: float


def took_row(what, times, limit):
    """Judges the median of the processor times; beside it the median and longest on the clock."""
    walls = [took.wall for took in times]
    measured = statistics.median(took.processor for took in times)
    return Row(what, f"{measured:.1f} ms", "on the clock, longest",
               f"{statistics.median(walls):.1f} ms, {max(walls):.1f} ms",
               target=f"< {limit} ms", holds=measured < limit)


def fields(line):
    """The numbers of a line after its first word."""
    return [int(field) for field in line.split(" ")[1:]]


def moment(line):
    """When what the line says was, in nanoseconds."""
    return int(line.split(" ")[1])


def processor_of(program):
    """The processor time of the program's main thread, in nanoseconds."""
    seen = len(program.output.lines)
    program.tell("processor")
    return fields(program.awaited(lambda line: line.startswith("processor "), "its time", seen))[1]


class Desktop:
    """Where the application is at home. Ends with the stack."""

    def __init__(self, programs, stack):
        self._programs = programs
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        screen = stack.enter_context(Program(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp"]))
        number = screen.awaited(str.isdecimal, "the screen")
        bus = stack.enter_context(Program(["dbus-daemon", "--session", "--nofork",
                                           "--print-address"]))
        address = bus.awaited(bool, "the bus")
        self._environment = {key: value for key, value in os.environ.items()
                             if key not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        self._environment |= {"DISPLAY": f":{number}", "DBUS_SESSION_BUS_ADDRESS": address,
                              "HOME": folder, "XDG_RUNTIME_DIR": folder}
        self.bar = stack.enter_context(programs.started_apart(
            "quillbar-desktop-benchmark", "tray-host", environment=self._environment))

    def panel(self, exchange, home, between_refreshes=""):
        """The application with a watch on its frames; the seconds between two refreshes of a board
        may be others than its own. It opens as it does when it is not the first time."""
        folder = pathlib.Path(home, "Quillbar")
        folder.mkdir(exist_ok=True)
        (folder / "panel-opened").touch()
        return Program([*self._programs.panel, between_refreshes],
                       environment_of(exchange, home, self._environment))

    def application(self, exchange, home):
        return Program([self._programs.application],
                       environment_of(exchange, home, self._environment))

    def bare_item(self):
        """The least program of widgets that has an item."""
        return Program([self._programs.path("quillbar-bare-item")], self._environment)

    def milliseconds_to_item(self, program, home):
        """From before the process is made until its item is registered at the bar, with nobody
        where the exchange is."""
        seen = len(self.bar.output.lines)
        environment = environment_without_exchange(home, self._environment)
        with Program([self._programs.path(program)], environment) as started:
            line = self.bar.awaited(lambda line: line.startswith("registered "), "an item", seen)
            return (moment(line) - started.began) / 1e6

    def await_price(self, seen):
        self.bar.awaited(is_priced, "a price", seen)

    def open(self, panel):
        """Clicks the item; what the panel's frame took."""
        clicks = len(self.bar.output.lines)
        frames = len(panel.output.lines)
        before = processor_of(panel)
        self.bar.tell("click")
        click = moment(self.bar.awaited(lambda line: line.startswith("clicked "), "the click",
                                        clicks))
        frame, _, _, processor = fields(panel.awaited(
            lambda line: line.startswith("frame ") and fields(line)[1] > 0, "a frame", frames))
        return Took((processor - before) / 1e6, (frame - click) / 1e6)

    def close(self, panel):
        seen = len(panel.output.lines)
        self.bar.tell("click")
        panel.awaited(lambda line: line.startswith("hidden "), "the end of the panel", seen)


@contextlib.contextmanager
def desktop_of(programs):
    with contextlib.ExitStack() as stack:
        yield Desktop(programs, stack)


def settle(program):
    """Waits until the program has done what it does at its start, such as asking for the opening
    prices of all its coins."""
    deadline = time.monotonic() + 120
    while time.monotonic() < deadline:
        before = program.processor_seconds()
        time.sleep(1)
        if program.processor_seconds() - before < 0.01:
            return
    raise MeasurementFailed(f"{program.name} did not come to rest")


def watch(home, exchange, count):
    """Puts the first coins of the exchange on the watchlist."""
    addresses = environment_of(exchange, home, {})
    with urllib.request.urlopen(
            addresses["QUILLBAR_REST_ENDPOINTS"] + "/exchangeInfo",
            context=ssl.create_default_context(cafile=addresses["QUILLBAR_CA_FILE"])) as answer:
        listed = json.load(answer)["symbols"]
    coins = [{"symbol": pair["symbol"], "baseAsset": pair["baseAsset"]} for pair in listed
             if pair["quoteAsset"] == "USDT" and pair["status"] == "TRADING"][:count]
    if len(coins) < count:
        raise MeasurementFailed(f"the exchange has only {len(coins)} coins")
    folder = pathlib.Path(home, "Quillbar")
    folder.mkdir(exist_ok=True)
    (folder / "watchlist.json").write_text(
        json.dumps({"schemaVersion": 1, "coins": coins, "pinnedSymbol": "BTCUSDT"}),
        encoding="utf-8")
