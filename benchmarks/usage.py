# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What a program that follows prices takes of a machine."""
import dataclasses
import time

from rows import Row


@dataclasses.dataclass
class Limit:
    """What is promised."""
    resident_megabytes: int
    processor_percent: float


@dataclasses.dataclass
class Usage:
    """What was measured; sizes in KiB."""
    resident: int
    most_resident: int
    proportional: int
    anonymous: int
    following_percent: float
    whole_percent: float
    seconds_to_price: float

    def rows(self, name, limit):
        yield Row(f"{name}: resident", f"{self.resident / 1024:.1f} MB",
                  target=f"< {limit.resident_megabytes} MB",
                  holds=self.resident < limit.resident_megabytes * 1024)
        yield Row(f"{name}: resident at most, since its start",
                  f"{self.most_resident / 1024:.1f} MB")
        yield Row(f"{name}: its share of shared pages (Pss)", f"{self.proportional / 1024:.1f} MB")
        yield Row(f"{name}: memory of its own", f"{self.anonymous / 1024:.1f} MB")
        yield Row(f"{name}: processor, following", f"{self.following_percent:.3f} %",
                  target=f"< {limit.processor_percent} %",
                  holds=self.following_percent < limit.processor_percent)
        yield Row(f"{name}: processor, with its start", f"{self.whole_percent:.3f} %")
        yield Row(f"{name}: processor time to the first price",
                  f"{1000 * self.seconds_to_price:.0f} ms")


def is_priced(line):
    """Whether a label has a price."""
    return "▲" in line or "▼" in line


def usage_of(program, teller, wanted, seconds, once_priced=lambda: None):
    """What the program takes from its first price on, which is when the teller says a wanted line,
    until it has run for as many seconds."""
    begin = time.monotonic()
    teller.awaited(wanted, "a price", 0 if teller is program else len(teller.output.lines))
    at_first_price = program.processor_seconds()
    once_priced()
    before = program.processor_seconds()
    priced = time.monotonic()
    time.sleep(max(0, seconds - (priced - begin)))
    total = program.processor_seconds()
    now = time.monotonic()
    return Usage(resident=program.kib("status", "VmRSS"),
                 most_resident=program.kib("status", "VmHWM"),
                 proportional=program.kib("smaps_rollup", "Pss"),
                 anonymous=program.kib("status", "RssAnon"),
                 following_percent=100 * (total - before) / (now - priced),
                 whole_percent=100 * total / (now - begin),
                 seconds_to_price=at_first_price)
