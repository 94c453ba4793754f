# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the checks of a host say, at a desktop that the test draws."""
import contextlib
import dataclasses
import io
import pathlib
import subprocess
import tempfile
import time
import unittest
from unittest import mock

import matrix
import visit
from drawn import DARK, WHITE, screen
from hosts import HOSTS
from results import Results
from screen import SCREEN, Area
from session import Session, files_in

ITEM = Area(1200, 3, 1222, 25)
PANEL = Area(966, 28, 1276, 200)
MENU = Area(1100, 28, 1270, 200)
TOOLTIP = Area(1000, 30, 1250, 75)


@dataclasses.dataclass
class Desktop:
    """Looks like a Screen. Where the pointer is, and what has been pressed, says what it shows."""
    pointer: tuple = (0, 0)
    has_item: bool = True
    has_menu: bool = True
    menu: Area = MENU
    has_tooltip: bool = False
    shown: tuple = ()

    def picture(self):
        windows = [(ITEM, WHITE)] if self.has_item else []
        windows += self.shown
        is_on_item = self.pointer[0] in ITEM.columns() and self.pointer[1] in ITEM.rows()
        if self.has_tooltip and is_on_item:
            windows.append((TOOLTIP, DARK))
        return screen(*windows)

    def move(self, column, row):
        self.pointer = column, row

    def click(self, position, button=1, times=1):
        self.move(*position)
        if button == 1:
            self.shown = ((PANEL, WHITE),)
        elif self.has_menu:
            self.shown = ((self.menu, WHITE),)

    def key(self, *_):
        self.shown = ()


def host(**changes):
    base = next(host for host in HOSTS if host.name == "xfce")
    return dataclasses.replace(base, **{"windows": lambda _: [], **changes})


