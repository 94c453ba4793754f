# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Measures what is promised of speed and size, and prints it in one table.

Usage: report.py BENCHMARKS SIMULATOR LABEL [--seconds N]

BENCHMARKS, SIMULATOR and LABEL are the programs. Each time is the median processor time of several
repetitions, which alternate between ours and the alternatives. The label follows four coins of the
simulator over TLS for N seconds (60), and is looked at then. The report fails only when something
could not be measured: a target that does not hold is for its reader to judge.
"""
import argparse
import dataclasses
import json
import math
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

OURS = "Quillbar"
REPETITIONS = 9

# What is promised of each subject: how many times faster than each alternative, how fast, or both.
TARGET_RATIOS = {
    "exchange information, 3.7 MB": 8,
    "2,500 tickers, short form": 8,
    "2,500 tickers, long form": 8,
    "a board of 50 out of 2,500": 5,
}
TARGET_NANOSECONDS = {
    "a frame of the stream": 2000,
    "market caps of 250 coins": 1_000_000,
    "a board of 50 out of 2,500": 150_000,
    "a market-cap board of 100": 300_000,
    "1,000 watched coins by change": 1_000_000,
}
TARGET_RESIDENT_KIB = 30 * 1024
TARGET_PROCESSOR_PERCENT = 0.2


class MeasurementFailed(Exception):
    """Something could not be measured; the text says what and why."""


@dataclasses.dataclass
class Row:
    """A line of the report."""
    what: str
    measured: str
    alternative: str = ""
    alternative_measured: str = ""
    ratio: str = ""
    target: str = ""
    holds: bool | None = None

    def cells(self):
        holds = "" if self.holds is None else "yes" if self.holds else "NO"
        return [self.what, self.measured, self.alternative, self.alternative_measured, self.ratio,
                self.target, holds]


HEAD = ["what", "measured", "alternative", "measured", "times", "target", "holds"]


def table(rows):
    lines = [HEAD] + [row.cells() for row in rows]
    widths = [max(len(line[column]) for line in lines) for column in range(len(HEAD))]
    numbers = {1, 3, 4, 5}
    aligned = [
        "  ".join(cell.rjust(width) if column in numbers else cell.ljust(width)
                  for column, (cell, width) in enumerate(zip(line, widths))).rstrip()
        for line in lines]
    return "\n".join([aligned[0], "-" * (sum(widths) + 2 * (len(widths) - 1))] + aligned[1:])


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.2f} {unit}"
    return f"{nanoseconds:.0f} ns"


# Speed


def output_of(command):
    finished = subprocess.run(command, stdout=subprocess.PIPE, text=True, encoding="utf-8",
                              check=False)
    if finished.returncode != 0:
        raise MeasurementFailed(f"{command[0]} ended with status {finished.returncode}")
    return finished.stdout


def medians(program):
    """The median processor time of each benchmark in nanoseconds, by its name, in their order."""
    measured = dict.fromkeys(output_of([program, "--benchmark_list_tests=true"]).splitlines())
    results = output_of([program, "--benchmark_format=json",
                         f"--benchmark_repetitions={REPETITIONS}", "--benchmark_min_time=0.1",
                         "--benchmark_enable_random_interleaving=true"])
    for entry in json.loads(results)["benchmarks"]:
        if entry.get("error_occurred"):
            raise MeasurementFailed(f"{entry['name']}: {entry['error_message']}")
        if entry.get("aggregate_name") == "median":
            scale = {"ns": 1, "us": 1e3, "ms": 1e6}[entry["time_unit"]]
            measured[entry["run_name"]] = entry["cpu_time"] * scale
    return measured


def speed_rows(measured):
    subjects = {}
    for name, nanoseconds in measured.items():
        subject, who = name.split("/")
        subjects.setdefault(subject, {})[who] = nanoseconds
    for promised in [*TARGET_RATIOS, *TARGET_NANOSECONDS]:
        if promised not in subjects:
            raise MeasurementFailed(f"{promised}: there is no such benchmark")
    for subject, times in subjects.items():
        ours = times.pop(OURS)
        for who, theirs in times.items():
            ratio = theirs / ours
            row = Row(subject, duration(ours), who, duration(theirs), f"{ratio:.1f}")
            least = TARGET_RATIOS.get(subject, 0)
            most = TARGET_NANOSECONDS.get(subject, math.inf)
            targets = [f"{least} times"] if least else []
            targets += [f"< {duration(most)}"] if most < math.inf else []
            if targets:
                row.target, row.holds = ", ".join(targets), ratio >= least and ours < most
            yield row


# Size


class Reader(threading.Thread):
    """Reads the lines of a pipe to its end, so that the writer never waits."""

    def __init__(self, pipe):
        super().__init__(daemon=True)
        self._pipe = pipe
        self.lines = []
        self.arrived = threading.Condition()
        self.is_at_end = False
        self.start()

    def run(self):
        for line in self._pipe:
            with self.arrived:
                self.lines.append(line.rstrip("\n"))
                self.arrived.notify_all()
        with self.arrived:
            self.is_at_end = True
            self.arrived.notify_all()

    def wait_for(self, wanted, seconds):
        """The first line that is wanted; None when none comes in time."""
        deadline = time.monotonic() + seconds
        seen = 0
        with self.arrived:
            while True:
                for line in self.lines[seen:]:
                    if wanted(line):
                        return line
                seen = len(self.lines)
                left = deadline - time.monotonic()
                if self.is_at_end or left <= 0:
                    return None
                self.arrived.wait(left)


class Program:
    """A running program whose output is read; stopped at the end of a with statement. What it says
    on standard error is shown when the statement ends with an error."""

    def __init__(self, command, environment=None):
        self._errors = tempfile.TemporaryFile("w+", encoding="utf-8")
        self._process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=self._errors,
                                         text=True, encoding="utf-8", env=environment)
        self.output = Reader(self._process.stdout)
        self.pid = self._process.pid

    def __enter__(self):
        return self

    def __exit__(self, error, *_):
        if error:
            self._errors.seek(0)
            sys.stderr.write(self._errors.read())
        self._errors.close()
        self._process.send_signal(signal.SIGTERM)
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def processor_seconds(self):
        # The number of the clock that counts this process's time (clock_getcpuclockid(3)): the sum
        # of user and system time, to the nanosecond where /proc counts hundredths.
        return time.clock_gettime(~self.pid << 3 | 2)

    def kib(self, file, key):
        """What a line such as "Rss:  123 kB" of a file of the process says."""
        text = pathlib.Path(f"/proc/{self.pid}/{file}").read_text(encoding="utf-8")
        for line in text.splitlines():
            if line.startswith(key + ":"):
                return int(line.split()[1])
        raise MeasurementFailed(f"/proc/PID/{file} has no {key}")


def started_simulator(program):
    simulator = Program([program])
    if simulator.output.wait_for(lambda line: line == "ready", 30) is None:
        with simulator:
            raise MeasurementFailed(f"{program} did not get ready")
    return simulator


def label_environment(simulator, home):
    addresses = dict(line.split(" ", 1) for line in simulator.output.lines if " " in line)
    return os.environ | {
        "QUILLBAR_CA_FILE": addresses["ca-file"],
        "QUILLBAR_REST_ENDPOINTS": addresses["rest"],
        "QUILLBAR_STREAM_ENDPOINTS": addresses["stream"],
        "QUILLBAR_MARKETCAP_ENDPOINT": addresses["market-caps"],
        "QUILLBAR_ICON_ENDPOINT": addresses["icons"],
        "XDG_DATA_HOME": home,
        "XDG_CONFIG_HOME": home,
        "XDG_CACHE_HOME": home,
    }


def size_rows(simulator_program, label_program, seconds):
    with tempfile.TemporaryDirectory() as home, started_simulator(simulator_program) as simulator:
        environment = label_environment(simulator, home)
        begin = time.monotonic()
        with Program([label_program, "--follow"], environment) as label:
            if label.output.wait_for(lambda line: "▲" in line or "▼" in line, 30) is None:
                raise MeasurementFailed(f"{label_program} showed no price")
            at_first_price = label.processor_seconds()
            priced = time.monotonic()
            time.sleep(max(0, seconds - (priced - begin)))
            resident = label.kib("status", "VmRSS")
            proportional = label.kib("smaps_rollup", "Pss")
            anonymous = label.kib("status", "RssAnon")
            total = label.processor_seconds()
            now = time.monotonic()
            changes = len(label.output.lines)
    if changes < seconds / 4:
        raise MeasurementFailed(f"{label_program} printed {changes} lines only")

    name = f"quillbar-label after {seconds} s"
    share = 100 * (total - at_first_price) / (now - priced)
    yield Row(f"{name}: resident", f"{resident / 1024:.1f} MB",
              target=f"< {TARGET_RESIDENT_KIB // 1024} MB", holds=resident < TARGET_RESIDENT_KIB)
    yield Row(f"{name}: its share of shared pages (Pss)", f"{proportional / 1024:.1f} MB")
    yield Row(f"{name}: memory of its own", f"{anonymous / 1024:.1f} MB")
    yield Row(f"{name}: processor, following", f"{share:.3f} %",
              target=f"< {TARGET_PROCESSOR_PERCENT} %", holds=share < TARGET_PROCESSOR_PERCENT)
    yield Row(f"{name}: processor, with its start", f"{100 * total / (now - begin):.3f} %")
    yield Row(f"{name}: processor time to the first price", f"{1000 * at_first_price:.0f} ms")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("benchmarks")
    parser.add_argument("simulator")
    parser.add_argument("label")
    parser.add_argument("--seconds", type=int, default=60)
    arguments = parser.parse_args()
    try:
        rows = list(speed_rows(medians(arguments.benchmarks)))
        rows += size_rows(arguments.simulator, arguments.label, arguments.seconds)
    except MeasurementFailed as failure:
        sys.exit(f"bench-report: {failure}")
    print(table(rows))


main()
