# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The panel's tabs, on the desktop of desktop.py, with an exchange of 2,500 pairs.

A switch: from before the bar's pointer presses a tab until a frame with content of that tab, in the
panel's new size, has been painted and the X server has answered a question asked after it. A
refresh: how much processor time the panel's main thread took at most between two beats of its event
loop, while a board was refreshed again and again. Scrolling: the frames that the X server had while
the pointer's wheel turned 60 times a second, and what each took of the main thread.
"""
import contextlib
import itertools
import statistics
import tempfile
import time

from desktop import (BETWEEN_CLICKS_SECONDS, Took, desktop_of, fields, moment, processor_of, settle,
                     took_row, watch)
from processes import MeasurementFailed
from rows import Row, below

PAIRS = 2500
WATCHED = 20
TABS = ["watchlist", "gainers", "losers", "volume", "market caps"]
WATCHLIST, MARKET_CAPS = 0, 4
ROUNDS = 5
FIRSTS = 3
SWITCH_LIMIT = 16
BLOCK_LIMIT = 8
FRAMES_A_SECOND = 60
# Half of the time that 60 frames a second leave to each: the X server needs some of it too.
FRAME_LIMIT = 8
# Longer than a refresh takes, so that each is one of its own.
BETWEEN_REFRESHES_SECONDS = 0.5
REFRESHES_LAST_SECONDS = 15
# Until a board has its first data and its logos, and all frames of a switch have been painted.
LOADING_LASTS_SECONDS = 3
SWITCH_LASTS_SECONDS = 0.4
POINTER_SETTLES_SECONDS = 0.1


class TabbedPanel:
    """An open panel whose tabs the bar's pointer presses."""

    def __init__(self, desktop, program):
        self._bar = desktop.bar
        self.program = program
        settle(program)
        desktop.open(program)
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
        """Presses a tab; what its frame took."""
        self.point(*self._place(tab))
        time.sleep(POINTER_SETTLES_SECONDS)
        said, seen = len(self._bar.output.lines), len(self.program.output.lines)
        rows = self._rows(seen)
        before = processor_of(self.program)
        self._bar.tell("press")
        pressed = moment(self._bar.awaited(lambda line: line.startswith("pressed "), "a press", said))
        self.program.awaited(
            lambda line: line.startswith("frame ") and fields(line)[1] > rows,
            f"the tab of the {TABS[tab]}", seen)
        time.sleep(SWITCH_LASTS_SECONDS)
        frames = [fields(line) for line in self._said("frame", seen)]
        return next(Took((processor - before) / 1e6, (when - pressed) / 1e6)
                    for when, painted, height, processor in frames
                    if painted > rows and height == frames[-1][2])

    def _rows(self, seen):
        lines = [line for line in self.program.output.lines[:seen] if line.startswith("frame ")]
        return fields(lines[-1])[1]

    def point(self, x, y):
        self._bar.tell(f"point {x} {y}")

    def longest_block(self, seconds, meanwhile=lambda: None):
        """The most that it took between two beats, and how many sleeps between refreshes began
        meanwhile."""
        seen = len(self.program.output.lines)
        self.program.tell("beat")
        meanwhile()
        time.sleep(seconds)
        self.program.tell("rest")
        _, wall, processor = fields(
            self.program.awaited(lambda line: line.startswith("gap "), "the longest gap", seen))
        return Took(processor / 1e6, wall / 1e6), len(self._said("slept", seen))

    def scrolled(self):
        """All frames with rows while the wheel turns: when, in seconds, and the main thread's
        processor time by then, in milliseconds."""
        x, y = self._place(len(TABS) // 2)
        self.point(x, y + 200)
        time.sleep(POINTER_SETTLES_SECONDS)
        said, seen = len(self._bar.output.lines), len(self.program.output.lines)
        self._bar.tell("wheel")
        begin, end = (moment(self._bar.awaited(lambda line, what=what: line.startswith(what + " "),
                                               "the wheel", said)) for what in ("turning", "turned"))
        time.sleep(SWITCH_LASTS_SECONDS)
        frames, rows = [], self._rows(seen)
        for when, painted, _, processor in (fields(line) for line in self._said("frame", seen)):
            if painted > rows and begin <= when <= end:
                frames.append((when / 1e9, processor / 1e6))
            rows = painted
        if len(frames) < FRAMES_A_SECOND:
            raise MeasurementFailed("the board did not scroll")
        return frames


@contextlib.contextmanager
def opened(programs, between_refreshes=""):
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.exchange("--symbols", str(PAIRS)))
        home = stack.enter_context(tempfile.TemporaryDirectory())
        watch(home, exchange, WATCHED)
        seen = len(desktop.bar.output.lines)
        program = stack.enter_context(desktop.panel(exchange, home, between_refreshes))
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


