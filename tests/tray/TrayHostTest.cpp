// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/TrayHost.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(TrayHost, thatDrawsTextIsGivenText) {
    for (const char* const comm : {"gnome-shell", "ayatana-indicat", "notification-ar"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm).form, LabelForm::text) << comm;
        EXPECT_EQ(TrayHost::ofProcess(comm).label, TrayHost::Label::shown) << comm;
    }
}

TEST(TrayHost, thatKeepsPicturesWideIsGivenTheWholeText) {
    EXPECT_EQ(TrayHost::ofProcess("waybar").form, LabelForm::widePicture);
}

TEST(TrayHost, elsewhereIsGivenASquareAndTheLabel) {
    EXPECT_EQ(TrayHost::ofProcess(""), TrayHost{});
    EXPECT_EQ(TrayHost::ofProcess("some-panel"), TrayHost{});
    EXPECT_EQ(TrayHost{}.form, LabelForm::square);
    EXPECT_EQ(TrayHost{}.label, TrayHost::Label::shown);
}

TEST(TrayHost, thatIsKnownToShowNoLabelIsToldOfNone) {
    for (const char* const comm :
         {"kded5", "lxqt-panel", "panel-7-systray", "panel-12-systray", "swaybar", "waybar"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm).label, TrayHost::Label::ignored) << comm;
    }
    for (const char* const comm :
         {"panel-7-clock", "panel-7-systrax", "panel7-systray", "other-7-systray"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm), TrayHost{}) << comm;
    }
}

TEST(TrayHost, knowsWhoseClicksCannotBePlaced) {
    for (const char* const comm : {"notification-ar", "waybar", "swaybar"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm).clickPosition, TrayHost::ClickPosition::unusable);
    }
    EXPECT_EQ(TrayHost::ofProcess("lxqt-panel").clickPosition, TrayHost::ClickPosition::onScreen);
}

TEST(TrayHost, knowsWhoseWheelTurnsTheOtherWay) {
    for (const char* const comm : {"panel-7-systray", "ayatana-indicat", "waybar"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm).wheelUp, TrayHost::WheelUp::negative) << comm;
    }
    for (const char* const comm : {"lxqt-panel", "kded5", "notification-ar", "some-panel"}) {
        EXPECT_EQ(TrayHost::ofProcess(comm).wheelUp, TrayHost::WheelUp::positive) << comm;
    }
}

TEST(TrayHost, knowsTheOddOnes) {
    EXPECT_EQ(TrayHost::ofProcess("lxqt-panel").tooltip, TrayHost::Tooltip::titleAlone);
    EXPECT_EQ(TrayHost::ofProcess("waybar").tooltip, TrayHost::Tooltip::itemTitle);
    EXPECT_EQ(TrayHost::ofProcess("panel-7-systray").emptyTooltip, TrayHost::EmptyTooltip::names);
    EXPECT_EQ(TrayHost::ofProcess("ayatana-indicat").icon, TrayHost::Icon::themeName);
    EXPECT_EQ(TrayHost::ofProcess("panel-7-systray").picks, TrayHost::Picks::largest);
    EXPECT_EQ(TrayHost::ofProcess("gnome-shell").bar, TrayHost::Bar::dark);
}

}  // namespace

}  // namespace quillbar
