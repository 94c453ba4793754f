// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/TrayHost.h"

namespace quillbar {

TrayHost TrayHost::ofProcess(std::string_view comm) {
    TrayHost host;
    if (comm == "gnome-shell") {
        host.form = LabelForm::text;
        host.bar = Bar::dark;
    } else if (comm == "ayatana-indicat") {
        // ayatana-indicator-application 22.2 shows a picture of "missing" for any pixmap.
        host.form = LabelForm::text;
        host.icon = Icon::themeName;
        host.wheelUp = WheelUp::negative;
    } else if (comm == "notification-ar") {
        // MATE 1.26 says (0,28) for every click.
        host.form = LabelForm::text;
        host.clickPosition = ClickPosition::unusable;
    } else if (comm == "waybar") {
        // waybar 0.9 counts from the item's corner. It goes on showing the last tooltip in place of
        // an empty one, but shows the title of an item without a tooltip, and nothing for an empty
        // title.
        host.form = LabelForm::widePicture;
        host.label = Label::ignored;
        host.clickPosition = ClickPosition::unusable;
        host.tooltip = Tooltip::itemTitle;
        host.wheelUp = WheelUp::negative;
    } else if (comm == "swaybar") {
        // swaybar 1.7 counts from the output's corner, and shows an error for a wide picture.
        host.label = Label::ignored;
        host.clickPosition = ClickPosition::unusable;
    } else if (comm == "lxqt-panel") {
        host.label = Label::ignored;
        host.tooltip = Tooltip::titleAlone;
    } else if (comm == "kded5") {
        // Plasma 5.27.
        host.label = Label::ignored;
    } else if (comm.starts_with("panel-") && comm.ends_with("-systray")) {
        // Xfce 4.18.
        host.label = Label::ignored;
        host.picks = Picks::largest;
        host.emptyTooltip = EmptyTooltip::names;
        host.wheelUp = WheelUp::negative;
    }
    return host;
}

}  // namespace quillbar
