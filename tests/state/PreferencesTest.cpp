// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/Preferences.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(Preferences, areGreenForRisingAtAFirstStart) {
    const Preferences& preferences = Preferences::defaultPreferences();
    EXPECT_EQ(preferences.schemaVersion, 1);
    EXPECT_EQ(preferences.changeColors, ChangeColors::greenUp);
    EXPECT_FALSE(preferences.alertSound);
    EXPECT_EQ(preferences.textSize, TextSize::normal);
    EXPECT_EQ(preferences.language, Language::chinese);
}

TEST(Preferences, ofAFirstStartWordTheLabelWithCoinPriceAndChange) {
    const LabelPreferences& label = Preferences::defaultPreferences().label;
    EXPECT_EQ(label.wording, LabelWording::symbolPriceChange);
    EXPECT_EQ(label.ownTemplate, "{symbol} {price} {arrow} {change}");
    EXPECT_FALSE(label.isDiscreet);
    EXPECT_EQ(label.coins, LabelCoins::pinned);
    EXPECT_EQ(label.rotationSeconds, 10);
}

TEST(Preferences, areReplacedOneFieldAtATime) {
    const Preferences before{7, ChangeColors::greenUp};
    EXPECT_EQ(before.settingChangeColors(ChangeColors::blueUp),
              (Preferences{7, ChangeColors::blueUp}));
    EXPECT_EQ(before.settingAlertSound(true),
              (Preferences{.schemaVersion = 7, .alertSound = true}));
    EXPECT_EQ(before.settingLanguage(Language::english),
              (Preferences{.schemaVersion = 7, .language = Language::english}));
    EXPECT_EQ(before.changeColors, ChangeColors::greenUp);
    EXPECT_EQ(before.settingTextSize(TextSize::larger),
              (Preferences{.schemaVersion = 7, .textSize = TextSize::larger}));
    EXPECT_EQ(before.textSize, TextSize::normal);
    const LabelPreferences label{.wording = LabelWording::price, .isDiscreet = true};
    EXPECT_EQ(before.settingLabel(label), (Preferences{7, ChangeColors::greenUp, label}));
    EXPECT_FALSE(before.label.isDiscreet);
}

TEST(Preferences, areEqualWhenEveryFieldIs) {
    const Preferences preferences{1, ChangeColors::redUp};
    EXPECT_EQ(preferences, (Preferences{1, ChangeColors::redUp}));
    EXPECT_NE(preferences, (Preferences{2, ChangeColors::redUp}));
    EXPECT_NE(preferences, (Preferences{1, ChangeColors::blueUp}));
    EXPECT_NE(preferences, preferences.settingLabel({.wording = LabelWording::price}));
    EXPECT_NE(preferences, preferences.settingLabel({.ownTemplate = "{price}"}));
    EXPECT_NE(preferences, preferences.settingLabel({.isDiscreet = true}));
    EXPECT_NE(preferences, preferences.settingAlertSound(true));
    EXPECT_NE(preferences, preferences.settingTextSize(TextSize::large));
    EXPECT_NE(preferences, preferences.settingLanguage(Language::desktop));
}

}  // namespace
}  // namespace quillbar
