# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""How long the user waits for the item and for the panel, and how a panel of many coins bears many
prices.

The start is compared with that of the least program of widgets that has an item, by turns in the
same run, so that whatever slows the machine slows both. It takes the processor of several
processes, so it is judged on the clock, by the quickest of many starts: those that the rest of the
machine hindered least.
"""
import contextlib
import statistics
import tempfile
import time

from desktop import (BETWEEN_CLICKS_SECONDS, desktop_of, moment, processor_of, settle, took_row,
                     watch)
from processes import MeasurementFailed
from rows import Row, below
from usage import own_megabytes

STARTS = 25
START_LIMIT = 1.5
PANELS = 5
OPENINGS = 5
FIRST_LIMIT = 80
LATER_LIMIT = 16
MANY_COINS_LIMIT = 1.2
FLOOD_A_SECOND = 2000
FLOOD_SECONDS = 30
FLOOD_LIMIT = 15


def start_rows(programs, _options):
    ours, bare = [], []
    with desktop_of(programs) as desktop, tempfile.TemporaryDirectory() as home:
        for _ in range(STARTS):
            ours.append(desktop.milliseconds_to_item("quillbar", home))
            bare.append(desktop.milliseconds_to_item("quillbar-bare-item", home))
    ratio = min(ours) / min(bare)
    yield Row("quillbar: start to registered item, quickest", f"{min(ours):.1f} ms", "a bare item",
              f"{min(bare):.1f} ms", f"{1 / ratio:.2f}", f"{1 / START_LIMIT:.2f} times",
              ratio <= START_LIMIT)
    yield Row("quillbar: start to registered item, median", f"{statistics.median(ours):.1f} ms",
              "a bare item", f"{statistics.median(bare):.1f} ms")


def openings(desktop, exchange, home):
    """The first opening of a panel, and the later ones."""
    seen = len(desktop.bar.output.lines)
    with desktop.panel(exchange, home) as panel:
        desktop.await_price(seen)
        settle(panel)
        times = []
        for _ in range(OPENINGS):
            time.sleep(BETWEEN_CLICKS_SECONDS)
            times.append(desktop.open(panel))
            time.sleep(BETWEEN_CLICKS_SECONDS)
            desktop.close(panel)
    return times[0], times[1:]


def opening_rows(programs, _options):
    firsts, laters = {4: [], 20: [], 1000: []}, {4: [], 20: [], 1000: []}
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        few = stack.enter_context(programs.exchange())
        many = stack.enter_context(programs.flood(1))
        homes = {count: stack.enter_context(tempfile.TemporaryDirectory()) for count in firsts}
        watch(homes[20], many, 20)
        watch(homes[1000], many, 1000)
        for _ in range(PANELS):
            for count, home in homes.items():
                first, later = openings(desktop, few if count == 4 else many, home)
                firsts[count].append(first)
                laters[count] += later
    for what, times, limit in (("first opening", firsts, FIRST_LIMIT),
                               ("later openings", laters, LATER_LIMIT)):
        yield took_row(f"panel: {what}, 4 coins", times[4], limit)
        yield took_row(f"panel: {what}, 1,000 coins", times[1000], limit)
        middle = {count: statistics.median(took.processor for took in values)
                  for count, values in times.items()}
        ratio = middle[1000] / middle[20]
        yield Row(f"panel: {what}, 1,000 coins", f"{middle[1000]:.1f} ms", "20 coins",
                  f"{middle[20]:.1f} ms", f"{1 / ratio:.2f}", f"{1 / MANY_COINS_LIMIT:.2f} times",
                  ratio < MANY_COINS_LIMIT)


def sent(exchange):
    """The moments in seconds at which the exchange had sent so many prices."""
    return [(moment(line) / 1e9, int(line.split(" ")[2])) for line in exchange.output.lines
            if line.startswith("sent ")]


def flood_rows(programs, _options):
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.flood(FLOOD_A_SECOND))
        home = stack.enter_context(tempfile.TemporaryDirectory())
        watch(home, exchange, 1000)
        seen = len(desktop.bar.output.lines)
        panel = stack.enter_context(desktop.panel(exchange, home))
        desktop.await_price(seen)
        desktop.open(panel)
        own = least_own_megabytes(panel)
        begin, processor = time.monotonic(), processor_of(panel)
        growth = least_own_megabytes(panel) - own
        seconds = (processor_of(panel) - processor) / 1e9
        end = time.monotonic()
        delay = milliseconds_to_label(desktop, exchange)
        prices = [(when, count) for when, count in sent(exchange) if begin <= when <= end]
    (first, least), (last, most) = prices[0], prices[-1]
    rate = (most - least) / (last - first)
    if rate < FLOOD_A_SECOND / 4:
        raise MeasurementFailed(f"the exchange sent only {rate:.0f} prices a second")
    # The exchange sends fewer while something else keeps the machine busy.
    percent = 100 * seconds / (end - begin) / rate * FLOOD_A_SECOND
    name = f"panel of 1,000 coins, {FLOOD_A_SECOND} prices a second"
    row = below(f"{name}: the main thread's processor", percent, FLOOD_LIMIT, "%")
    row.alternative, row.alternative_measured = "sent", f"{rate:.0f} /s"
    yield row
    yield below(f"{name}: growth of its own memory in {FLOOD_SECONDS} s", growth, 1, "MB")
    # The label changes at most once a second.
    yield Row(f"{name}: the last one to the label", f"{delay:.1f} ms")


def least_own_megabytes(program):
    """The least that the program has of its own within some time: prices that wait to be read,
    while something else keeps the machine busy, are no growth."""
    samples = []
    for _ in range(FLOOD_SECONDS):
        time.sleep(1)
        samples.append(own_megabytes(program))
    return min(samples)


def milliseconds_to_label(desktop, exchange):
    """From when the exchange sends its last price until the bar has it."""
    labels, said = len(desktop.bar.output.lines), len(exchange.output.lines)
    exchange.tell("last")
    last = moment(exchange.awaited(lambda line: line.startswith("last "), "the last price", said))
    label = desktop.bar.awaited(
        lambda line: line.startswith("label ") and "77,777.77" in line, "the last price", labels)
    return (moment(label) - last) / 1e6
