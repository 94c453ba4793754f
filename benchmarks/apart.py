# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Helpers that share no memory with what is measured.

The simulator and the bar are made with Qt too. Were they to use the same files, the system would
count a part of each of the application's pages as theirs, and its share would look smaller than on
a desktop where nothing else uses Qt. So they run from copies.
"""
import os
import pathlib
import shutil
import subprocess

# What every program of a desktop uses.
COMMON = ("libc.so", "libm.so", "libstdc++.so", "libgcc_s.so")


def libraries_of(program):
    """The files of the libraries that a program is linked with."""
    listed = subprocess.run(["ldd", program], stdout=subprocess.PIPE, text=True, encoding="utf-8",
                            check=True).stdout
    for line in listed.splitlines():
        name, arrow, rest = line.strip().partition(" => ")
        if arrow and not name.startswith(COMMON):
            yield pathlib.Path(rest.rsplit(" (", 1)[0])


class Apart:
    """A folder of copies."""

    def __init__(self, folder):
        self._folder = pathlib.Path(folder)

    def copy(self, program):
        """The path of the program's copy, its libraries and their plugins beside it."""
        target = self._folder / pathlib.Path(program).name
        if not target.exists():
            shutil.copy2(program, target)
            for library in libraries_of(program):
                if not (self._folder / library.name).exists():
                    shutil.copy2(library, self._folder)
                plugins = library.parent / "qt6" / "plugins" / "tls"
                if library.name.startswith("libQt6Network.") and plugins.is_dir():
                    shutil.copytree(plugins, self._folder / "plugins" / "tls", dirs_exist_ok=True)
        return str(target)

    def environment(self, environment=os.environ):
        """What a copy needs to use the other copies."""
        return dict(environment) | {"LD_LIBRARY_PATH": str(self._folder),
                                    "QT_PLUGIN_PATH": str(self._folder / "plugins")}
