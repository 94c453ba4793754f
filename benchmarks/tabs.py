# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The panel's tabs, on the desktop of desktop.py, with an exchange of 2,500 pairs.

A switch: from before the bar's pointer presses a tab until a frame with content of that tab, in the
panel's new size, has been painted and the X server has answered a question asked after it. A
refresh: how long the panel's event loop was away at most while a board was refreshed again and
again. Scrolling: the frames that the X server had while the pointer's wheel turned 60 times a second.
"""
import contextlib
import itertools
import statistics
import tempfile
import time

from desktop import (BETWEEN_CLICKS_SECONDS, OPEN_LIMIT, START_LASTS_SECONDS, Desktop, below, moment,
                     settle, watch)
from processes import MeasurementFailed, started
from rows import Row
from usage import is_priced, usage_of

PAIRS = 2500
WATCHED = 20
TABS = ["watchlist", "gainers", "losers", "volume", "market caps"]
WATCHLIST, MARKET_CAPS = 0, 4
ROUNDS = 5
SWITCH_LIMIT = 16
BLOCK_LIMIT = 8
FRAMES_A_SECOND = 60
# Longer than a refresh takes, so that each is one of its own.
BETWEEN_REFRESHES_SECONDS = 0.5
REFRESHES_LAST_SECONDS = 15
# Until a board has its first data and its logos, and all frames of a switch have been painted.
LOADING_LASTS_SECONDS = 3
SWITCH_LASTS_SECONDS = 0.4
POINTER_SETTLES_SECONDS = 0.1


def fields(line):
    return [int(field) for field in line.split(" ")[1:]]


class TabbedPanel:
    """An open panel whose tabs the bar's pointer presses."""

    def __init__(self, desktop, program):
        self._bar = desktop.bar
        self.program = program
        settle(program)
        desktop.milliseconds_to_panel(program)
        time.sleep(BETWEEN_CLICKS_SECONDS)

    def _place(self, tab):
        """Where a tab is: the panel may have grown upwards since it was pressed last."""
        seen = len(self.program.output.lines)
        self.program.tell("tabs")
        self.program.awaited(lambda _: len(self._said("tab", seen)) == len(TABS), "the tabs", seen)
        return fields(self._said("tab", seen)[tab])[1:]

    def _said(self, what, seen):
        return [line for line in self.program.output.lines[seen:] if line.startswith(what + " ")]

    def switch(self, tab):
        """Presses a tab; the milliseconds until its frame."""
        self.point(*self._place(tab))
        time.sleep(POINTER_SETTLES_SECONDS)
        said, seen = len(self._bar.output.lines), len(self.program.output.lines)
        rows = self._rows(seen)
        self._bar.tell("press")
        pressed = moment(self._bar.awaited(lambda line: line.startswith("pressed "), "a press", said))
        self.program.awaited(
            lambda line: line.startswith("frame ") and fields(line)[1] > rows,
            f"the tab of the {TABS[tab]}", seen)
        time.sleep(SWITCH_LASTS_SECONDS)
        frames = [fields(line) for line in self._said("frame", seen)]
        return next((when - pressed) / 1e6 for when, painted, height in frames
                    if painted > rows and height == frames[-1][2])

    def _rows(self, seen):
        lines = [line for line in self.program.output.lines[:seen] if line.startswith("frame ")]
        return fields(lines[-1])[1]

    def point(self, x, y):
        self._bar.tell(f"point {x} {y}")

    def longest_block(self, seconds, meanwhile=lambda: None):
        """In milliseconds, and how many sleeps between refreshes began meanwhile."""
        seen = len(self.program.output.lines)
        self.program.tell("beat")
        meanwhile()
        time.sleep(seconds)
        self.program.tell("rest")
        gap = self.program.awaited(lambda line: line.startswith("gap "), "the longest gap", seen)
        return fields(gap)[1] / 1e6, len(self._said("slept", seen))

    def scrolled(self):
        """The moments of all frames with rows while the wheel turns, in seconds."""
        x, y = self._place(len(TABS) // 2)
        self.point(x, y + 200)
        time.sleep(POINTER_SETTLES_SECONDS)
        said, seen = len(self._bar.output.lines), len(self.program.output.lines)
        self._bar.tell("wheel")
        begin, end = (moment(self._bar.awaited(lambda line, what=what: line.startswith(what + " "),
                                               "the wheel", said)) for what in ("turning", "turned"))
        time.sleep(SWITCH_LASTS_SECONDS)
        frames, rows = [], self._rows(seen)
        for when, painted, _ in (fields(line) for line in self._said("frame", seen)):
            if painted > rows and begin <= when <= end:
                frames.append(when / 1e9)
            rows = painted
        if len(frames) < FRAMES_A_SECOND:
            raise MeasurementFailed("the board did not scroll")
        return frames


@contextlib.contextmanager
def opened(desktop, exchange, between_refreshes=""):
    with tempfile.TemporaryDirectory() as home:
        watch(home, exchange, WATCHED)
        seen = len(desktop.bar.output.lines)
        with desktop.panel(exchange, home, between_refreshes) as program:
            desktop.await_price(seen)
            yield TabbedPanel(desktop, program)


def there_and_back(tabs):
    """Each ordered pair of the tabs once, hardly any of them beginning elsewhere than the one before
    has ended."""
    for tab, other in itertools.combinations(tabs, 2):
        yield tab, other
        yield other, tab


def kind(start, end):
    if end == WATCHLIST:
        return "board to watchlist"
    return "watchlist to board" if start == WATCHLIST else "board to board"


def switch_rows(desktop, exchange):
    first = {}
    for tab in range(1, len(TABS)):
        with opened(desktop, exchange) as panel:
            first[tab] = panel.switch(tab)
            time.sleep(LOADING_LASTS_SECONDS)
    slowest = max(first, key=first.get)
    yield below(f"panel: the first board since its start ({TABS[slowest]})", first[slowest],
                SWITCH_LIMIT)
    with opened(desktop, exchange) as panel:
        later = {pair: [] for pair in itertools.permutations(range(len(TABS)), 2)}
        for tab in [*range(1, len(TABS)), WATCHLIST]:
            panel.switch(tab)
            time.sleep(LOADING_LASTS_SECONDS)
        here = WATCHLIST
        for _ in range(ROUNDS):
            for start, end in there_and_back(range(len(TABS))):
                if start != here:
                    later[here, start].append(panel.switch(start))
                later[start, end].append(panel.switch(end))
                here = end
    for what in ("watchlist to board", "board to board", "board to watchlist"):
        times = {pair: values for pair, values in later.items() if kind(*pair) == what}
        start, end = max(times, key=lambda pair, of=times: statistics.median(of[pair]))
        row = below(f"panel: {what}, slowest pair ({TABS[start]} to {TABS[end]})",
                    statistics.median(times[start, end]), SWITCH_LIMIT)
        row.alternative = "slowest switch"
        row.alternative_measured = f"{max(itertools.chain(*times.values())):.1f} ms"
        yield row


def refresh_rows(desktop, exchange):
    with opened(desktop, exchange, str(BETWEEN_REFRESHES_SECONDS)) as panel:
        # What the application does once, some time after its start, is no part of this.
        time.sleep(START_LASTS_SECONDS)
        idle, others = panel.longest_block(REFRESHES_LAST_SECONDS)
        first, _ = panel.longest_block(LOADING_LASTS_SECONDS, lambda: panel.switch(MARKET_CAPS))
        for tab in (1, MARKET_CAPS):
            panel.switch(tab)
            time.sleep(LOADING_LASTS_SECONDS)
            block, sleeps = panel.longest_block(REFRESHES_LAST_SECONDS)
            refreshes = sleeps - others
            if refreshes < REFRESHES_LAST_SECONDS:
                raise MeasurementFailed(f"only {refreshes} refreshes of a board")
            row = below(f"panel: {refreshes} refreshes of 2,500 tickers ({TABS[tab]}), longest block",
                        block, BLOCK_LIMIT)
            row.alternative, row.alternative_measured = "without a board", f"{idle:.1f} ms"
            yield row
    yield Row("panel: the first board with all that it loads, longest block", f"{first:.1f} ms")


def scroll_rows(desktop, exchange):
    with opened(desktop, exchange) as panel:
        panel.switch(MARKET_CAPS)
        time.sleep(LOADING_LASTS_SECONDS)
        # Once for the logos of the rows further down.
        panel.scrolled()
        frames = panel.scrolled()
    rate = (len(frames) - 1) / (frames[-1] - frames[0])
    worst = 1000 * max(later - earlier for earlier, later in zip(frames, frames[1:]))
    yield Row("panel: scrolling the board of market caps", f"{rate:.1f} /s",
              target=f"{FRAMES_A_SECOND} /s", holds=round(rate) >= FRAMES_A_SECOND)
    yield Row("panel: scrolling, longest time between two frames", f"{worst:.1f} ms")


def size_rows(desktop, exchange, seconds):
    with tempfile.TemporaryDirectory() as home, desktop.panel(exchange, home) as program:
        def open_board():
            time.sleep(START_LASTS_SECONDS)
            TabbedPanel(desktop, program).switch(MARKET_CAPS)
        usage = usage_of(program, desktop.bar, is_priced, seconds + START_LASTS_SECONDS, open_board)
    yield from usage.rows(f"quillbar, board of market caps open, after {seconds} s", OPEN_LIMIT)


def tab_rows(programs, seconds):
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory())
        desktop = Desktop(programs, stack, folder)
        exchange = stack.enter_context(started(programs.simulator, "--symbols", str(PAIRS)))
        yield from switch_rows(desktop, exchange)
        yield from refresh_rows(desktop, exchange)
        yield from scroll_rows(desktop, exchange)
        yield from size_rows(desktop, exchange, seconds)
