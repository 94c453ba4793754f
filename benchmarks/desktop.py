# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The application on a desktop of its own: a screen (Xvfb), a session bus, and the bar that the
desktop benchmark plays.

From start to item: from before the process is made until its item is registered at the bar. An
opening: from before the bar sends its click until the panel's frame, its rows in it, has been painted
and the X server has answered a question asked after it; what the application does at its start is
done by then. All on the machine's one steady clock.
"""
import contextlib
import json
import os
import pathlib
import ssl
import statistics
import tempfile
import time
import urllib.request

from processes import MeasurementFailed, Program, environment_of, started
from rows import Row
from usage import Limit, is_priced, usage_of

STARTS = 9
PANELS = 5
OPENINGS = 5
CLOSED_LIMIT = Limit(resident_megabytes=40, processor_percent=0.3)
OPEN_LIMIT = Limit(resident_megabytes=55, processor_percent=1.5)
# Then the application gives back what it needed for its start; a panel opened before would be part of
# that, and look smaller than it is.
START_LASTS_SECONDS = 12
FLOOD_A_SECOND = 2000
FLOOD_SECONDS = 30
# The bar takes no more than one click of a double click.
BETWEEN_CLICKS_SECONDS = 0.8


def moment(line):
    """When what the line says was, in nanoseconds."""
    return int(line.split(" ")[1])


class Desktop:
    """Where the application is at home."""

    def __init__(self, programs, stack, folder):
        self._programs = programs
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
        self.bar = stack.enter_context(started(programs.desktop, "tray-host",
                                               environment=self._environment))

    def environment(self, exchange, home):
        return environment_of(exchange, home, self._environment)

    def panel(self, exchange, home, between_refreshes=""):
        """The application with a watch on its frames; the seconds between two refreshes of a board
        may be others than its own."""
        return Program([self._programs.desktop, "panel", between_refreshes],
                       self.environment(exchange, home))

    def application(self, exchange, home):
        return Program([self._programs.application], self.environment(exchange, home))

    def milliseconds_to_item(self, exchange, home):
        seen = len(self.bar.output.lines)
        with self.application(exchange, home) as application:
            line = self.bar.awaited(lambda line: line.startswith("registered "), "an item", seen)
            return (moment(line) - application.began) / 1e6

    def await_price(self, seen):
        self.bar.awaited(is_priced, "a price", seen)

    def milliseconds_to_panel(self, panel):
        """From a click to the panel's frame."""
        clicks = len(self.bar.output.lines)
        frames = len(panel.output.lines)
        self.bar.tell("click")
        click = moment(self.bar.awaited(lambda line: line.startswith("clicked "), "the click",
                                        clicks))
        frame = panel.awaited(
            lambda line: line.startswith("frame ") and int(line.split(" ")[2]) > 0, "a frame",
            frames)
        return (moment(frame) - click) / 1e6

    def close(self, panel):
        seen = len(panel.output.lines)
        self.bar.tell("click")
        panel.awaited(lambda line: line.startswith("hidden "), "the end of the panel", seen)

    def openings(self, exchange, home):
        """The first opening of a panel, and the median of the later ones, in milliseconds."""
        seen = len(self.bar.output.lines)
        with self.panel(exchange, home) as panel:
            self.await_price(seen)
            settle(panel)
            later = []
            for _ in range(OPENINGS):
                time.sleep(BETWEEN_CLICKS_SECONDS)
                later.append(self.milliseconds_to_panel(panel))
                time.sleep(BETWEEN_CLICKS_SECONDS)
                self.close(panel)
        return later[0], statistics.median(later[1:])


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
    folder.mkdir()
    (folder / "watchlist.json").write_text(
        json.dumps({"schemaVersion": 1, "coins": coins, "pinnedSymbol": "BTCUSDT"}),
        encoding="utf-8")


def below(what, measured, limit, unit="ms"):
    return Row(what, f"{measured:.1f} {unit}", target=f"< {limit} {unit}", holds=measured < limit)


def start_rows(desktop, exchange):
    with tempfile.TemporaryDirectory() as home:
        times = [desktop.milliseconds_to_item(exchange, home) for _ in range(STARTS)]
    yield below("quillbar: start to registered item", statistics.median(times), 200)


