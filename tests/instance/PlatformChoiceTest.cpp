// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/PlatformChoice.h"
#include "tests/support/FakeEnvironment.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using Variables = std::map<std::string, std::string>;

/// A Wayland session with XWayland, on this desktop.
Variables sessionOn(const std::string& desktop) {
    return {{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":0"}, {"XDG_CURRENT_DESKTOP", desktop}};
}

std::optional<std::string> chosen(Variables variables, const Variables& changes = {}) {
    for (const auto& [name, value] : changes) {
        variables[name] = value;
    }
    return choosePlatform(environmentOf(variables));
}

TEST(PlatformChoiceTest, xwaylandPlacesThePanelOnKdeAndGnome) {
    for (const char* const desktop : {"KDE", "GNOME", "ubuntu:GNOME", "GNOME-Classic:GNOME"}) {
        EXPECT_EQ(chosen(sessionOn(desktop)), "xcb;wayland") << desktop;
    }
}

TEST(PlatformChoiceTest, otherDesktopsKeepTheirOwn) {
    for (const char* const desktop : {"sway", "", "XFCE", "GNOMELESS", "X-KDE", "gnome"}) {
        EXPECT_EQ(chosen(sessionOn(desktop)), std::nullopt) << desktop;
    }
    EXPECT_EQ(choosePlatform(environmentOf({})), std::nullopt);
}

TEST(PlatformChoiceTest, nothingIsChosenWithoutBothDisplays) {
    EXPECT_EQ(chosen(sessionOn("KDE"), {{"WAYLAND_DISPLAY", ""}}), std::nullopt);
    EXPECT_EQ(chosen(sessionOn("KDE"), {{"DISPLAY", ""}}), std::nullopt);
}

TEST(PlatformChoiceTest, theUsersWordComesFirst) {
    EXPECT_EQ(chosen(sessionOn("KDE"), {{"QT_QPA_PLATFORM", "wayland"}}), std::nullopt);
    EXPECT_EQ(chosen(sessionOn("KDE"), {{"QT_QPA_PLATFORM", ""}}), "xcb;wayland");
}

}  // namespace

}  // namespace quillbar
