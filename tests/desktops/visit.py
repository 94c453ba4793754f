# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A visit to one host: starts it, uses the item as a person would, and looks at the screen.

Each check is a method that returns nothing when all is well, and otherwise says what was seen. What
makes no sense at a host is not tried.
"""
import collections
import re
import signal
import time

from results import NotTried, Results
from screen import PIXEL, SCREEN, Area, Screen, around, contrast, menu_in, window_in
from session import HEIGHT, WIDTH, Failure, Session, wait_for

BAR_HEIGHT = 48
# Where the pointer waits before a click: far from every item.
ASIDE = (400, 170)
# On the terminal, and on what no window covers but where windows are tiled.
ON_WINDOW = (200, 150)
ON_DESKTOP = (150, 600)
NEAR = 300
AROUND = 150
LEAST_CONTRAST = 3
FRAMES = 30
SETTLES_WITHIN = 3
MOVES = 3
OPENS_WITHIN = 4
CLOSES_WITHIN = 2
RETURNS_WITHIN = 15
TOOLTIP_COMES_WITHIN = 3
TOOLTIP_ENDS_WITHIN = 2
MEASURED = 15


def without_numbers(line):
    return re.sub(r"0x[0-9a-f]+|\d+", "0", line)


class Visit:
    """What is done at one host, in the order of `CHECKS`."""

    def __init__(self, host, session, pictures):
        self._host = host
        self._pictures = pictures
        self._session = session
        self._screen = Screen(session)
        top = 0 if host.bar == "top" else HEIGHT - BAR_HEIGHT
        self._bar = Area(0, top, WIDTH, top + BAR_HEIGHT)
        self._item = None
        self._panel = None
        self._without_panel = None
        self._items_before = 0
        self._lines_before = collections.Counter()
        self._bare = None

    # The start.

    def start(self):
        session, host = self._session, self._host
        session.variables.update(host.variables)
        session.start_server()
        session.start_bus()
        session.start_exchange()
        host.prepare(session)
        host.show(session)
        if not host.is_older:
            wait_for("the host", session.has_host, patience=60)
        session.spawn("terminal", "xterm", "-bg", "#446688", "-geometry", "60x15+60+60",
                      **session.inside)
        host.begin(session)
        if host.comes_late:
            wait_for("the bar", self._has_bar, patience=150)
        self._screen.move(*ASIDE)
        self._wait_for_a_young_minute()
        self._bare = self._screen.still_picture()
        if ended := session.ended_programs():
            raise Failure("; ".join(f"{name} ended: {session.log(name)[-200:]}" for name in ended))
        self._items_before = 0 if host.is_older else session.registered_items()
        self._lines_before = self._lines()
        session.start_application()
        self._item = self._found_item("the item", patience=60)

    def _has_bar(self):
        """Whether an edge runs along most of the screen where the bar goes."""
        picture = self._screen.picture()

        def is_edge(row):
            pairs = zip(picture.row(row - 1)[::PIXEL], picture.row(row)[::PIXEL])
            return sum(abs(one - other) > 16 for one, other in pairs) > 3 * WIDTH // 4
        return any(is_edge(row) for row in self._bar.rows()[1:])

    @staticmethod
    def _wait_for_a_young_minute():
        """A clock in a bar must not change while the item is looked for."""
        while time.time() % 60 > 20:
            time.sleep(1)

    def _found_item(self, what, patience):
        wait_for(what, self._moving_part, patience)
        # What moved aside for it is not the item.
        time.sleep(SETTLES_WITHIN)
        # One move of the market may change one digit alone.
        parts = [wait_for(what, self._moving_part, patience=10) for _ in range(MOVES)]
        return Area(min(part.left for part in parts), min(part.top for part in parts),
                    max(part.right for part in parts), max(part.bottom for part in parts))

    def _moving_part(self):
        """The part of the bar that changes when prices do; None when nothing does."""
        first = self._screen.picture()
        self._session.move_market()
        time.sleep(2.5)
        positions = self._screen.picture().changed(first, self._bar)
        return around(*zip(*positions)) if positions else None

    def part_with_item(self):
        """The part of the bar that the item is in, with what does not change of it."""
        item = self._item
        middle = item.middle[1]
        top = max(0, min(item.top - 6, middle - BAR_HEIGHT // 3))
        bottom = min(HEIGHT, max(item.bottom + 6, middle + BAR_HEIGHT // 3))
        left = max(0, min(item.left - 120, WIDTH - 320))
        right = min(WIDTH, max(item.right + 60, left + 320))
        return f"{right - left}x{bottom - top}+{left}+{top}"

    def _lines(self):
        logs = self._session.log(self._host.painter)
        if self._host.applets:
            # They write where the bus does.
            logs += self._session.log("bus")
        return collections.Counter(without_numbers(line) for line in logs.splitlines())

    def _processor_seconds(self):
        """What drawing the items has taken so far."""
        if self._host.applets:
            return self._session.processor_seconds_of(self._host.applets)
        return self._session.processor_seconds(self._host.painter)

    # Opening and closing.

    def _shown_panel(self):
        return window_in(self._screen.picture().changed(self._without_panel))

    def _remember_screen_without_panel(self):
        self._screen.move(*ASIDE)
        time.sleep(0.7)
        self._without_panel = self._screen.picture()

    def _click_item(self):
        """One gesture that opens the panel."""
        self._screen.click(self._item.middle, times=2 if self._host.opens_by == "double" else 1)
        if self._host.opens_by == "menu":
            self._screen.key("Down", "Return")

    def _open(self):
        """Opens the panel with a pointer that comes from afar."""
        self._remember_screen_without_panel()
        self._click_item()
        self._panel = self._wait_for_panel()

    def _wait_for_panel(self):
        """The panel once it stays where it is; None where it does not come."""
        end = time.monotonic() + OPENS_WITHIN
        panel = self._shown_panel()
        while True:
            time.sleep(0.3)
            last, panel = panel, self._shown_panel()
            if (panel is not None and panel == last) or time.monotonic() > end:
                return panel

    def _close(self):
        """Closes the panel in any case, so that the next check begins without it."""
        self._screen.key("Escape")
        if self._shown_panel() is not None:
            self._session.command("--toggle")
            time.sleep(1)

    def _is_open_after(self, deed):
        self._open()
        if self._panel is None:
            raise Failure("the panel did not open")
        deed()
        end = time.monotonic() + CLOSES_WITHIN
        is_open = True
        while is_open and time.monotonic() < end:
            time.sleep(0.4)
            is_open = self._shown_panel() is not None
        if is_open:
            self._close()
        return is_open

    def _is_open_after_press(self, position):
        return self._is_open_after(lambda: self._screen.click(position))

    # The checks.

    def is_registered(self):
        if self._host.is_older:
            raise NotTried("nobody registers by the older protocol")
        items = self._session.registered_items()
        return None if items == self._items_before + 1 else f"{items} items"

    def is_drawn(self):
        colours = self._screen.picture().colours(self._item)
        return None if len(colours) > 1 else f"{len(colours)} colours in {self._item}"

    def stays_in_its_place(self):
        """One box around it, whatever the prices."""
        zone = Area(self._item.left - 160, self._bar.top, self._item.right + 160, self._bar.bottom)
        boxes = collections.Counter()
        for _ in range(FRAMES):
            self._session.move_market()
            positions = self._screen.picture().changed(self._bare, zone)
            boxes[around(*zip(*positions)) if positions else None] += 1
        if None in boxes:
            return f"no item in {boxes[None]} of {FRAMES} pictures"
        return None if len(boxes) == 1 else f"{len(boxes)} boxes: {dict(boxes)}"

    def can_be_read(self):
        colours = self._screen.picture().colours(self._item)
        ground = colours.most_common(1)[0][0]
        best = max(contrast(ground, colour) for colour in colours)
        return None if best >= LEAST_CONTRAST else f"contrast {best:.1f}"

    def shows_a_tooltip(self):
        """The pointer on the item for some seconds, a text of some length is beside the bar."""
        self._screen.move(*ASIDE)
        time.sleep(0.7)
        before = self._screen.picture()
        self._screen.move(*self._item.middle)
        time.sleep(TOOLTIP_COMES_WITHIN)
        item = self._item
        # Beside the bar and near the item; desktops show messages of their own elsewhere.
        zone = Area(item.left - AROUND, 0, item.right + AROUND, HEIGHT)
        changed = [(x, y) for x, y in self._screen.picture().changed(before, zone)
                   if y not in self._bar.rows()]
        self._screen.move(*ASIDE)
        time.sleep(TOOLTIP_ENDS_WITHIN)
        if not changed:
            return "nothing"
        size = around(*zip(*changed)).size
        return None if size[0] >= 60 and size[1] >= 10 else f"{size[0]} by {size[1]} pixels"

    def opens_beside_its_item(self):
        self._open()
        panel, item = self._panel, self._item
        if panel is None:
            return "the panel did not open"
        overlaps = panel.top < item.bottom and item.top < panel.bottom
        away = max(panel.left - item.middle[0], item.middle[0] - panel.right,
                   panel.top - item.bottom, item.top - panel.bottom)
        inside = panel.left > 0 and panel.right < SCREEN.right and not overlaps
        return None if inside and away <= NEAR else f"the panel at {panel}, the item at {item}"

    def is_not_covered(self):
        """Five seconds later, the pointer on the item, nothing lies over the panel's head."""
        panel = self._panel
        if panel is None:
            return "the panel did not open"
        head = Area(panel.left, panel.top, panel.right, panel.top + 60)
        # A pointer on the panel, where the focus that may follow it stays, ends the item's tooltip.
        self._screen.move(panel.middle[0], panel.bottom - 20)
        time.sleep(TOOLTIP_ENDS_WITHIN)
        first = self._screen.picture()
        self._screen.move(self._item.middle[0] + 1, self._item.middle[1])
        time.sleep(5)
        changed = len(self._screen.picture().changed(first, head))
        is_covered = changed >= 0.03 * head.size[0] * head.size[1]
        if is_covered and self._pictures:
            self._session.keep_picture(self._pictures / f"{self._host.name}-covered.png")
        self._close()
        return f"{changed} pixels" if is_covered else None

    def closes_at_escape(self):
        return "it stays" if self._is_open_after(lambda: self._screen.key("Escape")) else None

    def closes_at_a_second_click(self):
        if self._host.opens_by == "menu":
            raise NotTried("a click shows the menu")
        return "it stays" if self._is_open_after(self._click_item) else None

    def closes_at_a_press_on_a_window(self):
        return "it stays" if self._is_open_after_press(ON_WINDOW) else None

    def closes_at_a_press_on_the_desktop(self):
        self._host.show_workspace(self._session, "bare")
        try:
            return "it stays" if self._is_open_after_press(ON_DESKTOP) else None
        finally:
            self._host.show_workspace(self._session, "1")

    def waits_for_a_slow_pointer(self):
        def cross():
            target = self._panel.middle[0], (self._panel.top + 40 if self._host.bar == "top"
                                             else self._panel.bottom - 40)
            self._screen.cross(self._item.middle, target, speed=30)
        if self._is_open_after(cross):
            return None
        return f"it closed, the panel at {self._panel}, the item at {self._item}"

    def menu_is_no_window(self):
        self._remember_screen_without_panel()
        before = len(self._host.windows(self._session))
        self._screen.click(self._item.middle, button=3)
        after = len(self._host.windows(self._session))
        changed = self._screen.picture().changed(self._without_panel)
        self._screen.key("Escape")
        self._close()
        window = window_in(changed)
        is_panel = window and self._panel and window.size[0] == self._panel.size[0]
        if is_panel and after == before + 1:
            return "the panel instead"
        if menu_in(changed) is None:
            return "no menu"
        return None if after == before else f"{after - before} more windows"

    def obeys_commands(self):
        self._remember_screen_without_panel()
        wrong = []
        for options, opens in ((("--toggle",), True), (("--toggle",), False), (("--show",), True),
                               (("--show",), True), ((), False)):
            self._session.command(*options)
            time.sleep(1.2)
            if (self._shown_panel() is not None) != opens:
                wrong.append(" ".join(options) or "a second start")
        self._close()
        return None if not wrong else f"not obeyed: {', '.join(wrong)}"

    def comes_back(self):
        if not self._host.may_die:
            raise NotTried("the session ends with the host")
        self._session.stop(self._host.painter, signal.SIGKILL)
        time.sleep(1)
        without_bar = self._screen.picture()
        self._host.show(self._session)
        # What it says at each start, it says again.
        self._lines_before = self._lines_before + self._lines_before
        # Cinnamon and Plasma take many seconds to start.
        wait_for("the bar again", self._has_bar if self._host.comes_late else
                 lambda: self._screen.picture().changed(without_bar, self._bar), patience=60)
        self._item = self._found_item("the item again", patience=RETURNS_WITHIN)
        return None

    def costs_its_host_little(self):
        """Updates take at most so much of a processor; ends the application."""
        def used():
            before = self._processor_seconds()
            time.sleep(MEASURED)
            return self._processor_seconds() - before
        busy = used()
        if not self._session.command("--quit"):
            return "--quit failed"
        wait_for("the end after --quit", lambda: not self._session.is_running("quillbar"), 5)
        share = 100 * (busy - used()) / MEASURED
        return None if share <= self._host.cost else f"{share:.1f} %"

    def fills_no_log(self):
        more = self._lines() - self._lines_before
        line, count = more.most_common(1)[0] if more else ("", 0)
        return None if count <= 10 else f"{count} times: {line[:100]}"


