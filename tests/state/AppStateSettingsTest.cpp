// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kBasisNotSaved = "设置未能保存到磁盘";
constexpr const char* kAppearanceNotSaved = "外观设置保存失败,重启后会恢复原值";

struct AppStateSettingsTest : AppStateFixture {
    void SetUp() override { startConnected(listOf({"BTC"})); }

    /// How often something was waited for to be on the disk.
    [[nodiscard]] std::ptrdiff_t syncCount() const {
        return std::count(files.calls.begin(), files.calls.end(), "fsync");
    }
};

TEST_F(AppStateSettingsTest, savesEachSettingAtOnce) {
    AppSettings expected = AppSettings::defaultSettings();
    state->setChangeBasis(ChangeBasis::today);
    expected.changeBasis = ChangeBasis::today;
    EXPECT_EQ(storedSettings(), expected);
    state->setAppearance(AppearanceMode::light);
    expected.appearance = AppearanceMode::light;
    EXPECT_EQ(storedSettings(), expected);
    state->setLastBoard(RankingBoard::losers);
    expected.lastBoard = RankingBoard::losers;
    EXPECT_EQ(storedSettings(), expected);
    EXPECT_EQ(*state->settings(), expected);
    EXPECT_EQ(*state->lastError(), std::nullopt);
}

TEST_F(AppStateSettingsTest, waitsForTheDiskWithTheUsersEditsButNotWithTheBoard) {
    // The file and its folder.
    state->setAppearance(AppearanceMode::light);
    EXPECT_EQ(syncCount(), 2);
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(syncCount(), 4);
    state->setLastBoard(RankingBoard::losers);
    state->setLastBoard(std::nullopt);
    state->setLastBoard(RankingBoard::volume);
    EXPECT_EQ(syncCount(), 4);
    EXPECT_EQ(storedSettings(), *state->settings());
    state->setAppearance(AppearanceMode::system);
    EXPECT_EQ(syncCount(), 6);
    state->pin("BTCUSDT");
    EXPECT_EQ(syncCount(), 8);
}

TEST_F(AppStateSettingsTest, forgetsTheBoardForTheWatchlist) {
    state->setLastBoard(RankingBoard::marketCap);
    state->setLastBoard(std::nullopt);
    EXPECT_EQ(storedSettings().lastBoard, std::nullopt);
    EXPECT_EQ(*state->settings(), AppSettings::defaultSettings());
}

TEST_F(AppStateSettingsTest, doesNothingForTheValueThatIsSet) {
    state->setLastBoard(RankingBoard::gainers);
    files.calls.clear();
    Notes<AppSettings> settings(state->settings());
    state->setChangeBasis(ChangeBasis::rolling24h);
    state->setAppearance(AppearanceMode::dark);
    state->setLastBoard(RankingBoard::gainers);
    EXPECT_THAT(settings.values, IsEmpty());
    EXPECT_THAT(files.calls, IsEmpty());
}

TEST_F(AppStateSettingsTest, keepsABasisThatCouldNotBeSaved) {
    files.breakAll();
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(state->settings()->changeBasis, ChangeBasis::today);
    EXPECT_EQ(*state->lastError(), kBasisNotSaved);
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith("AppState|error|failed to persist settings: cannot ")));
}

TEST_F(AppStateSettingsTest, keepsAnAppearanceThatCouldNotBeSaved) {
    files.breakAll();
    state->setAppearance(AppearanceMode::system);
    EXPECT_EQ(state->settings()->appearance, AppearanceMode::system);
    EXPECT_EQ(*state->lastError(), kAppearanceNotSaved);
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith("AppState|error|failed to persist settings: cannot ")));
}

TEST_F(AppStateSettingsTest, onlyLogsABoardThatCouldNotBeSaved) {
    files.breakAll();
    state->setLastBoard(RankingBoard::volume);
    EXPECT_EQ(state->settings()->lastBoard, RankingBoard::volume);
    EXPECT_EQ(*state->lastError(), std::nullopt);
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith("AppState|default|save last board failed: cannot ")));
}

TEST_F(AppStateSettingsTest, clearsTheErrorWhenBasisOrAppearanceAreSaved) {
    files.breakAll();
    state->setChangeBasis(ChangeBasis::today);
    files.repair();
    state->setAppearance(AppearanceMode::light);
    EXPECT_EQ(*state->lastError(), std::nullopt);
    files.breakAll();
    state->setAppearance(AppearanceMode::dark);
    files.repair();
    state->setChangeBasis(ChangeBasis::rolling24h);
    EXPECT_EQ(*state->lastError(), std::nullopt);
}

TEST_F(AppStateSettingsTest, leavesTheErrorWhenABoardIsSaved) {
    files.breakAll();
    state->setChangeBasis(ChangeBasis::today);
    files.repair();
    state->setLastBoard(RankingBoard::volume);
    EXPECT_EQ(*state->lastError(), kBasisNotSaved);
}

}  // namespace
}  // namespace quillbar
