// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppSettings.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

TEST(AppSettings, startsWithTheRollingWindowDarkAndNoBoard) {
    EXPECT_EQ(AppSettings::defaultSettings(),
              (AppSettings{1, ChangeBasis::rolling24h, AppearanceMode::dark, std::nullopt}));
    EXPECT_EQ(AppSettings::kCurrentSchemaVersion, 1);
}

TEST(AppSettings, replacesOneFieldAndKeepsTheRest) {
    const AppSettings settings{7, ChangeBasis::today, AppearanceMode::light, RankingBoard::losers};
    EXPECT_EQ(
        settings.settingBasis(ChangeBasis::rolling24h),
        (AppSettings{7, ChangeBasis::rolling24h, AppearanceMode::light, RankingBoard::losers}));
    EXPECT_EQ(settings.settingAppearance(AppearanceMode::system),
              (AppSettings{7, ChangeBasis::today, AppearanceMode::system, RankingBoard::losers}));
    EXPECT_EQ(settings.settingLastBoard(RankingBoard::gainers),
              (AppSettings{7, ChangeBasis::today, AppearanceMode::light, RankingBoard::gainers}));
    EXPECT_EQ(settings.settingLastBoard(std::nullopt),
              (AppSettings{7, ChangeBasis::today, AppearanceMode::light, std::nullopt}));
}

TEST(AppSettings, leavesTheReceiverUntouched) {
    const AppSettings before = AppSettings::defaultSettings();
    const AppSettings edited = before.settingBasis(ChangeBasis::today);
    EXPECT_EQ(before, AppSettings::defaultSettings());
    EXPECT_NE(edited, before);
}

}  // namespace
}  // namespace quillbar
