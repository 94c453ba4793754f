# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The lines of the report."""
import dataclasses


@dataclasses.dataclass
class Row:
    """A line of the report."""
    what: str
    measured: str
    alternative: str = ""
    alternative_measured: str = ""
    ratio: str = ""
    target: str = ""
    holds: bool | None = None

    def cells(self):
        holds = "" if self.holds is None else "yes" if self.holds else "NO"
        return [self.what, self.measured, self.alternative, self.alternative_measured, self.ratio,
                self.target, holds]


def below(what, measured, limit, unit="ms", digits=1):
    return Row(what, f"{measured:.{digits}f} {unit}", target=f"< {limit} {unit}",
               holds=measured < limit)


HEAD = ["what", "measured", "alternative", "measured", "times", "target", "holds"]


def table(rows):
    lines = [HEAD] + [row.cells() for row in rows]
    widths = [max(len(line[column]) for line in lines) for column in range(len(HEAD))]
    numbers = {1, 3, 4, 5}
    aligned = [
        "  ".join(cell.rjust(width) if column in numbers else cell.ljust(width)
                  for column, (cell, width) in enumerate(zip(line, widths))).rstrip()
        for line in lines]
    return "\n".join([aligned[0], "-" * (sum(widths) + 2 * (len(widths) - 1))] + aligned[1:])


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.2f} {unit}"
    return f"{nanoseconds:.0f} ns"
