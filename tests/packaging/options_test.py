# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""packaging/options.json has what the programs' --help says, no more and no less."""
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

TABLE = json.loads(pathlib.Path(os.environ["QUILLBAR_ROOT"], "packaging/options.json")
                   .read_text(encoding="utf-8"))
PROGRAMS = {pathlib.Path(path).name: path for path in sys.argv[1:]}
LINE = re.compile(r"^  (\S.*?)  +(.*)$", re.MULTILINE)


def run(program, *arguments):
    return subprocess.run([PROGRAMS[program], *arguments], capture_output=True, check=False,
                          encoding="utf-8", env={"LC_ALL": "C.UTF-8"})


def terms(options):
    for option in options:
        argument = " " + option["argument"]["zh"] if "argument" in option else ""
        yield option["name"] + argument, option["zh"]


class Options(unittest.TestCase):
    def test_both_programs_are_in_the_table(self):
        self.assertEqual(set(PROGRAMS), set(TABLE) - {"variables"})

    def test_the_help_lists_the_options_and_variables_of_the_table(self):
        for program in PROGRAMS:
            with self.subTest(program):
                table = TABLE[program]
                variables = [(name, TABLE["variables"][name]["zh"]) for name in table["variables"]]
                self.assertEqual(LINE.findall(run(program, "--help").stdout),
                                 [*terms(table["options"]), *variables])

    def test_the_help_tells_the_exit_statuses_of_the_table(self):
        for program in PROGRAMS:
            with self.subTest(program):
                statuses = "；".join(f"{status['value']} {status['zh']}"
                                     for status in TABLE[program]["statuses"])
                self.assertIn(f"退出状态：{statuses}。\n", run(program, "--help").stdout)

    def test_the_letter_of_an_option_is_the_option(self):
        for program in PROGRAMS:
            letters = [option for option in TABLE[program]["options"] if "letter" in option]
            self.assertEqual([option["name"] for option in letters], ["--help"])
            self.assertEqual(run(program, "-h").stdout, run(program, "--help").stdout)

    def test_what_excludes_each_other_is_refused_together(self):
        for program in PROGRAMS:
            first, *others = TABLE[program]["oneOf"]
            for other in others:
                with self.subTest(program, other=other):
                    self.assertEqual(run(program, first, other).returncode, 2)

    def test_what_can_be_given_several_times_is_accepted_twice(self):
        repeated = [option["name"] for option in TABLE["quillbar-label"]["options"]
                    if option.get("repeats")]
        self.assertEqual(repeated, ["--symbol"])
        done = run("quillbar-label", "--symbol=A", "--symbol=B", "--help")
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_only_the_choices_of_the_table_are_accepted(self):
        for program in PROGRAMS:
            for option in TABLE[program]["options"]:
                for choice in option.get("choices", []):
                    # Help wins over what is right, but not over what is wrong before it.
                    done = run(program, f"{option['name']}={choice}", "--help")
                    self.assertEqual(done.returncode, 0, done.stderr)
                if "choices" in option:
                    self.assertEqual(run(program, f"{option['name']}=other").returncode, 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