CHECKS = (Visit.is_registered, Visit.is_drawn, Visit.can_be_read, Visit.stays_in_its_place,
          Visit.shows_a_tooltip, Visit.opens_beside_its_item, Visit.is_not_covered,
          Visit.closes_at_escape, Visit.closes_at_a_second_click,
          Visit.closes_at_a_press_on_a_window, Visit.closes_at_a_press_on_the_desktop,
          Visit.waits_for_a_slow_pointer, Visit.menu_is_no_window, Visit.obeys_commands,
          Visit.comes_back, Visit.costs_its_host_little, Visit.fills_no_log)


def visit(host, programs, pictures, kind=Visit, checks=CHECKS):
    """Does the checks of a kind of visit at one host; the pictures' folder may be None."""
    results = Results(host.name)
    try:
        visit_into(results, host, programs, pictures, kind, checks)
    except OSError as failure:
        results.wrong["visit"] = str(failure)
    return results


def visit_into(results, host, programs, pictures, kind, checks):
    with Session(programs, plain_user=host.plain_user) as session:
        guest = kind(host, session, pictures)
        results.add(kind.start, guest)
        if not results.wrong:
            if pictures:
                session.keep_picture(pictures / f"{host.name}.png", guest.part_with_item())
            for check in checks:
                faults = len(results.wrong) + len(results.limited)
                results.add(check, guest)
                if pictures and len(results.wrong) + len(results.limited) > faults:
                    session.keep_picture(pictures / f"{host.name}-{check.__name__}.png")
        if pictures:
            session.keep_picture(pictures / f"{host.name}-screen.png")
            session.keep_logs(pictures / f"{host.name}.log")
