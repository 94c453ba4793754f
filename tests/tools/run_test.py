# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What ./run does around its programs, with stand-ins for the build and for the programs."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"]).resolve()
PATIENCE = 20

SIMULATOR = """
echo "$*" >"$HOME/simulator.arguments"
echo $$ >"$HOME/simulator.pid"
echo ca-file /some/ca.pem
echo rest https://127.0.0.1:4711/api/v3
echo stream wss://127.0.0.1:4711
echo market-caps https://127.0.0.1:4711/coingecko/api/v3
echo icons https://127.0.0.1:4711/icons
echo control http://127.0.0.1:4712
echo ready
exec tail -f /dev/null
"""
CLIENT = """
echo $$ >"$HOME/client.pid"
echo "program ${0##*/}"
echo "arguments $*"
env | grep -E '^(QUILLBAR|XDG)_' | sort
echo BTC
case "$*" in *--once*) exit 3;; esac
exec tail -f /dev/null
"""


def alive(pid):
    try:
        os.kill(pid, 0)
    except ProcessLookupError:
        return False
    return True


class Run(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.root = self.home / "a project"
        self.temporary = self.home / "tmp"
        self.temporary.mkdir()
        self.script("tools/setup.sh", 'echo "set up for $*"')
        self.script("tools/build.sh", 'build() { echo "built $*"; }')
        self.script("build/release/bin/quillbar-simulator", SIMULATOR)
        self.script("build/release/bin/quillbar-label", CLIENT)
        self.script("build/release/bin/quillbar", CLIENT)
        shutil.copy(ROOT / "run", self.root / "run")

    def script(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#!/usr/bin/env bash\n" + text)
        path.chmod(0o755)

    def start(self, *arguments, **variables):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.home),
                       "TMPDIR": str(self.temporary), "XDG_DATA_HOME": "/the/user's", **variables}
        process = subprocess.Popen([self.root / "run", *arguments], cwd="/", env=environment,
                                   text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        process.terminate()
        process.communicate(timeout=PATIENCE)

    def run_through(self, *arguments, **variables):
        process = self.start(*arguments, **variables)
        out, err = process.communicate(timeout=PATIENCE)
        return process.returncode, out.splitlines(), err

    def start_and_read(self, *arguments, **variables):
        """A run that goes on, and what it printed before its first price."""
        process = self.start(*arguments, **variables)
        lines = []
        for line in process.stdout:
            lines.append(line.rstrip("\n"))
            if lines[-1] == "BTC":
                return process, lines
        self.fail(f"ended early: {process.stderr.read()}")

    def pid_of(self, program):
        return int((self.home / f"{program}.pid").read_text())

    def test_follows_the_real_exchange_unless_told_otherwise(self):
        process, lines = self.start_and_read()
        self.assertEqual(lines, ["program quillbar-label", "arguments --follow",
                                 "XDG_DATA_HOME=/the/user's", "BTC"])
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(PATIENCE), -signal.SIGTERM)

    def test_hands_arguments_and_the_exit_status_through(self):
        status, lines, err = self.run_through("--", "--once", "--format", "json")
        self.assertEqual(status, 3)
        self.assertEqual(lines[:2], ["program quillbar-label", "arguments --once --format json"])
        self.assertIn("set up for run\nbuilt release quillbar-label\n", err)

    def test_sets_nothing_up_when_told_so(self):
        _, _, err = self.run_through("--no-setup", "--", "--once")
        self.assertNotIn("set up", err)
        self.assertIn("built release quillbar-label\n", err)

    def test_starts_the_application_on_a_desktop(self):
        for variables in ({"DISPLAY": ":0"}, {"WAYLAND_DISPLAY": "wayland-0"}):
            with self.subTest(variables):
                process, lines = self.start_and_read(**variables)
                self.assertEqual(lines[:2], ["program quillbar", "arguments "])
                process.send_signal(signal.SIGTERM)
                _, err = process.communicate(timeout=PATIENCE)
                self.assertIn("built release quillbar-label quillbar\n", err)
                self.assertIn("bin/quillbar --toggle\n", err)

    def test_starts_the_label_on_a_desktop_when_it_is_given_arguments(self):
        _, lines, _ = self.run_through("--", "--once", DISPLAY=":0")
        self.assertEqual(lines[:2], ["program quillbar-label", "arguments --once"])

    def test_the_demo_starts_the_application_on_a_desktop(self):
        process, lines = self.start_and_read("--demo", DISPLAY=":0")
        self.assertEqual(lines[0], "program quillbar")
        os.kill(self.pid_of("client"), signal.SIGUSR1)
        self.assertEqual(process.wait(PATIENCE), 128 + signal.SIGUSR1)
        self.assertEqual(list(self.temporary.iterdir()), [])

    def test_the_demo_hands_them_through_too_and_leaves_nothing_behind(self):
        status, lines, err = self.run_through("--demo", "--", "--once")
        self.assertEqual(status, 3)
        self.assertEqual(lines[1], "arguments --once")
        self.assertIn("built release quillbar-label quillbar-simulator\n", err)
        self.assertFalse(alive(self.pid_of("simulator")))
        self.assertEqual(list(self.temporary.iterdir()), [])

    def test_the_demo_points_the_label_at_the_simulator_and_at_folders_of_its_own(self):
        _, lines, _ = self.run_through("--demo", "--", "--once")
        told = dict(line.split("=", 1) for line in lines if "=" in line)
        self.assertEqual(told["QUILLBAR_CA_FILE"], "/some/ca.pem")
        self.assertEqual(told["QUILLBAR_REST_ENDPOINTS"], "https://127.0.0.1:4711/api/v3")
        self.assertEqual(told["QUILLBAR_STREAM_ENDPOINTS"], "wss://127.0.0.1:4711")
        self.assertEqual(told["QUILLBAR_MARKETCAP_ENDPOINT"],
                         "https://127.0.0.1:4711/coingecko/api/v3")
        self.assertEqual(told["QUILLBAR_ICON_ENDPOINT"], "https://127.0.0.1:4711/icons")
        for name in ("DATA", "CONFIG", "CACHE"):
            self.assertTrue(told[f"XDG_{name}_HOME"].startswith(f"{self.temporary}/"), told)

    def test_the_demo_says_how_to_stop_trouble_and_start_the_simulator_on_the_same_port(self):
        _, _, err = self.run_through("--demo", "--", "--once")
        arguments = (self.home / "simulator.arguments").read_text().strip()
        self.assertTrue(arguments.startswith("--ca-file "), arguments)
        self.assertIn(f"kill {self.pid_of('simulator')}\n", err)
        self.assertIn(f"quillbar-simulator {arguments} --port 4711 --control-port 4712\n", err)
        self.assertIn("http://127.0.0.1:4712/ ", err)
        self.assertRegex(err, f"files: +{self.temporary}/quillbar-demo")

    def test_the_demo_goes_on_when_the_simulator_dies(self):
        process, _ = self.start_and_read("--demo")
        os.kill(self.pid_of("simulator"), signal.SIGKILL)
        os.kill(self.pid_of("client"), signal.SIGUSR1)
        self.assertEqual(process.wait(PATIENCE), 128 + signal.SIGUSR1)

    def test_the_demo_ends_both_programs_when_it_is_told_to_end(self):
        for sent, status in ((signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129)):
            with self.subTest(sent):
                process, _ = self.start_and_read("--demo")
                process.send_signal(sent)
                self.assertEqual(process.wait(PATIENCE), status)
                self.assertFalse(alive(self.pid_of("client")))
                self.assertFalse(alive(self.pid_of("simulator")))
                self.assertEqual(list(self.temporary.iterdir()), [])

    def test_the_demo_fails_when_the_simulator_does_not_start(self):
        self.script("build/release/bin/quillbar-simulator", "exit 1")
        status, lines, err = self.run_through("--demo")
        self.assertEqual((status, lines), (1, []))
        self.assertIn("the simulator did not start", err)

    def test_a_wrong_option_is_one_line_and_exit_two(self):
        self.assertEqual(self.run_through("--dmeo"),
                         (2, [], "run: unknown option: --dmeo (see ./run --help)\n"))

    def test_help_sets_nothing_up(self):
        status, lines, err = self.run_through("--help")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(lines[0], "Usage: ./run [--demo] [--no-setup] [-- ARGUMENTS]")


if __name__ == "__main__":
    unittest.main()
