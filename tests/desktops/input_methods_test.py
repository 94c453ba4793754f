# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the checks of input methods say, of a search that the test draws."""
import importlib.machinery
import pathlib
import sys
import tempfile
import time
import types
import unittest
from unittest import mock

from drawn import DARK, WHITE, screen
from hosts import HOSTS
from screen import Area
from session import Failure

PANEL = Area(876, 28, 1276, 313)
SEARCH = Area(990, 60, 1276, 310)
LETTERS = Area(1010, 75, 1030, 90)
RESULT = Area(1010, 110, 1100, 126)


def loaded():
    loader = importlib.machinery.SourceFileLoader(
        "input_methods", str(pathlib.Path(__file__).with_name("input-methods")))
    module = types.ModuleType(loader.name)
    module.__file__ = loader.path
    # Its data classes look for it there.
    sys.modules[loader.name] = module
    loader.exec_module(module)
    return module


INPUT_METHODS = loaded()


class Desktop:
    """Looks like a Screen with the panel open. Each gesture shows the next of the drawings."""

    def __init__(self, *drawings):
        self._drawings = iter(drawings)
        self._shown = ()

    def picture(self):
        return screen((PANEL, WHITE), *self._shown)

    def click(self, *_):
        self._shown = next(self._drawings)

    key = click


OPEN = ((SEARCH, DARK),)
COMPOSED = (*OPEN, (LETTERS, WHITE))
SEARCHED = (*COMPOSED, (RESULT, WHITE))


class ComposingTest(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.enterContext(mock.patch.object(time, "sleep", lambda _: None))

    def guest(self, *drawings):
        host = next(host for host in HOSTS if host.name == "xfce")
        guest = INPUT_METHODS.Composing(host, mock.Mock(home=self.home), None)
        guest._screen = Desktop(*drawings)
        guest._panel = PANEL
        guest._open = guest._close = lambda: None
        return guest

    def store(self, symbol):
        path = self.home / ".local/share/Quillbar/watchlist.json"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f'{{"coins":[{{"symbol":"{symbol}"}}]}}', encoding="utf-8")

    def test_letters_in_the_field_are_composed_in_place(self):
        self.assertIsNone(self.guest(OPEN, COMPOSED).composes_in_place())

    def test_letters_that_are_not_in_the_field_or_searched_for_are_not_composed_there(self):
        self.assertEqual(self.guest(OPEN, OPEN).composes_in_place(), "nothing in the field")
        self.assertEqual(self.guest(OPEN, SEARCHED).composes_in_place(), "51 pixels high")

    def test_a_search_that_does_not_open_ends_the_check(self):
        self.assertRaises(Failure, self.guest((), ()).composes_in_place)

    def test_enter_searches_for_the_letters_and_adds_no_coin(self):
        def after_enter(drawing, added=None):
            guest = self.guest(OPEN, COMPOSED, drawing)
            guest.composes_in_place()
            if added:
                self.store(added)
            return guest.enter_commits_and_adds_nothing()
        self.assertIsNone(after_enter(SEARCHED))
        self.assertEqual(after_enter(COMPOSED), "nothing was searched for")
        self.assertEqual(after_enter(OPEN), "nothing was searched for")
        self.assertIsNone(after_enter(SEARCHED, added="ADAUSDT"))
        self.assertEqual(after_enter(SEARCHED, added="SUIUSDT"), "it added the coin")

    def test_a_coin_was_added_when_it_is_stored(self):
        guest = self.guest((), ())
        self.assertEqual(guest.a_second_enter_adds(), "no coin")
        self.store("SUIUSDT")
        self.assertIsNone(guest.a_second_enter_adds())
        self.assertEqual(self.guest(()).composes_again(), "no coin")

    def test_escape_leaves_the_search_as_it_was_opened(self):
        for last, text in ((OPEN, None), (COMPOSED, "300 pixels differ from the empty search"),
                           ((), "71500 pixels differ from the empty search")):
            guest = self.guest(OPEN, COMPOSED, last)
            self.assertEqual(guest.escape_ends_the_composition_alone(), text)


if __name__ == "__main__":
    unittest.main()
