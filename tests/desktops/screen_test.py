# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the pictures of a screen are taken for, with screens that the test draws."""
import unittest
from unittest import mock

from drawn import DARK, DESKTOP, WHITE, screen
from screen import SCREEN, Area, Screen, around, contrast, menu_in, window_in
from session import HEIGHT, WIDTH, Failure, Session


class SessionWithoutScreen(Session):
    """Cannot look at the screen for so many times."""

    def __init__(self, times):
        self.left = times

    def call(self, *_, **__):
        self.left -= 1
        return None if self.left >= 0 else screen().row(0) * HEIGHT


class ScreenTest(unittest.TestCase):
    def test_a_screen_that_cannot_be_read_is_read_again(self):
        with mock.patch("time.sleep"):
            self.assertFalse(Screen(SessionWithoutScreen(2)).picture().changed(screen()))
            self.assertRaises(Failure, Screen(SessionWithoutScreen(9)).picture)

    def test_a_panel_is_found_where_it_is(self):
        panel = Area(876, 28, 1276, 500)
        self.assertEqual(window_in(screen((panel, DARK)).changed(screen())), panel)

    def test_nothing_smaller_is_taken_for_a_panel(self):
        bare = screen()
        for area in (Area(1100, 28, 1270, 400), Area(800, 28, 1200, 150)):
            self.assertIsNone(window_in(screen((area, DARK)).changed(bare)), area)
        self.assertIsNone(window_in([]))

    def test_a_tooltip_beside_a_panel_does_not_belong_to_it(self):
        panel = Area(876, 28, 1276, 500)
        tooltip = Area(700, 30, 860, 80)
        shown = screen((panel, DARK), (tooltip, WHITE)).changed(screen())
        self.assertEqual(window_in(shown), panel)

    def test_a_tooltip_is_not_taken_for_a_menu(self):
        menu, tooltip = Area(1100, 28, 1270, 140), Area(1000, 30, 1250, 90)
        self.assertEqual(menu_in(screen((menu, WHITE)).changed(screen())), menu)
        self.assertIsNone(menu_in(screen((tooltip, WHITE)).changed(screen())))

    def test_what_changed_is_looked_for_in_the_area_alone(self):
        item = Area(1200, 3, 1222, 25)
        changed = screen((item, WHITE), (Area(0, 700, 50, 750), WHITE)).changed(
            screen(), Area(0, 0, WIDTH, 48))
        self.assertEqual(around(*zip(*changed)), item)

    def test_colours_are_counted(self):
        item = Area(1200, 3, 1222, 25)
        colours = screen((item, WHITE)).colours(Area(1199, 3, 1222, 25))
        self.assertEqual(colours, {WHITE: 22 * 22, DESKTOP: 22})

    def test_an_area_beyond_the_screen_ends_with_it(self):
        self.assertEqual(len(Area(WIDTH - 5, HEIGHT - 5, WIDTH + 9, HEIGHT + 9).rows()), 5)
        self.assertEqual(len(SCREEN.columns()), WIDTH)

    def test_contrast_is_that_of_the_guidelines_for_web_content(self):
        self.assertAlmostEqual(contrast(b"\0\0\0", WHITE), 21)
        self.assertAlmostEqual(contrast(WHITE, WHITE), 1)
        self.assertAlmostEqual(contrast(b"\x77\x77\x77", WHITE), 4.48, places=2)


if __name__ == "__main__":
    unittest.main()
