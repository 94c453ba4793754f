# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A desktop of its own, on which the installed application is tried.

The addresses of an exchange are taken from the variables of Quillbar; without them there is no
exchange, and the label has no price.
"""
import os
import pathlib
import re
import shlex
import subprocess
import time

import dbus

NAME = "io.github.quillbar.Quillbar"
PROGRAM = "/usr/bin/quillbar"
WATCHER = "org.kde.StatusNotifierWatcher"
NOWHERE = {"QUILLBAR_REST_ENDPOINTS": "http://127.0.0.1:9/api/v3",
           "QUILLBAR_STREAM_ENDPOINTS": "ws://127.0.0.1:9",
           "QUILLBAR_MARKETCAP_ENDPOINT": "http://127.0.0.1:9/api/v3",
           "QUILLBAR_ICON_ENDPOINT": "http://127.0.0.1:9/icons"}
EXCHANGE = {name: value for name, value in os.environ.items()
            if name.startswith("QUILLBAR_")}
BAR = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
"""


def eventually(condition, patience=30):
    """Whether the condition comes true in so many seconds."""
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.1)
    return True


class Desktop:
    """A screen, a session bus that knows the installed services, a window manager and a bar."""

    def __init__(self, home):
        self.home = pathlib.Path(home)
        bar = self.home / ".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"
        bar.parent.mkdir(parents=True)
        bar.write_text(BAR)
        self.environment = {"PATH": "/usr/bin:/bin", "HOME": home, "XDG_RUNTIME_DIR": home,
                            "XDG_CURRENT_DESKTOP": "XFCE", "NO_AT_BRIDGE": "1",
                            "GSETTINGS_BACKEND": "memory", "LANG": "C.UTF-8",
                            **(EXCHANGE or NOWHERE)}
        self.programs = []
        server = self.start("Xvfb", "-displayfd", "1", "-screen", "0", "1280x900x24",
                            "-nolisten", "tcp", "-noreset")
        self.environment["DISPLAY"] = ":" + server.stdout.readline().strip()
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address")
        address = bus.stdout.readline().strip()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.bus = dbus.bus.BusConnection(address)
        self.start("xfwm4", "--compositor=off")
        self.start("xfce4-panel", "--disable-wm-check")

    def start(self, *command):
        program = subprocess.Popen(command, env=self.environment, text=True,
                                   stdout=subprocess.PIPE)
        self.programs.append(program)
        return program

    def run(self, *command, patience=60):
        return subprocess.run(command, env=self.environment, text=True, check=False,
                              stdout=subprocess.PIPE, timeout=patience)

    def end(self):
        self.bus.close()
        for program in reversed(self.programs):
            program.terminate()
            program.wait()
            program.stdout.close()

    def items(self):
        """The bus names of what is in the status area."""
        if not self.bus.name_has_owner(WATCHER):
            return []
        watcher = self.bus.get_object(WATCHER, "/StatusNotifierWatcher", introspect=False)
        items = watcher.Get(WATCHER, "RegisteredStatusNotifierItems",
                            dbus_interface=dbus.PROPERTIES_IFACE)
        return [str(item).split("/")[0] for item in items]

    def process(self):
        """The number of the process that has the application's name; none while none has."""
        if not self.bus.name_has_owner(NAME):
            return None
        return int(self.bus.call_blocking("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                          "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                          "s", (NAME,)))

    def panel_is_open(self):
        found = self.run("xdotool", "search", "--onlyvisible", "--class", "^quillbar$")
        return found.stdout.strip() != ""

    def menu(self):
        """The menu of the item: numbers and marks by label, those of inner menus too."""
        item = self.bus.get_object(self.items()[0], "/StatusNotifierItem", introspect=False)
        path = item.Get("org.kde.StatusNotifierItem", "Menu",
                        dbus_interface=dbus.PROPERTIES_IFACE)
        self.menu_object = self.bus.get_object(self.items()[0], path, introspect=False)
        _, layout = self.menu_object.GetLayout(0, -1, dbus.Array([], "s"),
                                               dbus_interface="com.canonical.dbusmenu")
        labels = {}

        def collect(entry):
            number, properties, children = entry
            if "label" in properties:
                labels[str(properties["label"])] = (int(number),
                                                    bool(properties.get("toggle-state", 0)))
            for child in children:
                collect(child)
        collect(layout)
        return labels

    def choose(self, label):
        number, _ = self.menu()[label]
        self.menu_object.Event(number, "clicked", dbus.Int32(0, variant_level=1),
                               dbus.UInt32(0), dbus_interface="com.canonical.dbusmenu")

    def is_marked(self, label):
        return self.menu()[label][1]

    def activate(self):
        """Starts the application as a menu does: through the bus, which knows its service."""
        self.bus.call_async(NAME, "/io/github/quillbar/Quillbar", "org.freedesktop.Application",
                            "Activate", "a{sv}", ({},), None, None)

    def program(self):
        """The file that the application runs from."""
        return os.readlink(f"/proc/{self.process()}/exe")

    def login_entry(self):
        return self.home / f".config/autostart/{NAME}.desktop"

    def command_at_login(self):
        entry = self.login_entry().read_text()
        return shlex.split(re.search("^Exec=(.*)$", entry, re.MULTILINE)[1])
