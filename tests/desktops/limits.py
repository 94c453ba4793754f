# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What hosts make impossible: the checks that fail there whatever the application does.

Each stands here once. It is reported apart from what holds and from what does not. It allows no
more than it declares, and it is wrong itself when the host does better.
"""
import dataclasses


@dataclasses.dataclass(frozen=True)
class Limit:
    """A check that cannot hold at a host."""
    host: str
    check: str
    # What the check says there: a regular expression for all of it. Its group is what it measures.
    says: str
    why: str
    # The greatest measure that is the host's doing; None where nothing is measured.
    at_most: float | None = None
    # False where the check sometimes holds nevertheless.
    is_always_seen: bool = True


NO_TOOLTIPS = "it shows no tooltips"
NO_PRESSES = "a compositor tells a program of no press outside its windows, and the focus stays"

NO_MOVES = "it hands no moves of the pointer on to an icon, and a tooltip begins with them"

LIMITS = (
    Limit("cinnamon", "shows a tooltip", "nothing", NO_MOVES),
    Limit("gnome", "shows a tooltip", "nothing", NO_TOOLTIPS),
    Limit("gnome-wayland", "shows a tooltip", "nothing", NO_TOOLTIPS),
    Limit("gnome-wayland", "closes at a press on the desktop", "it stays", NO_PRESSES),
    Limit("mate-indicators", "shows a tooltip", "nothing", NO_TOOLTIPS),
    Limit("swaybar", "menu is no window", "the panel instead",
          "it shows no menus, and a menu that belongs to no window would be tiled"),
    Limit("swaybar", "shows a tooltip", "nothing", NO_TOOLTIPS),
)


def name_of(check):
    """The name of a check in words, as it is printed and declared."""
    return check.__name__.replace("_", " ")