def opening_rows(desktop, exchange, many):
    firsts, laters = {4: [], 20: [], 1000: []}, {4: [], 20: [], 1000: []}
    with contextlib.ExitStack() as stack:
        homes = {count: stack.enter_context(tempfile.TemporaryDirectory()) for count in firsts}
        watch(homes[20], many, 20)
        watch(homes[1000], many, 1000)
        for _ in range(PANELS):
            for count, home in homes.items():
                first, later = desktop.openings(exchange if count == 4 else many, home)
                firsts[count].append(first)
                laters[count].append(later)
    for what, times, limit in (("first opening", firsts, 80), ("later openings", laters, 16)):
        middle = {count: statistics.median(values) for count, values in times.items()}
        yield below(f"panel: {what}, 4 coins", middle[4], limit)
        row = below(f"panel: {what}, 1,000 coins", middle[1000], limit)
        ratio = middle[1000] / middle[20]
        row.alternative, row.alternative_measured = "20 coins", f"{middle[20]:.1f} ms"
        row.ratio, row.target = f"{1 / ratio:.2f}", f"{row.target}, 0.83 times"
        row.holds = row.holds and ratio < 1.2
        yield row


def size_rows(desktop, exchange, seconds):
    with tempfile.TemporaryDirectory() as home, desktop.application(exchange, home) as program:
        usage = usage_of(program, desktop.bar, is_priced, seconds)
    yield from usage.rows(f"quillbar after {seconds} s", CLOSED_LIMIT)
    with tempfile.TemporaryDirectory() as home, desktop.panel(exchange, home) as program:
        def open_late():
            time.sleep(START_LASTS_SECONDS)
            desktop.milliseconds_to_panel(program)
        usage = usage_of(program, desktop.bar, is_priced, seconds + START_LASTS_SECONDS, open_late)
        if len(program.output.lines) < seconds / 4:
            raise MeasurementFailed("the panel painted too few frames")
    yield from usage.rows(f"quillbar, panel open, after {seconds} s", OPEN_LIMIT)


def flood_rows(desktop, exchange):
    with tempfile.TemporaryDirectory() as home:
        watch(home, exchange, 1000)
        seen = len(desktop.bar.output.lines)
        with desktop.panel(exchange, home) as panel:
            desktop.await_price(seen)
            desktop.milliseconds_to_panel(panel)
            time.sleep(FLOOD_SECONDS)
            own, processor = panel.kib("status", "RssAnon"), panel.processor_seconds()
            begin = time.monotonic()
            time.sleep(FLOOD_SECONDS)
            percent = 100 * (panel.processor_seconds() - processor) / (time.monotonic() - begin)
            growth = (panel.kib("status", "RssAnon") - own) / 1024
            delay = milliseconds_to_label(desktop, exchange)
    sent = [line.split(" ") for line in exchange.output.lines if line.startswith("sent ")][-20:]
    rate = 1e9 * (int(sent[-1][2]) - int(sent[0][2])) / (int(sent[-1][1]) - int(sent[0][1]))
    if rate < 0.95 * FLOOD_A_SECOND:
        raise MeasurementFailed(f"the exchange sent only {rate:.0f} prices a second")
    name = f"panel of 1,000 coins, {rate:.0f} prices a second"
    yield below(f"{name}: processor", percent, 15, "%")
    yield below(f"{name}: growth of its own memory in {FLOOD_SECONDS} s", growth, 1, "MB")
    # The label changes at most once a second.
    yield below(f"{name}: the last one to the label", delay, 1100)


def milliseconds_to_label(desktop, exchange):
    """From when the exchange sends its last price until the bar has it."""
    labels, said = len(desktop.bar.output.lines), len(exchange.output.lines)
    exchange.tell("last")
    sent = moment(exchange.awaited(lambda line: line.startswith("last "), "the last price", said))
    label = desktop.bar.awaited(
        lambda line: line.startswith("label ") and "77,777.77" in line, "the last price", labels)
    return (moment(label) - sent) / 1e6


def desktop_rows(programs, seconds):
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        desktop = Desktop(programs, stack, folder)
        exchange = stack.enter_context(started(programs.simulator))
        yield from start_rows(desktop, exchange)
        with started(programs.desktop, "flood", "1") as many:
            yield from opening_rows(desktop, exchange, many)
        yield from size_rows(desktop, exchange, seconds)
        with started(programs.desktop, "flood", str(FLOOD_A_SECOND)) as flood:
            yield from flood_rows(desktop, flood)
