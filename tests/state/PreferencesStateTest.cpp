// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesState.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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
    [[nodiscard]] auto syncCount() const {
        return std::count(files.calls.begin(), files.calls.end(), "fsync");
    }

    CapturedLog log;
    TemporaryFolder folder;
    FaultyFileOperations files;
};

TEST_F(PreferencesStateTest, beginsWithWhatIsStored) {
    PreferencesStore(folder.path()).save({1, ChangeColors::blueUp});
    const PreferencesState state = started();
    EXPECT_EQ(state.preferences()->changeColors, ChangeColors::blueUp);
    EXPECT_FALSE(*state.isUnsaved());
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

TEST_F(PreferencesStateTest, theLabelIsToldAndSavedAtOnce) {
    PreferencesState state = started();
    int told = 0;
    const Observation observation =
        state.preferences().observe([&](const Preferences& /*preferences*/) { ++told; });
    state.setLabel({.isDiscreet = true});
    state.setLabel({.isDiscreet = true});
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(started().preferences()->label.isDiscreet);
    state.setLabel({.ownTemplate = "{price}", .isDiscreet = true});
    EXPECT_EQ(started().preferences()->label.ownTemplate, "{price}");
}

TEST_F(PreferencesStateTest, onlyATemplateThatIsTypedDoesNotWaitForTheDisk) {
    PreferencesState state = started();
    state.setLabel({.wording = LabelWording::custom});
    const auto waited = syncCount();
    EXPECT_GT(waited, 0);
    state.setLabel({.wording = LabelWording::custom, .ownTemplate = "{price}"});
    EXPECT_EQ(syncCount(), waited);
    state.setLabel({.ownTemplate = "{price}"});
    EXPECT_GT(syncCount(), waited);
}

TEST_F(PreferencesStateTest, theSoundIsWrittenWhileItIsOn) {
    PreferencesState state = started();
    state.setAlertSound(false);
    EXPECT_EQ(entryCount(folder.path()), 0U);
    state.setAlertSound(true);
    EXPECT_TRUE(state.preferences()->alertSound);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"greenUp","alertSound":true})");
    EXPECT_TRUE(started().preferences()->alertSound);
    state.setAlertSound(false);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"greenUp"})");
}

TEST_F(PreferencesStateTest, theLanguageIsWrittenUnlessItIsChinese) {
    PreferencesState state = started();
    state.setLanguage(Language::chinese);
    EXPECT_EQ(entryCount(folder.path()), 0U);
    state.setLanguage(Language::english);
    EXPECT_EQ(state.preferences()->language, Language::english);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"greenUp","language":"en"})");
    EXPECT_EQ(started().preferences()->language, Language::english);
    state.setLanguage(Language::desktop);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"greenUp","language":"desktop"})");
    state.setLanguage(Language::chinese);
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"greenUp"})");
}

TEST_F(PreferencesStateTest, theColorsThatAreSetAlreadyAreNotSavedAgain) {
    PreferencesState state = started();
    state.setChangeColors(ChangeColors::greenUp);
    EXPECT_EQ(entryCount(folder.path()), 0U);
}

TEST_F(PreferencesStateTest, anotherSizeIsToldAndSavedBesideTheColors) {
    PreferencesState state = started();
    state.setChangeColors(ChangeColors::redUp);
    std::vector<TextSize> told;
    const Observation observation = state.preferences().observe(
        [&](const Preferences& preferences) { told.push_back(preferences.textSize); });
    state.setTextSize(TextSize::large);
    state.setTextSize(TextSize::large);
    EXPECT_THAT(told, ElementsAre(TextSize::large));
    EXPECT_EQ(stored(), R"({"schemaVersion":1,"changeColors":"redUp","textSize":115})");
    EXPECT_EQ(started().preferences()->textSize, TextSize::large);
}

TEST_F(PreferencesStateTest, anEditThatCannotBeSavedIsKeptAndReported) {
    PreferencesState state = started();
    log.clear();
    files.breakAll();
    state.setChangeColors(ChangeColors::redUp);
    EXPECT_EQ(state.preferences()->changeColors, ChangeColors::redUp);
    EXPECT_TRUE(*state.isUnsaved());
    EXPECT_THAT(log.lines("PreferencesState"),
                ElementsAre(StartsWith("PreferencesState|error|failed to persist preferences: ")));
    files.repair();
    state.setChangeColors(ChangeColors::blueUp);
    EXPECT_FALSE(*state.isUnsaved());
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