class VisitTest(unittest.TestCase):
    def setUp(self):
        self.session = mock.Mock()
        # The moments between two looks at a real screen.
        now = iter(range(10**6))
        for name, instead in (("sleep", lambda _: None), ("monotonic", lambda: next(now))):
            patch = mock.patch.object(time, name, instead)
            patch.start()
            self.addCleanup(patch.stop)

    def guest(self, desktop=None, **changes):
        guest = visit.Visit(host(**changes), self.session, None)
        guest._screen = desktop or Desktop()
        guest._item = ITEM
        guest._bare = screen()
        return guest

    def test_an_item_of_two_colours_is_drawn_and_one_of_one_is_not(self):
        desktop = Desktop(shown=((Area(1204, 5, 1208, 11), DARK),))
        self.assertIsNone(self.guest(desktop).is_drawn())
        self.assertIn("1 colours", self.guest().is_drawn())

    def test_an_item_stays_in_its_place(self):
        self.assertIsNone(self.guest().stays_in_its_place())

    def test_no_item_stays_in_no_place(self):
        guest = self.guest(Desktop(has_item=False))
        self.assertEqual(guest.stays_in_its_place(), "no item in 30 of 30 pictures")

    def test_a_bar_is_told_from_what_is_behind_it(self):
        bar = (Area(0, 0, 1280, 30), WHITE)
        for windows, has_bar in (((), False), ((bar,), True), (((SCREEN, WHITE), bar), False),
                                 (((Area(0, 0, 600, 30), WHITE),), False),
                                 # Of two colours, as one that lets something through.
                                 (((Area(0, 0, 600, 30), WHITE), (Area(600, 0, 1280, 30), DARK)),
                                  True)):
            guest = self.guest(Desktop(has_item=False, shown=windows))
            self.assertEqual(guest._has_bar(), has_bar)

    def test_the_item_is_all_that_changes_within_some_moves_of_the_market(self):
        digits = [Area(left, 5, left + 4, 11) for left in (1200, 1206, 1212)]
        desktop = Desktop()
        moves = iter(2 * digits)

        def move_market():
            desktop.shown = ((next(moves), DARK),)
        self.session.move_market = move_market
        guest = self.guest(desktop)
        self.assertEqual(guest._found_item("the item", patience=9), Area(1200, 5, 1216, 11))

    def test_a_panel_alone_is_not_covered(self):
        guest = self.guest()
        self.assertIsNone(guest.opens_beside_its_item())
        self.assertIsNone(guest.is_not_covered())

    def test_a_tooltip_that_was_there_when_the_panel_opened_covers_it(self):
        guest = self.guest(Desktop(has_tooltip=True))
        guest.opens_beside_its_item()
        self.assertIn("pixels", guest.is_not_covered() or "")

    def test_a_tooltip_is_seen_beside_the_bar(self):
        self.assertIsNone(self.guest(Desktop(has_tooltip=True)).shows_a_tooltip())

    def test_what_changes_in_the_bar_is_no_tooltip(self):
        desktop = Desktop()
        guest = self.guest(desktop)
        desktop.move = lambda column, row: setattr(
            desktop, "shown", ((ITEM, DARK),) if (column, row) == ITEM.middle else ())
        self.assertEqual(guest.shows_a_tooltip(), "nothing")

    def test_a_message_far_from_the_item_is_no_tooltip(self):
        desktop = Desktop()
        guest = self.guest(desktop)
        desktop.move = lambda column, row: setattr(
            desktop, "shown",
            ((Area(489, 48, 1000, 121), DARK),) if (column, row) == ITEM.middle else ())
        self.assertEqual(guest.shows_a_tooltip(), "nothing")

    def test_a_few_pixels_are_no_tooltip(self):
        desktop = Desktop()
        guest = self.guest(desktop)
        desktop.move = lambda column, row: setattr(
            desktop, "shown",
            ((Area(1200, 40, 1228, 69), DARK),) if (column, row) == ITEM.middle else ())
        self.assertEqual(guest.shows_a_tooltip(), "28 by 21 pixels")

    def test_the_desktop_is_pressed_where_no_window_covers_it(self):
        seen = []
        guest = self.guest(show_workspace=lambda _, name: seen.append(name))
        guest._is_open_after_press = lambda position: seen.append(position) or True
        self.assertEqual(guest.closes_at_a_press_on_the_desktop(), "it stays")
        self.assertEqual(seen, ["bare", visit.ON_DESKTOP, "1"])

    def test_a_menu_is_no_window(self):
        self.assertIsNone(self.guest().menu_is_no_window())

    def test_a_click_that_shows_nothing_or_a_tooltip_shows_no_menu(self):
        for has_tooltip in (False, True):
            guest = self.guest(Desktop(has_menu=False, has_tooltip=has_tooltip))
            self.assertEqual(guest.menu_is_no_window(), "no menu")

    def test_a_window_in_place_of_a_menu_is_the_panel_or_not(self):
        wide = Area(0, 28, 1280, 800)
        for window, text in ((PANEL, "the panel instead"), (wide, "1 more windows")):
            counts = iter(([], ["window"]))
            guest = self.guest(Desktop(menu=window), windows=lambda _, counts=counts: next(counts))
            guest._panel = PANEL
            self.assertEqual(guest.menu_is_no_window(), text)

    def test_the_picture_holds_the_whole_item(self):
        guest = self.guest()
        for item in (ITEM, Area(1117, 6, 1280, 28), Area(820, 4, 1270, 26), Area(8, 4, 30, 26)):
            guest._item = item
            size, left, _ = guest.part_with_item().split("+")
            width = int(size.split("x")[0])
            self.assertGreaterEqual(width, 320)
            self.assertLessEqual(int(left), item.left)
            self.assertGreaterEqual(int(left) + width, item.right)
            self.assertLessEqual(int(left) + width, 1280)

    def test_the_picture_holds_more_than_the_digits_that_changed(self):
        guest = self.guest()
        for item, rows in ((Area(1256, 6, 1279, 11), range(0, 23)),
                           (Area(1256, 788, 1279, 794), range(776, 800))):
            guest._item = item
            size, _, top = guest.part_with_item().split("+")
            part = range(int(top), int(top) + int(size.split("x")[1]))
            self.assertLessEqual(set(rows), set(part))
            self.assertLessEqual(part.stop, 800)

    def test_what_draws_the_item_is_judged_and_not_who_started_it(self):
        logs = {"bar": "bar\n", "bus": "applet\n" * 11}
        self.session.log = logs.get
        self.session.processor_seconds_of.side_effect = {("applet",): 7}.get
        self.session.processor_seconds.side_effect = {"bar": 1}.get
        self.assertIsNone(self.guest().fills_no_log())
        self.assertEqual(self.guest()._processor_seconds(), 1)
        guest = self.guest(applets=("applet",))
        self.assertEqual(guest.fills_no_log(), "11 times: applet")
        self.assertEqual(guest._processor_seconds(), 7)

    def test_a_file_that_is_missing_ends_the_visit_alone(self):
        results = visit.visit(host(), pathlib.Path("/nowhere"), None)
        self.assertIn("/nowhere", results.wrong["visit"])


