# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The desktops and bars that show status items: how each is installed, started and used."""
import dataclasses
import json
import shutil
import typing

import configurations
from session import wait_for

TOOLS = ("xvfb", "xdotool", "imagemagick", "x11-utils", "x11-xserver-utils", "xterm", "dbus",
         "libglib2.0-bin", "wget", "fonts-dejavu-core", "fonts-noto-cjk")


def x_windows(session):
    """The windows that the window manager knows."""
    answer = session.text("xprop", "-root", "_NET_CLIENT_LIST", **session.inside)
    return sorted(word.strip(", ") for word in answer.split() if word.startswith("0x"))


def sway_windows(session):
    def leaves(node):
        children = node.get("nodes", []) + node.get("floating_nodes", [])
        found = [str(node["id"])] if node.get("pid") else []
        return found + [leaf for child in children for leaf in leaves(child)]
    return sorted(leaves(json.loads(session.text("swaymsg", "-t", "get_tree") or "{}")))


def show_sway_workspace(session, name):
    session.call("swaymsg", "workspace", name)


@dataclasses.dataclass(frozen=True)
class Host:
    """A program that shows the item, in the session that it belongs to."""
    name: str
    packages: tuple
    # Starts the session without the host, and then the host, also a second time.
    prepare: typing.Callable
    show: typing.Callable
    # Brings a desktop that has started to where its windows are seen.
    begin: typing.Callable = lambda session: None
    # The program of the session that is the host.
    painter: str = "bar"
    # What the session's bus starts to draw the items, where the painter does not draw them itself.
    applets: tuple = ()
    bar: str = "top"
    # Whether the bar comes long after what is behind it.
    comes_late: bool = False
    # How the panel is opened: by a click, a double click, or the first entry of a click's menu.
    opens_by: str = "click"
    variables: dict = dataclasses.field(default_factory=dict)
    # Of an older protocol, by which nobody registers.
    is_older: bool = False
    # Shows a workspace by its name, where windows are tiled and cover the desktop.
    show_workspace: typing.Callable = lambda session, name: None
    # Whether it may die and come back while the application lives.
    may_die: bool = True
    # The greatest part of a processor, in percent, that the updates may cost the painter.
    cost: float = 1.0
    plain_user: bool = False
    windows: typing.Callable = x_windows


def openbox(session):
    session.spawn("manager", "openbox")
    session.call("xsetroot", "-solid", "#446688")


def prepare_gnome(session):
    session.activate_environment()
    for schema, key, value in configurations.GNOME:
        session.call("gsettings", "set", schema, key, value)


def show_gnome(session):
    session.spawn("shell", "gnome-shell", "--x11", "--mode=user")


def show_gnome_wayland(session):
    session.start_compositor("gnome-shell", "--nested", "--wayland", "--mode=user")


def leave_overview(session):
    """GNOME begins with an overview of the windows."""
    def shell(method, *values):
        return session.text("gdbus", "call", "--session", "--dest", "org.gnome.Shell",
                            "--object-path", "/org/gnome/Shell",
                            "--method", f"org.freedesktop.DBus.Properties.{method}",
                            "org.gnome.Shell", "OverviewActive", *values)

    def is_left():
        shell("Set", "<false>")
        return "false" in shell("Get")
    wait_for("the overview", lambda: "true" in shell("Get"))
    wait_for("the end of the overview", is_left)


def write_plasma(session):
    session.write(".config/plasma-org.kde.plasma.desktop-appletsrc", configurations.PLASMA)
    session.activate_environment()


def prepare_plasma(session):
    write_plasma(session)
    session.spawn("services", "kded5")
    session.spawn("manager", "kwin_x11", KWIN_COMPOSE="N")


def show_plasma(session):
    session.spawn("bar", "plasmashell", **session.inside)


def prepare_plasma_wayland(session):
    write_plasma(session)
    # A copy has no file capabilities, with which it would refuse a nested session.
    compositor = shutil.copy("/usr/bin/kwin_wayland", session.folder / "bin/kwin_wayland")
    session.start_compositor(compositor, "--x11-display", session.variables["DISPLAY"], "--width",
                             "1280", "--height", "800", "--xwayland", "--socket", "wayland-k")
    session.spawn("services", "kded5", **session.inside)


def prepare_sway(session, bar=""):
    session.write(".config/sway/config", configurations.SWAY + bar)
    session.write(".config/waybar/config", configurations.WAYBAR)
    session.write(".config/waybar/style.css", configurations.WAYBAR_STYLE)
    session.activate_environment()
    session.start_compositor("sway", WLR_BACKENDS="x11", WLR_RENDERER="pixman")
    sockets = list(session.runtime.glob("sway-ipc.*"))
    session.variables["SWAYSOCK"] = str(sockets[0])


def show_waybar(session):
    session.spawn("bar", "waybar", **session.inside)


def prepare_mate(session, applet):
    session.write_system("/usr/share/mate-panel/layouts/quillbar-test.layout",
                         configurations.MATE_LAYOUT.format(applet=applet))
    session.write(".config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=mate\n")
    session.activate_environment()
    session.spawn("manager", "marco", "--no-composite")
    session.call("xsetroot", "-solid", "#446688")
    session.call("gsettings", "set", "org.mate.panel", "default-layout", "quillbar-test")


def prepare_mate_indicators(session):
    prepare_mate(session, "IndicatorAppletCompleteFactory::IndicatorAppletComplete")
    session.spawn("indicators", "/usr/libexec/ayatana-indicator-application/"
                  "ayatana-indicator-application-service")


def show_mate(session):
    session.spawn("bar", "mate-panel", "--replace")


