# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Tries hosts one after the other, and prints what came of each."""
import argparse
import os
import pathlib
import signal
import subprocess
import sys

from hosts import TOOLS
from results import Results

ROOT = pathlib.Path(__file__).resolve().parents[2]


def parsed_arguments(description, kind, hosts):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("hosts", metavar=kind, nargs="*", help="all of them without one: "
                        + ", ".join(host.name for host in hosts))
    parser.add_argument("--programs", type=pathlib.Path, default=ROOT / "build/release/bin",
                        help="the folder of quillbar and quillbar-simulator")
    parser.add_argument("--pictures", type=pathlib.Path,
                        help="a folder for a picture of the item at each host, the screen at each "
                        "failure, and the logs")
    parser.add_argument("--no-setup", action="store_true", help="installs nothing")
    arguments = parser.parse_args()
    unknown = set(arguments.hosts) - {host.name for host in hosts}
    if unknown:
        parser.error(f"unknown: {', '.join(sorted(unknown))}")
    missing = [name for name in ("quillbar", "quillbar-simulator")
               if not (arguments.programs / name).is_file()]
    if missing:
        parser.error(f"{arguments.programs} has no {' and no '.join(missing)}; build them first")
    return arguments


def install(packages):
    command = ["apt-get", "install", "--yes", "--no-install-recommends", *packages]
    if os.geteuid() != 0:
        command.insert(0, "sudo")
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def version(package):
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return done.stdout or "not a package"


def verdict(results):
    """What came of a host in one word."""
    if results.wrong:
        return "wrong"
    return "host" if results.limited else "green"


def report(host, results):
    """One line of a host, and one of each check that did not hold or could not be tried."""
    package = host.packages[0]
    held = len(results.held)
    tried_count = held + len(results.wrong) + len(results.limited)
    print(f"{host.name} ({package} {version(package)}): {verdict(results)}, {held} of "
          f"{tried_count} hold", flush=True)
    for kind, texts in (("", results.wrong), ("host: ", results.limited),
                        ("not tried: ", results.not_tried)):
        for name, text in texts.items():
            print(f"    {kind}{name}: {text}", flush=True)


def tried(host, arguments, visit):
    if not arguments.no_setup:
        try:
            install([*TOOLS, *host.packages])
        except (OSError, subprocess.CalledProcessError) as failure:
            results = Results()
            results.wrong["packages"] = str(failure)
            return results
    return visit(host, arguments.programs, arguments.pictures)


def main(description, kind, hosts, visit):
    """What the program ends with: 1 when something is wrong."""
    arguments = parsed_arguments(description, kind, hosts)
    # Ended from outside, it still ends what it has started.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    if arguments.pictures:
        arguments.pictures.mkdir(parents=True, exist_ok=True)
    failures = 0
    for host in hosts:
        if arguments.hosts and host.name not in arguments.hosts:
            continue
        results = tried(host, arguments, visit)
        failures += len(results.wrong)
        report(host, results)
    return 1 if failures else 0