class MatrixTest(unittest.TestCase):
    def test_packages_that_cannot_be_installed_end_that_visit_alone(self):
        for failure in (subprocess.CalledProcessError(100, "apt-get"), FileNotFoundError("sudo")):
            with mock.patch.object(matrix, "install", side_effect=failure):
                results = matrix.tried(host(), mock.Mock(no_setup=False), None)
                self.assertEqual(results.wrong, {"packages": str(failure)})

    def test_what_the_host_makes_impossible_is_neither_green_nor_wrong(self):
        results = Results()
        results.held.append("is drawn")
        results.not_tried["comes back"] = "a reason"
        self.assertEqual(self.reported(results), [
            "xfce (xfce4-panel 1.0): green, 1 of 1 hold", "    not tried: comes back: a reason"])
        results.limited["shows a tooltip"] = "nothing: it has none"
        self.assertEqual(self.reported(results)[:2], [
            "xfce (xfce4-panel 1.0): host, 1 of 2 hold",
            "    host: shows a tooltip: nothing: it has none"])
        results.wrong["is not covered"] = "800 pixels"
        self.assertEqual(self.reported(results)[:2], [
            "xfce (xfce4-panel 1.0): wrong, 1 of 3 hold", "    is not covered: 800 pixels"])

    @staticmethod
    def reported(results):
        printed = io.StringIO()
        with mock.patch.object(matrix, "version", return_value="1.0"), \
                contextlib.redirect_stdout(printed):
            matrix.report(host(), results)
        return printed.getvalue().splitlines()


class FilesTest(unittest.TestCase):
    def test_a_file_that_took_the_place_of_another_is_a_new_one(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in ("X0", "X1", "next"):
            (folder / name).touch()
        before = files_in(folder).items()
        (folder / "next").rename(folder / "X1")
        (folder / "X2").touch()
        new = sorted(path.name for path, _ in files_in(folder).items() - before)
        self.assertEqual(new, ["X1", "X2"])


class SessionTest(unittest.TestCase):
    def setUp(self):
        programs = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name in ("quillbar", "quillbar-simulator"):
            (programs / name).touch()
        self.session = self.enterContext(Session(programs, plain_user=False))

    def test_a_program_that_ended_is_named(self):
        self.session.spawn("manager", "false")
        self.session.spawn("bar", "sleep", "60")
        self.session._processes["manager"].wait()
        self.assertEqual(self.session.ended_programs(), ["manager"])

    def test_the_time_of_a_program_is_found_wherever_it_was_started(self):
        variables = self.session.variables
        work = "import time\nwhile time.process_time() < 0.1: pass\nprint(flush=True)\ninput()"
        with subprocess.Popen(["python3", "-c", work], env=variables, stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as stranger:
            stranger.stdout.readline()
            self.assertGreaterEqual(self.session.processor_seconds_of(("python3",)), 0.08)
            self.assertEqual(self.session.processor_seconds_of(("python",)), 0)
            stranger.communicate(b"\n")


if __name__ == "__main__":
    unittest.main()
