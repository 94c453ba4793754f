# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The screen of a session: its pictures, and the pointer and keys of whoever sits before it."""
import collections
import dataclasses
import time

from session import HEIGHT, WIDTH, Failure

PIXEL = 3


@dataclasses.dataclass(frozen=True)
class Area:
    """A rectangle; `right` and `bottom` are the first column and row beyond it."""
    left: int
    top: int
    right: int
    bottom: int

    @property
    def middle(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2

    @property
    def size(self):
        return self.right - self.left, self.bottom - self.top

    def columns(self):
        return range(max(0, self.left), min(WIDTH, self.right))

    def rows(self):
        return range(max(0, self.top), min(HEIGHT, self.bottom))


SCREEN = Area(0, 0, WIDTH, HEIGHT)


def around(columns, rows):
    return Area(min(columns), min(rows), max(columns) + 1, max(rows) + 1)


class Picture:
    """What the screen showed at one moment."""

    def __init__(self, pixels):
        self._pixels = pixels

    def pixel(self, column, row):
        start = (row * WIDTH + column) * PIXEL
        return self._pixels[start:start + PIXEL]

    def row(self, row):
        return self._pixels[row * WIDTH * PIXEL:(row + 1) * WIDTH * PIXEL]

    def colours(self, area):
        """How often each colour is in the area."""
        return collections.Counter(self.pixel(x, y) for y in area.rows() for x in area.columns())

    def changed(self, other, area=SCREEN):
        """The positions in the area where this picture differs from the other."""
        return [(x, y) for y in area.rows() if self.row(y) != other.row(y)
                for x in area.columns() if self.pixel(x, y) != other.pixel(x, y)]


def window_in(positions, width=300, height=150):
    """The area of a panel among the positions that changed; None where there is none. A panel has
    at least that size, and covers nearly all of what is behind it."""
    columns = collections.Counter(x for x, _ in positions)
    rows = collections.Counter(y for _, y in positions)
    wide = [x for x, count in columns.items() if count >= 5 * height // 6]
    high = [y for y, count in rows.items() if count >= 5 * width // 6]
    if not wide or not high:
        return None
    area = around(wide, high)
    return area if area.size[0] >= width and area.size[1] >= height else None


def menu_in(positions):
    """The same of a menu, which is higher than a tooltip's two or three lines."""
    return window_in(positions, width=80, height=70)


def contrast(first, second):
    """How well one colour can be read on the other: from 1, not at all, to 21."""
    def luminance(colour):
        parts = [value / 255 for value in colour]
        red, green, blue = (part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4
                            for part in parts)
        return 0.2126 * red + 0.7152 * green + 0.0722 * blue
    darker, lighter = sorted((luminance(first), luminance(second)))
    return (lighter + 0.05) / (darker + 0.05)


class Screen:
    """Looks at the X server's screen, which holds the nested compositors' too."""

    def __init__(self, session):
        self._session = session

    def picture(self):
        pixels = self._session.look("-depth", "8", "rgb:-")
        if len(pixels) != WIDTH * HEIGHT * PIXEL:
            raise Failure("the screen could not be read")
        return Picture(pixels)

    def still_picture(self, patience=20):
        """The screen once two pictures in a row are equal, as when a desktop has started."""
        end = time.monotonic() + patience
        last = self.picture()
        while True:
            time.sleep(1)
            picture = self.picture()
            if not picture.changed(last) or time.monotonic() > end:
                return picture
            last = picture

    def move(self, column, row):
        self._session.call("xdotool", "mousemove", column, row)
        time.sleep(0.25)

    def click(self, position, button=1, times=1):
        self.move(*position)
        self._session.call("xdotool", "click", "--repeat", times, "--delay", 80, button)
        time.sleep(1)

    def key(self, *names):
        self._session.call("xdotool", "key", "--delay", 120, *names)
        time.sleep(0.7)

    def cross(self, start, end, speed):
        """Moves the pointer from one place to another at so many pixels a second."""
        length = max(abs(end[0] - start[0]), abs(end[1] - start[1]), 1)
        for step in range(length + 1):
            column, row = (first + (last - first) * step // length
                           for first, last in zip(start, end))
            self._session.call("xdotool", "mousemove", column, row)
            time.sleep(1 / speed)
