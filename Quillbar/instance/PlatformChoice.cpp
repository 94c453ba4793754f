// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/PlatformChoice.h"

#include <algorithm>
#include <string_view>

namespace quillbar {

namespace {

bool namesKdeOrGnome(std::string_view desktops) {
    while (!desktops.empty()) {
        const auto length = std::min(desktops.find(':'), desktops.size());
        const std::string_view desktop = desktops.substr(0, length);
        if (desktop == "KDE" || desktop == "GNOME") {
            return true;
        }
        desktops.remove_prefix(std::min(length + 1, desktops.size()));
    }
    return false;
}

}  // namespace

std::optional<std::string> choosePlatform(const EnvironmentVariables& variables) {
    const auto valueOf = [&](const char* name) { return variables(name).value_or(""); };
    const bool hasBoth = !valueOf("WAYLAND_DISPLAY").empty() && !valueOf("DISPLAY").empty();
    const bool userChose = !valueOf("QT_QPA_PLATFORM").empty();
    if (!hasBoth || userChose || !namesKdeOrGnome(valueOf("XDG_CURRENT_DESKTOP"))) {
        return std::nullopt;
    }
    return "xcb;wayland";
}

}  // namespace quillbar
