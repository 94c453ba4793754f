// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesState.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

struct PreferencesStateTest : testing::Test {
    [[nodiscard]] PreferencesState started() {
        return PreferencesState(PreferencesStore(folder.path(), files));
    }
    [[nodiscard]] std::string stored() const {
        return contentsOf(folder.path() / "preferences.json");
    }

    CapturedLog log;
    TemporaryFolder folder;
    FaultyFileOperations files;
};

TEST_F(PreferencesStateTest, beginsWithWhatIsStored) {
    PreferencesStore(folder.path()).save({1, ChangeColors::blueUp});
    const PreferencesState state = started();
    EXPECT_EQ(state.preferences()->changeColors, ChangeColors::blueUp);
    EXPECT_EQ(*state.lastError(), std::nullopt);
}

TEST_F(PreferencesStateTest, writesNothingBeforeAnEdit) {
    const PreferencesState state = started();
    EXPECT_EQ(*state.preferences(), Preferences::defaultPreferences());
    EXPECT_EQ(entryCount(folder.path()), 0U);
}

TEST_F(PreferencesStateTest, anEditIsToldAndSavedAtOnce) {
    PreferencesState state = started();
    std::vector<ChangeColors> told;
    const Observation observation = state.preferences().observe(
        [&](const Preferences& preferences) { told.push_back(preferences.changeColors); });
    state.setChangeColors(ChangeColors::redUp);
    EXPECT_THAT(told, ElementsAre(ChangeColors::redUp));
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"redUp"})");
    EXPECT_EQ(entryCount(folder.path()), 1U);
}

TEST_F(PreferencesStateTest, theColorsThatAreSetAlreadyAreNotSavedAgain) {
    PreferencesState state = started();
    state.setChangeColors(ChangeColors::greenUp);
    EXPECT_EQ(entryCount(folder.path()), 0U);
}

TEST_F(PreferencesStateTest, anEditThatCannotBeSavedHoldsAndSaysSo) {
    PreferencesState state = started();
    log.clear();
    files.breakAll();
    state.setChangeColors(ChangeColors::redUp);
    EXPECT_EQ(state.preferences()->changeColors, ChangeColors::redUp);
    EXPECT_EQ(*state.lastError(), "偏好设置未能保存到磁盘");
    EXPECT_THAT(log.lines("PreferencesState"),
                ElementsAre(StartsWith("PreferencesState|error|failed to persist preferences: ")));
    files.repair();
    state.setChangeColors(ChangeColors::blueUp);
    EXPECT_EQ(*state.lastError(), std::nullopt);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"blueUp"})");
}

TEST_F(PreferencesStateTest, aFileThatCannotBeUnderstoodIsKeptBesideTheEdit) {
    writeContents(folder.path() / "preferences.json", "colours: red");
    started().setChangeColors(ChangeColors::redUp);
    EXPECT_EQ(contentsOf(folder.path() / "preferences.json.bak"), "colours: red");
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"redUp"})");
}

}  // namespace
}  // namespace quillbar