def prepare_lxqt(session):
    session.write(".config/lxqt/panel.conf", configurations.LXQT_PANEL)
    session.write(".config/lxqt/lxqt.conf", configurations.LXQT)
    openbox(session)


def prepare_xfce(session):
    session.write(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml", configurations.XFCE)
    session.activate_environment()
    session.spawn("manager", "xfwm4", "--compositor=off")
    session.call("xsetroot", "-solid", "#446688")


def prepare_cinnamon(session):
    session.activate_environment()
    session.call("gsettings", "set", "org.cinnamon", "enabled-applets",
                 configurations.CINNAMON_APPLETS)


def prepare_i3(session):
    session.write(".config/i3/config", configurations.I3)


def show_trayer(session):
    session.spawn("bar", "trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                  "--height", "28", "--SetPartialStrut", "true", "--SetDockType", "true")


GNOME_VARIABLES = {"XDG_CURRENT_DESKTOP": "GNOME", "GSETTINGS_BACKEND": "dconf",
                   "LIBGL_ALWAYS_SOFTWARE": "1"}
PLASMA_VARIABLES = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
                    "KDE_SESSION_VERSION": "5", "LIBGL_ALWAYS_SOFTWARE": "1",
                    "QT_QUICK_BACKEND": "software"}
GNOME_PACKAGES = ("gnome-shell", "gnome-shell-extension-appindicator", "xdg-desktop-portal-gnome",
                  "dconf-gsettings-backend", "fonts-cantarell")
PLASMA_PACKAGES = ("plasma-desktop", "plasma-workspace", "xdg-desktop-portal-kde")
MATE = {"XDG_CURRENT_DESKTOP": "MATE", "GSETTINGS_BACKEND": "dconf"}
# Marco asks for the schemas of the settings daemon.
MATE_PACKAGES = ("mate-panel", "marco", "mate-settings-daemon-common", "mate-icon-theme")

HOSTS = (
    Host("gnome", GNOME_PACKAGES, prepare_gnome, show_gnome, begin=leave_overview, painter="shell",
         opens_by="double", variables={**GNOME_VARIABLES, "XDG_SESSION_TYPE": "x11"}, cost=4),
    Host("gnome-wayland", (*GNOME_PACKAGES, "xwayland"), prepare_gnome, show_gnome_wayland,
         begin=leave_overview, painter="compositor", opens_by="menu",
         may_die=False, cost=4,
         variables={**GNOME_VARIABLES, "XDG_SESSION_TYPE": "wayland",
                    "MUTTER_DEBUG_DUMMY_MODE_SPECS": "1280x800"}),
    Host("plasma", (*PLASMA_PACKAGES, "kwin-x11"), prepare_plasma, show_plasma, bar="bottom",
         comes_late=True, variables={**PLASMA_VARIABLES, "XDG_SESSION_TYPE": "x11"}, cost=4),
    Host("plasma-wayland", (*PLASMA_PACKAGES, "plasma-workspace-wayland", "kwin-wayland"),
         prepare_plasma_wayland, show_plasma, bar="bottom", comes_late=True, cost=4,
         variables={**PLASMA_VARIABLES, "XDG_SESSION_TYPE": "wayland", "KWIN_COMPOSE": "Q"}),
    Host("waybar", ("sway", "waybar", "xwayland", "qt6-wayland"), prepare_sway, show_waybar,
         variables={"XDG_CURRENT_DESKTOP": "sway"}, plain_user=True, windows=sway_windows,
         show_workspace=show_sway_workspace),
    Host("swaybar", ("sway", "xwayland", "qt6-wayland"),
         lambda session: prepare_sway(session, configurations.SWAYBAR),
         lambda session: session.call("swaymsg", "reload"), painter="compositor",
         variables={"XDG_CURRENT_DESKTOP": "sway"}, may_die=False, plain_user=True,
         windows=sway_windows, show_workspace=show_sway_workspace),
    Host("mate", MATE_PACKAGES,
         lambda session: prepare_mate(session, "NotificationAreaAppletFactory::NotificationArea"),
         show_mate, variables=MATE, applets=("notification-area-applet",)),
    Host("mate-indicators", ("mate-indicator-applet", "ayatana-indicator-application",
                             *MATE_PACKAGES),
         prepare_mate_indicators, show_mate, variables=MATE, opens_by="menu",
         applets=("mate-indicator-applet-complete", "ayatana-indicator-application-service")),
    Host("lxqt", ("lxqt-panel", "lxqt-theme-debian", "openbox", "adwaita-icon-theme"),
         prepare_lxqt, lambda session: session.spawn("bar", "lxqt-panel"), bar="bottom"),
    Host("xfce", ("xfce4-panel", "xfconf", "xfwm4"), prepare_xfce,
         lambda session: session.spawn("bar", "xfce4-panel", "--disable-wm-check"),
         variables={"XDG_CURRENT_DESKTOP": "XFCE"}),
    Host("cinnamon", ("cinnamon",), prepare_cinnamon,
         lambda session: session.spawn("shell", "cinnamon", "--replace"), painter="shell",
         bar="bottom", is_older=True, cost=4,
         variables={"XDG_CURRENT_DESKTOP": "X-Cinnamon", "DESKTOP_SESSION": "cinnamon",
                    "GSETTINGS_BACKEND": "dconf", "LIBGL_ALWAYS_SOFTWARE": "1"}),
    Host("i3", ("i3-wm",), prepare_i3, lambda session: session.spawn("bar", "i3"), is_older=True,
         may_die=False, variables={"XDG_CURRENT_DESKTOP": "i3"},
         show_workspace=lambda session, name: session.call("i3-msg", "workspace", name)),
    Host("trayer", ("trayer", "openbox"), openbox, show_trayer, is_older=True),
)
