# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the label and the application take of memory and of the processor while they follow prices
of the simulator over TLS, and whether they take more and more of it."""
import contextlib
import statistics
import tempfile
import time

from desktop import desktop_of, settle
from processes import MeasurementFailed, Program, environment_of
from rows import Row
from tabs import BETWEEN_REFRESHES_SECONDS, MARKET_CAPS, PAIRS, TabbedPanel
from usage import Limit, is_priced, own_megabytes, share_megabytes, usage_of

LABEL_LIMIT = Limit(own_megabytes=5.5, processor_percent=0.2)
CLOSED_LIMIT = Limit(own_megabytes=8, share_megabytes=20, processor_percent=0.3)
OPEN_LIMIT = Limit(own_megabytes=12, processor_percent=1.5)
BOARD_LIMIT = Limit(own_megabytes=16, processor_percent=1.5)
# So many times as fast as a market of its own time.
SOAK_SPEED = 20
SOAK_SAMPLES = 40
# A page here and there is no growth.
GROWTH_LIMIT_MEGABYTES = 0.25


def label_rows(programs, options):
    with tempfile.TemporaryDirectory() as home, programs.exchange() as exchange:
        with Program([programs.label, "--follow"], environment_of(exchange, home)) as label:
            usage = usage_of(label, label, is_priced, options.seconds)
            if len(label.output.lines) < options.seconds / 4:
                raise MeasurementFailed(f"{label.name} printed too few lines")
    yield from usage.rows(f"quillbar-label after {options.seconds} s", LABEL_LIMIT)


def closed_rows(programs, options):
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.exchange())
        home = stack.enter_context(tempfile.TemporaryDirectory())
        program = stack.enter_context(desktop.application(exchange, home))
        usage = usage_of(program, desktop.bar, is_priced, options.seconds)
    with desktop_of(programs) as desktop, desktop.bare_item() as item:
        settle(item)
        bare = share_megabytes(item)
    yield from usage.rows(f"quillbar after {options.seconds} s", CLOSED_LIMIT, bare)


def open_rows(programs, options):
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.exchange())
        home = stack.enter_context(tempfile.TemporaryDirectory())
        program = stack.enter_context(desktop.panel(exchange, home))

        def open_late():
            settle(program)
            desktop.open(program)
        usage = usage_of(program, desktop.bar, is_priced, options.seconds, open_late)
        if len(program.output.lines) < options.seconds / 4:
            raise MeasurementFailed("the panel painted too few frames")
    yield from usage.rows(f"quillbar, panel open, after {options.seconds} s", OPEN_LIMIT)


def board_rows(programs, options):
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.exchange("--symbols", str(PAIRS)))
        home = stack.enter_context(tempfile.TemporaryDirectory())
        program = stack.enter_context(desktop.panel(exchange, home))
        usage = usage_of(program, desktop.bar, is_priced, options.seconds,
                         lambda: TabbedPanel(desktop, program).switch(MARKET_CAPS))
    yield from usage.rows(f"quillbar, board of market caps open, after {options.seconds} s",
                          BOARD_LIMIT)


def soak_rows(programs, options):
    """The second half of the time is compared with the first, after what the start fills."""
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(desktop_of(programs))
        exchange = stack.enter_context(programs.exchange(
            "--symbols", str(PAIRS), "--speed", str(SOAK_SPEED)))
        homes = [stack.enter_context(tempfile.TemporaryDirectory()) for _ in range(2)]
        seen = len(desktop.bar.output.lines)
        closed = stack.enter_context(desktop.application(exchange, homes[0]))
        desktop.await_price(seen)
        seen = len(desktop.bar.output.lines)
        board = stack.enter_context(desktop.panel(exchange, homes[1],
                                                  str(BETWEEN_REFRESHES_SECONDS)))
        desktop.await_price(seen)
        TabbedPanel(desktop, board).switch(MARKET_CAPS)
        samples = {"quillbar": [], "quillbar, board of market caps open": []}
        # The first tenth fills caches.
        time.sleep(options.soak_seconds / 10)
        for _ in range(SOAK_SAMPLES):
            time.sleep(options.soak_seconds * 0.9 / SOAK_SAMPLES)
            for of, program in zip(samples.values(), (closed, board)):
                of.append(own_megabytes(program))
    for name, of in samples.items():
        half = len(of) // 2
        growth = statistics.median(of[half:]) - statistics.median(of[:half])
        yield Row(f"{name}, {SOAK_SPEED} times as fast, {options.soak_seconds} s: growth",
                  f"{1024 * growth:.0f} KB", "at the end", f"{of[-1]:.1f} MB",
                  target=f"< {1024 * GROWTH_LIMIT_MEGABYTES:.0f} KB",
                  holds=growth < GROWTH_LIMIT_MEGABYTES)
