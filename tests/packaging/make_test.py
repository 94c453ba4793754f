# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What packaging/make.py makes: completions that complete, and the text that becomes a manual."""
import importlib.util
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PACKAGING = pathlib.Path(os.environ["QUILLBAR_ROOT"], "packaging")
SPEC = importlib.util.spec_from_file_location("make", PACKAGING / "make.py")
MAKE = importlib.util.module_from_spec(SPEC)
SPEC.loader.exec_module(MAKE)
TABLE = json.loads((PACKAGING / "options.json").read_text(encoding="utf-8"))
PROGRAMS = [name for name in TABLE if name != "variables"]


def made(*arguments):
    return subprocess.run([sys.executable, "-B", PACKAGING / "make.py", *arguments], check=True,
                          capture_output=True, encoding="utf-8").stdout


def names(program):
    return [option["name"] for option in TABLE[program]["options"]]


class Bash(unittest.TestCase):
    def completed(self, program, *words):
        """What bash offers for the last of the words, which it splits at an equals sign."""
        with tempfile.TemporaryDirectory() as folder:
            script = pathlib.Path(folder, "completion")
            script.write_text(made("completion", program, "bash"), encoding="utf-8")
            function = "_" + program.replace("-", "_")
            done = subprocess.run(
                ["/bin/bash", "--norc", "-c",
                 f'. "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); {function}; '
                 'printf "%s\\n" "${COMPREPLY[@]}"', script, program, *words],
                check=True, capture_output=True, text=True)
            return done.stdout.split()

    def test_offers_every_option(self):
        for program in PROGRAMS:
            self.assertEqual(self.completed(program, ""), names(program))

    def test_offers_what_begins_so(self):
        self.assertEqual(self.completed("quillbar", "--to"), ["--toggle"])
        self.assertEqual(self.completed("quillbar-label", "--fo"), ["--follow", "--format"])

    def test_offers_the_choices_of_an_option_in_either_spelling(self):
        formats = ["text", "json", "waybar"]
        self.assertEqual(self.completed("quillbar-label", "--format", ""), formats)
        self.assertEqual(self.completed("quillbar-label", "--format", "j"), ["json"])
        self.assertEqual(self.completed("quillbar-label", "--format", "="), formats)
        self.assertEqual(self.completed("quillbar-label", "--format", "=", "w"), ["waybar"])

    def test_offers_nothing_where_the_words_are_the_users_own(self):
        self.assertEqual(self.completed("quillbar-label", "--template", ""), [])
        self.assertEqual(self.completed("quillbar-label", "--symbol", ""), [])
        self.assertEqual(self.completed("quillbar-label", "--template", "=", "--"), [])


class OtherShells(unittest.TestCase):
    def test_zsh_is_told_every_option_and_for_which_program(self):
        for program in PROGRAMS:
            text = made("completion", program, "zsh")
            self.assertTrue(text.startswith(f"#compdef {program}\n"))
            for name in names(program):
                self.assertRegex(text, rf"{name}=?\[")

    def test_zsh_offers_no_option_beside_one_that_excludes_it(self):
        self.assertIn("'(--once --boards)--follow[", made("completion", "quillbar-label", "zsh"))

    def test_zsh_offers_an_option_again_that_can_be_given_several_times(self):
        zsh = made("completion", "quillbar-label", "zsh")
        self.assertIn("'*--symbol=[print this coin instead of the pinned one]:coin: '", zsh)

    def test_zsh_and_fish_wait_for_the_argument_of_an_option(self):
        zsh = made("completion", "quillbar-label", "zsh")
        self.assertIn("'--format=[how a line is written]:format:(text json waybar)'", zsh)
        self.assertIn("'--template=[the wording of the text]:template: '", zsh)
        fish = made("completion", "quillbar-label", "fish")
        self.assertIn(" -l format -x -a 'text json waybar' -d ", fish)
        self.assertIn(" -l template -x -d ", fish)

    def test_fish_is_told_every_option(self):
        for program in PROGRAMS:
            told = re.findall(r" -l (\S+)", made("completion", program, "fish"))
            self.assertEqual(["--" + name for name in told], names(program))


class Tidied(unittest.TestCase):
    def test_a_term_and_its_text_have_no_empty_paragraphs(self):
        page = ".P\n.SH OPTIONS\n.P\n\\fB--a\\fR\n.RS 4\nDoes it.\n.P\n.RE\n.SH END\n"
        self.assertEqual(MAKE.tidy(page), ".SH OPTIONS\n.TP 4\n\\fB--a\\fR\nDoes it.\n.SH END\n")

    def test_a_paragraph_behind_another_or_a_term_is_one(self):
        page = ".SH A\n.P\none\n.P\ntwo\n.P\nterm\n.RS 4\ntext\n.P\n.RE\nthree\n.P\n"
        self.assertEqual(MAKE.tidy(page),
                         ".SH A\none\n.PP\ntwo\n.TP 4\nterm\ntext\n.PP\nthree\n")

    def test_an_example_stays_as_it_is(self):
        page = "text\n.P\n.nf\n.RS 4\n  code\n.fi\n.RE\n.P\nmore\n"
        self.assertEqual(MAKE.tidy(page),
                         "text\n.PP\n.nf\n.RS 4\n  code\n.fi\n.RE\n.PP\nmore\n")

    def test_the_title_is_in_capitals(self):
        self.assertEqual(MAKE.tidy('.TH "a-b" "1" "x" "Ab"\n'), '.TH "A-B" "1" "x" "Ab"\n')

    def test_long_lines_are_broken_at_spaces_but_not_before_a_dot(self):
        lines = MAKE.wrapped("word " * 15 + "word .desktop 'quoted' " + "more " * 10)
        self.assertEqual(len(lines), 2)
        self.assertTrue(all(line[0] not in ".'" for line in lines), lines)

    def test_chinese_may_be_broken_behind_its_marks(self):
        self.assertEqual(MAKE.wrapped("显示,退出。"), ["显示,\\:退出。\\:"])


if __name__ == "__main__":
    unittest.main()
