# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A file includes only from its own room, from a lower floor of the core, or from the rooms of the
application that its own room names; always by its path from the root."""
import pathlib
import re

from Lint import lint

FLOORS = {
    "QuillbarCore/runtime": 1,
    "QuillbarCore/model": 2,
    "QuillbarCore/exchange": 3,
    "QuillbarCore/catalog": 4,
    "QuillbarCore/market": 5,
    "QuillbarCore/state": 6,
    "QuillbarCore/alerts": 7,
}
# The rooms of the application, each below those that it may use. All of them stand above the core.
ROOMS = {
    "Quillbar/platform": set(),
    "Quillbar/text": {"platform"},
    "Quillbar/labelstate": {"platform"},
    "Quillbar/login": {"platform"},
    "Quillbar/instance": {"labelstate", "platform"},
    "Quillbar/notifications": {"platform", "text"},
    "Quillbar/services": {"platform"},
    "Quillbar/label": {"instance", "labelstate", "platform", "services"},
    "Quillbar/widgets": {"platform", "text"},
    "Quillbar/tray": {"labelstate", "platform", "text", "widgets"},
    "Quillbar/window": {"widgets"},
    "Quillbar/list": {"platform", "text", "widgets"},
    "Quillbar/coins": {"text", "widgets"},
    "Quillbar/chart": {"list", "platform", "text", "widgets"},
    "Quillbar/watchlist": {"coins", "list", "platform", "text", "widgets"},
    "Quillbar/boards": {"coins", "list", "platform", "text", "widgets"},
    "Quillbar/panel": {"boards", "chart", "labelstate", "login", "platform", "text", "watchlist",
                       "widgets"},
}
# The top puts them together.
ROOMS["Quillbar"] = {room.partition("/")[2] for room in ROOMS}
# Rooms that stand beside the floors, and what they may include. The simulator judges the core, so
# it shares no code with it.
BESIDE = {
    "simulator": set(),
    "fuzz": {*FLOORS, *ROOMS, "tests"},
    "benchmarks": {*FLOORS, *ROOMS, "simulator", "tests"},
    "tests": {*FLOORS, *ROOMS, "simulator", "fuzz", "benchmarks"},
}
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(["<])([^">]+)[">]', re.MULTILINE)


def room_of(path):
    parts = pathlib.PurePosixPath(path).parts
    for length in (2, 1):
        room = "/".join(parts[:length])
        # A folder of the application that is no room does not belong to the top.
        if room == "Quillbar" and len(parts) > 2:
            return None
        if len(parts) > length and (room in FLOORS or room in ROOMS or room in BESIDE):
            return room
    return None


def may_include(user, used):
    if user == used:
        return True
    if user in FLOORS:
        return used in FLOORS and FLOORS[used] < FLOORS[user]
    if user in ROOMS:
        return used in FLOORS or used in ROOMS and used.partition("/")[2] in ROOMS[user]
    return used in BESIDE.get(user, ())


def circles():
    """Rooms that name one which does not stand before them; so there is no circle."""
    known = set()
    for room, used in ROOMS.items():
        for name in sorted(used - known):
            yield f"tests/lint/LayersLint.py: {room} stands before {name}, which it may use"
        known.add(room.partition("/")[2])


def check(tree):
    yield from circles()
    for source in tree.sources():
        room = room_of(source.path)
        if room is None:
            yield (f"{source.path}: this folder is on no floor; give it one in "
                   "tests/lint/LayersLint.py, or move the file into a room")
            continue
        for match in INCLUDE.finditer(source.text):
            mark, path = match.groups()
            used = room_of(path)
            if mark == "<":
                if used:
                    yield source.at(match.start(), f'write "{path}", in quotes: it is ours')
            elif path.endswith(".moc"):
                continue
            elif used is None or not (tree.root / path).is_file():
                yield source.at(match.start(), f'"{path}" is no file of ours by its path from the '
                                "project's root; write that path, or <> when it is not ours")
            elif not may_include(room, used):
                yield source.at(match.start(), f"{room} must not include from {used}: a file "
                                "includes only from its own room, a lower floor, or what ROOMS in "
                                "tests/lint/LayersLint.py allows. Move what is shared down, or "
                                "hand it in from above")


def sample(user, used):
    return {used: "", user: f'#include "{used}"\n'}


lint(check,
     bad=[sample("QuillbarCore/runtime/A.h", "QuillbarCore/model/B.h"),
          sample("QuillbarCore/catalog/A.cpp", "QuillbarCore/state/B.h"),
          sample("QuillbarCore/exchange/A.h", "Quillbar/label/B.h"),
          sample("Quillbar/widgets/A.cpp", "Quillbar/list/B.h"),
          sample("Quillbar/boards/A.cpp", "Quillbar/watchlist/B.h"),
          sample("Quillbar/panel/A.cpp", "Quillbar/QuillbarApp.h"),
          {"Quillbar/cellar/A.h": ""},
          sample("Quillbar/label/A.cpp", "simulator/B.h"),
          sample("Quillbar/label/A.cpp", "tests/support/B.h"),
          sample("simulator/A.cpp", "tests/support/B.h"),
          sample("simulator/A.cpp", "Quillbar/label/B.h"),
          sample("simulator/A.cpp", "QuillbarCore/model/B.h"),
          {"QuillbarCore/model/A.h": "", "QuillbarCore/model/B.h": '#include "A.h"\n'},
          {"QuillbarCore/model/A.h": "",
           "QuillbarCore/state/B.h": "#include <QuillbarCore/model/A.h>\n"},
          {"QuillbarCore/cellar/A.h": ""}],
     good=[sample("QuillbarCore/model/A.h", "QuillbarCore/runtime/B.h"),
           sample("QuillbarCore/model/A.h", "QuillbarCore/model/B.h"),
           sample("QuillbarCore/state/A.cpp", "QuillbarCore/market/B.h"),
           sample("Quillbar/label/A.cpp", "Quillbar/platform/B.h"),
           sample("Quillbar/panel/A.cpp", "Quillbar/boards/B.h"),
           sample("Quillbar/main.cpp", "Quillbar/panel/B.h"),
           sample("simulator/A.cpp", "simulator/B.h"),
           sample("tests/integration/A.cpp", "simulator/B.h"),
           {"QuillbarCore/model/A.h": "#include <vector>\n"}])
