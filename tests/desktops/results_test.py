# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the checks have said is told from what a host makes impossible."""
import unittest

import limits
from hosts import HOSTS
from limits import LIMITS, Limit
from results import NotTried, Results
from session import Failure
from visit import CHECKS

COVERED = Limit("waybar", "is not covered", r"(\d+) pixels", "it leaves an empty tooltip",
                at_most=1000)
SILENT = Limit("waybar", "closes at a press on the desktop", "it stays", "nobody is told of it")


def is_not_covered(text):
    """A check that says this text."""
    return text


def raises(error):
    def is_not_covered(_):
        raise error
    return is_not_covered


class ResultsTest(unittest.TestCase):
    def results(self, text, *declared, check=is_not_covered):
        results = Results("waybar", declared)
        results.add(check, text)
        return results

    def test_a_check_that_says_nothing_holds(self):
        results = self.results(None)
        self.assertEqual(results.held, ["is not covered"])
        self.assertFalse(results.wrong or results.limited or results.not_tried)

    def test_a_check_that_says_something_does_not(self):
        self.assertEqual(self.results("800 pixels").wrong, {"is not covered": "800 pixels"})

    def test_a_declared_limit_is_neither_held_nor_wrong(self):
        for text in ("800 pixels", "1000 pixels"):
            results = self.results(text, COVERED)
            self.assertEqual(results.limited,
                             {"is not covered": f"{text}: it leaves an empty tooltip"})
            self.assertFalse(results.wrong or results.held)

    def test_a_limit_ends_at_its_bound(self):
        results = self.results("1001 pixels", COVERED)
        self.assertEqual(results.wrong, {"is not covered": "1001 pixels, of a host that is allowed "
                                                           "1000"})
        self.assertFalse(results.limited)

    def test_a_limit_allows_nothing_but_what_it_declares(self):
        for text in ("the panel did not open", "800 pixels and more", ""):
            results = self.results(text, COVERED)
            self.assertEqual(results.wrong, {"is not covered": text})
            self.assertFalse(results.limited)
        results = self.results(None, COVERED, check=raises(Failure("800 pixels")))
        self.assertEqual(results.wrong, {"is not covered": "800 pixels"})

    def test_a_limit_is_that_of_one_check_at_one_host(self):
        elsewhere = Limit("xfce", "is not covered", r"(\d+) pixels", "", at_most=1000)
        self.assertTrue(self.results("800 pixels", elsewhere, SILENT).wrong)

    def test_a_limit_that_is_not_seen_any_more_is_wrong(self):
        results = self.results(None, COVERED)
        self.assertIn("take the limit out of limits.py", results.wrong["is not covered"])
        self.assertFalse(results.held or results.limited)

    def test_a_limit_that_is_not_always_seen_may_be_missing(self):
        sometimes = Limit("waybar", "is not covered", r"(\d+) pixels", "", at_most=1000,
                          is_always_seen=False)
        self.assertEqual(self.results(None, sometimes).held, ["is not covered"])

    def test_a_limit_of_a_check_that_is_not_tried_is_wrong(self):
        check = raises(NotTried("a reason"))
        self.assertEqual(self.results(None, check=check).not_tried, {"is not covered": "a reason"})
        self.assertIn("is not covered", self.results(None, COVERED, check=check).wrong)


class LimitsTest(unittest.TestCase):
    def test_each_names_a_host_and_a_check_and_says_why(self):
        hosts = {host.name for host in HOSTS}
        checks = {limits.name_of(check) for check in CHECKS}
        for limit in LIMITS:
            self.assertIn(limit.host, hosts)
            self.assertIn(limit.check, checks)
            self.assertTrue(limit.why)

    def test_none_is_declared_twice(self):
        declared = [(limit.host, limit.check) for limit in LIMITS]
        self.assertEqual(len(set(declared)), len(declared))

    def test_one_that_is_measured_has_a_bound(self):
        for limit in LIMITS:
            self.assertEqual(r"\d" in limit.says, limit.at_most is not None, limit)


if __name__ == "__main__":
    unittest.main()
