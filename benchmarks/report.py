# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Measures what is promised of speed and size, and prints it in one table.

Usage: report.py FOLDER [--rows GROUP...] [--seconds N] [--soak-seconds N]

FOLDER holds the programs of a build. Without --rows all groups of rows are measured. Each time of
the first lines is the median processor time of several repetitions, which alternate between ours
and the alternatives. The programs follow the simulator for N seconds (60) before their size is
looked at; the long run takes 180 seconds unless told otherwise. What is judged stands in the files
of the groups. No verdict depends on what else the machine does: times are processor times or are
compared with those of another program in the same run. The report fails only when something could
not be measured: a target that does not hold is for its reader to judge.
"""
import argparse
import json
import math
import pathlib
import subprocess
import sys
import tempfile

from apart import Apart
from openings import flood_rows, opening_rows, start_rows
from processes import MeasurementFailed, Programs
from rows import Row, duration, table
from sizes import board_rows, closed_rows, label_rows, open_rows, soak_rows
from tabs import first_rows, refresh_rows, scroll_rows, switch_rows

OURS = "Quillbar"
REPETITIONS = 9

# What is promised of each subject: how many times faster than an alternative, how fast, or both.
# The times leave room for a neighbour on the other half of the processor's core, which costs a
# quarter.
TARGET_RATIOS = {
    ("exchange information, 3.7 MB", "QJsonDocument"): 8,
    ("2,500 tickers, short form", "QJsonDocument"): 8,
    ("2,500 tickers, long form", "QJsonDocument"): 8,
    ("a board of 50 out of 2,500", "std::stable_sort of all"): 5,
    ("a board of 50 out of 2,500", "std::stable_sort of pointers to all"): 3,
    ("a market-cap board of 100", "the whole universe indexed"): 1.5,
}
TARGET_NANOSECONDS = {
    "a frame of the stream": 2000,
    "market caps of 250 coins": 1_000_000,
    "1,000 watched coins by change": 1_000_000,
}
# How much longer ours may take than the same without it: 1 µs for each of 2,000 ticks.
TARGET_MORE_NANOSECONDS = {
    ("2,000 ticks with 20 alerts", "without alerts"): 2_000_000,
}


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


def speed_rows(programs, _options):
    measured = medians(programs.path("quillbar-benchmarks"))
    subjects = {}
    for name, nanoseconds in measured.items():
        subject, who = name.split("/")
        subjects.setdefault(subject, {})[who] = nanoseconds
    promised = {subject for subject, _ in (*TARGET_RATIOS, *TARGET_MORE_NANOSECONDS)}
    promised |= set(TARGET_NANOSECONDS)
    for missing in promised - set(subjects):
        raise MeasurementFailed(f"{missing}: there is no such benchmark")
    for subject, times in subjects.items():
        ours = times.pop(OURS)
        for who, theirs in times.items():
            ratio = theirs / ours
            row = Row(subject, duration(ours), who, duration(theirs), f"{ratio:.1f}")
            least = TARGET_RATIOS.get((subject, who), 0)
            most = TARGET_NANOSECONDS.get(subject, math.inf)
            more = TARGET_MORE_NANOSECONDS.get((subject, who), math.inf)
            targets = [f"{least} times"] if least else []
            targets += [f"< {duration(most)}"] if most < math.inf else []
            targets += [f"< {duration(more)} more"] if more < math.inf else []
            if targets:
                row.target = ", ".join(targets)
                row.holds = ratio >= least and ours < most and ours - theirs < more
            yield row


GROUPS = {
    "speed": speed_rows,
    "label": label_rows,
    "closed": closed_rows,
    "open": open_rows,
    "board": board_rows,
    "soak": soak_rows,
    "start": start_rows,
    "opening": opening_rows,
    "flood": flood_rows,
    "first": first_rows,
    "switch": switch_rows,
    "refresh": refresh_rows,
    "scroll": scroll_rows,
}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--rows", nargs="+", choices=GROUPS, default=list(GROUPS), metavar="GROUP",
                        help="of " + ", ".join(GROUPS))
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--soak-seconds", type=int, default=180)
    options = parser.parse_args()
    rows = []
    try:
        with tempfile.TemporaryDirectory() as copies:
            programs = Programs(options.folder, Apart(copies))
            for group in options.rows:
                rows += GROUPS[group](programs, options)
    except MeasurementFailed as failure:
        sys.exit(f"bench-report: {failure}")
    print(table(rows))


main()