def first_rows(programs, _options):
    first = {}
    for tab in range(1, len(TABS)):
        first[tab] = []
        for _ in range(FIRSTS):
            with opened(programs) as panel:
                first[tab].append(panel.switch(tab))
    slowest = max(first, key=lambda tab: middle(first[tab]))
    yield took_row(f"panel: the first board since its start, slowest ({TABS[slowest]})",
                   first[slowest], SWITCH_LIMIT)


def middle(times):
    return statistics.median(took.processor for took in times)


def switch_rows(programs, _options):
    with opened(programs) as panel:
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
        start, end = max(times, key=lambda pair, of=times: middle(of[pair]))
        yield took_row(f"panel: {what}, slowest pair ({TABS[start]} to {TABS[end]})",
                       times[start, end], SWITCH_LIMIT)


def refresh_rows(programs, _options):
    with opened(programs, str(BETWEEN_REFRESHES_SECONDS)) as panel:
        idle, others = panel.longest_block(REFRESHES_LAST_SECONDS)
        first, _ = panel.longest_block(LOADING_LASTS_SECONDS, lambda: panel.switch(MARKET_CAPS))
        for tab in (1, MARKET_CAPS):
            panel.switch(tab)
            time.sleep(LOADING_LASTS_SECONDS)
            block, sleeps = panel.longest_block(REFRESHES_LAST_SECONDS)
            refreshes = sleeps - others
            if refreshes < REFRESHES_LAST_SECONDS / 2:
                raise MeasurementFailed(f"only {refreshes} refreshes of a board")
            yield Row(f"panel: {refreshes} refreshes of 2,500 tickers ({TABS[tab]}), longest block",
                      f"{block.processor:.1f} ms", "on the clock; without a board",
                      f"{block.wall:.1f} ms; {idle.wall:.1f} ms",
                      target=f"< {BLOCK_LIMIT} ms", holds=block.processor < BLOCK_LIMIT)
    yield Row("panel: the first board with all that it loads, longest block",
              f"{first.processor:.1f} ms", "on the clock", f"{first.wall:.1f} ms")


def scroll_rows(programs, _options):
    with opened(programs) as panel:
        panel.switch(MARKET_CAPS)
        time.sleep(LOADING_LASTS_SECONDS)
        # Once for the logos of the rows further down.
        panel.scrolled()
        frames = panel.scrolled()
    between = [(later[0] - earlier[0], later[1] - earlier[1])
               for earlier, later in zip(frames, frames[1:])]
    rate = len(between) / sum(seconds for seconds, _ in between)
    row = below("panel: scrolling the board of market caps, a frame",
                statistics.fmean(processor for _, processor in between), FRAME_LIMIT)
    row.alternative, row.alternative_measured = "frames", f"{rate:.1f} /s"
    yield row
    yield Row("panel: scrolling, longest frame",
              f"{max(processor for _, processor in between):.1f} ms", "on the clock",
              f"{1000 * max(seconds for seconds, _ in between):.1f} ms")
