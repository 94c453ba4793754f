# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Screens that the tests draw."""
from screen import Picture
from session import HEIGHT, WIDTH

DESKTOP = b"\x44\x66\x88"
WHITE = b"\xff\xff\xff"
DARK = b"\x18\x18\x1c"


def screen(*windows):
    """A desktop with windows of one colour, each an area and its colour."""
    rows = [bytearray(DESKTOP * WIDTH) for _ in range(HEIGHT)]
    for area, colour in windows:
        for y in area.rows():
            rows[y][area.left * 3:area.right * 3] = colour * area.size[0]
    return Picture(b"".join(rows))
