# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The settings of each desktop: one bar, its status area, and no clock, whose minutes would be
taken for the item's changes. Tiled windows have no frames, whose colours tell the focus."""

GNOME = (
    ("org.gnome.shell", "enabled-extensions", "['ubuntu-appindicators@ubuntu.com']"),
    ("org.gnome.shell", "disable-user-extensions", "false"),
    ("org.gnome.shell", "welcome-dialog-last-shown-version", "'99'"),
    ("org.gnome.desktop.interface", "enable-animations", "false"),
)

CINNAMON_APPLETS = ("['panel1:right:0:systray@cinnamon.org', "
                    "'panel1:right:1:xapp-status@cinnamon.org']")

PLASMA = """\
[Containments][1]
formfactor=2
immutability=1
lastScreen=0
location=4
plugin=org.kde.panel
wallpaperplugin=org.kde.image

[Containments][1][Applets][2]
immutability=1
plugin=org.kde.plasma.panelspacer

[Containments][1][Applets][3]
immutability=1
plugin=org.kde.plasma.systemtray

[Containments][1][General]
AppletOrder=2;3
"""

SWAY = """\
output X11-1 resolution 1280x800 position 0 0 bg #446688 solid_color
xwayland enable
seat seat0 fallback true
default_border none
"""

SWAYBAR = """\
bar {
    position top
    tray_output *
}
"""

WAYBAR = """\
{ "layer": "top", "position": "top", "height": 28, "modules-left": ["sway/workspaces"],
  "modules-right": ["tray"], "tray": { "icon-size": 22, "spacing": 6 } }
"""

WAYBAR_STYLE = """\
* { font-family: DejaVu Sans; font-size: 13px; }
window#waybar { background: #222; color: #fff; }
"""

MATE_LAYOUT = """\
[Toplevel top]
expand=true
orientation=top
size=28

[Object status]
object-type=applet
applet-iid={applet}
toplevel-id=top
position=10
relative-to-edge=end
locked=true
"""

LXQT_PANEL = """\
panels=panel1

[panel1]
alignment=-1
animation-duration=0
iconSize=22
panelSize=32
plugins=taskbar, statusnotifier, tray
position=Bottom
reserve-space=true
width=100
width-percent=true

[statusnotifier]
alignment=Right
type=statusnotifier

[taskbar]
alignment=Left
type=taskbar

[tray]
alignment=Right
type=tray
"""

LXQT = """\
[General]
theme=debian
icon_theme=Adwaita
"""

XFCE = """\
<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist"/>
    <property name="plugin-2" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-3" type="string" value="systray">
      <property name="square-icons" type="bool" value="false"/>
    </property>
  </property>
</channel>
"""

I3 = """\
# i3 config file (v4)
font pango:DejaVu Sans 10
default_border none
bar {
    position top
}
"""
