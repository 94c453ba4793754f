# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What a program that follows prices takes of a machine.

Memory is judged by what the program costs the machine. Its own memory is what it has written
(Anonymous) and what of that was swapped out: nobody else uses it, and it is free again only when
the program ends. Pages of files, such as a library's code, are not counted as its own, although
the system may call them private: it takes them back without asking as soon as it needs them, and
reads them again. (Those of a program that was just built are even "dirty" until the disk has
them.) They count in the share (Pss), which divides each page by the number of programs that use
it. The resident size (VmRSS) counts shared pages once for each program, and is printed as a fact
alone.
"""
import dataclasses
import time

from rows import Row, below


@dataclasses.dataclass
class Limit:
    """What is promised."""
    own_megabytes: float
    processor_percent: float
    share_megabytes: float | None = None


@dataclasses.dataclass
class Usage:
    """What was measured; sizes in MB."""
    own: float
    share: float
    resident: float
    most_resident: float
    following_percent: float
    whole_percent: float
    seconds_to_price: float

    def rows(self, name, limit, bare=None):
        """The share of the least program that has an item may stand beside the program's."""
        yield below(f"{name}: memory of its own", self.own, limit.own_megabytes, "MB")
        if limit.share_megabytes is None:
            yield Row(f"{name}: its share (Pss)", f"{self.share:.1f} MB")
        else:
            row = below(f"{name}: its share (Pss)", self.share, limit.share_megabytes, "MB")
            if bare is not None:
                row.alternative, row.alternative_measured = "a bare item", f"{bare:.1f} MB"
            yield row
        yield Row(f"{name}: resident (VmRSS), and at most", f"{self.resident:.1f} MB",
                  alternative_measured=f"{self.most_resident:.1f} MB")
        yield below(f"{name}: processor, following", self.following_percent,
                    limit.processor_percent, "%", digits=3)
        yield Row(f"{name}: processor, with its start", f"{self.whole_percent:.3f} %")
        yield Row(f"{name}: processor time to the first price",
                  f"{1000 * self.seconds_to_price:.0f} ms")


def is_priced(line):
    """Whether a label has a price."""
    return "▲" in line or "▼" in line


def own_megabytes(program):
    """Memory that is the program's alone and cannot be read again from a file."""
    sizes = program.sizes("smaps_rollup")
    return (sizes["Anonymous"] + sizes["Swap"]) / 1024


def share_megabytes(program):
    return program.sizes("smaps_rollup")["Pss"] / 1024


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
    status = program.sizes("status")
    return Usage(own=own_megabytes(program),
                 share=share_megabytes(program),
                 resident=status["VmRSS"] / 1024,
                 most_resident=status["VmHWM"] / 1024,
                 following_percent=100 * (total - before) / (now - priced),
                 whole_percent=100 * total / (now - begin),
                 seconds_to_price=at_first_price)
