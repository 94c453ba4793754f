# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Measures what is promised of speed and size, and prints it in one table.

Usage: report.py [--seconds N] BENCHMARKS SIMULATOR LABEL APPLICATION DESKTOP

They are the programs; DESKTOP is the one that plays the application's surroundings. Each time of the
first lines is the median processor time of several repetitions, which alternate between ours and the
alternatives. The label and the application follow four coins of the simulator over TLS for N seconds
(60), and are looked at then. How the application's own times are taken stands in desktop.py and
tabs.py. The report fails only when something could not be measured: a target that does not hold is
for its reader to judge.
"""
import argparse
import json
import math
import subprocess
import sys
import tempfile

from desktop import desktop_rows
from processes import MeasurementFailed, Program, environment_of, started
from rows import Row, duration, table
from tabs import tab_rows
from usage import Limit, is_priced, usage_of

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
LABEL_LIMIT = Limit(resident_megabytes=30, processor_percent=0.2)


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


def label_rows(programs, seconds):
    with tempfile.TemporaryDirectory() as home, started(programs.simulator) as simulator:
        with Program([programs.label, "--follow"], environment_of(simulator, home)) as label:
            usage = usage_of(label, label, is_priced, seconds)
            if len(label.output.lines) < seconds / 4:
                raise MeasurementFailed(f"{label.name} printed too few lines")
    return usage.rows(f"quillbar-label after {seconds} s", LABEL_LIMIT)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for program in ("benchmarks", "simulator", "label", "application", "desktop"):
        parser.add_argument(program)
    parser.add_argument("--seconds", type=int, default=60)
    arguments = parser.parse_args()
    try:
        rows = list(speed_rows(medians(arguments.benchmarks)))
        rows += label_rows(arguments, arguments.seconds)
        rows += desktop_rows(arguments, arguments.seconds)
        rows += tab_rows(arguments, arguments.seconds)
    except MeasurementFailed as failure:
        sys.exit(f"bench-report: {failure}")
    print(table(rows))


main()
