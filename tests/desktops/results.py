# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What came of the checks at one host."""
import re

from limits import LIMITS, name_of
from session import Failure


class NotTried(Exception):
    """A check makes no sense at this host; the text says why."""


class Results:
    """What came of each check, by its name in words."""

    def __init__(self, host="", limits=LIMITS):
        self._limits = {limit.check: limit for limit in limits if limit.host == host}
        self.held = []
        # What the host makes impossible.
        self.limited = {}
        self.wrong = {}
        self.not_tried = {}

    def add(self, check, guest):
        name = name_of(check)
        try:
            self._add_said(name, check(guest))
        except NotTried as reason:
            if name in self._limits:
                self.wrong[name] = "limits.py has it, but it is not tried"
            else:
                self.not_tried[name] = str(reason)
        except (Failure, OSError) as failure:
            self.wrong[name] = str(failure)

    def _add_said(self, name, text):
        limit = self._limits.get(name)
        if text is None:
            if limit is not None and limit.is_always_seen:
                self.wrong[name] = "it holds: take the limit out of limits.py"
            else:
                self.held.append(name)
            return
        said = re.fullmatch(limit.says, text) if limit is not None else None
        if said is None:
            self.wrong[name] = text
        elif limit.at_most is not None and float(said[1]) > limit.at_most:
            self.wrong[name] = f"{text}, of a host that is allowed {limit.at_most:g}"
        else:
            self.limited[name] = f"{text}: {limit.why}"
