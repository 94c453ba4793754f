// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/FirstStart.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quillbar {

namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

struct FirstStartTest : ::testing::Test {
    /// Whether the user is to be told after another start.
    [[nodiscard]] bool isDue() { return FirstStart(kept, files).isDue(); }

    CapturedLog log;
    TemporaryFolder folder;
    std::filesystem::path kept = folder.path() / "Quillbar";
    FaultyFileOperations files;
};

TEST_F(FirstStartTest, isToldOnceAndNeverAgain) {
    FirstStart first(kept, files);
    EXPECT_TRUE(first.isDue());
    first.told();
    EXPECT_FALSE(first.isDue());
    EXPECT_FALSE(isDue()) << "at the next start";
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(FirstStartTest, staysDueUntilItIsTold) {
    EXPECT_TRUE(isDue());
    EXPECT_TRUE(isDue()) << "at the next start";
    EXPECT_FALSE(std::filesystem::exists(kept / FirstStart::kFileName));
}

TEST_F(FirstStartTest, whoHasAListOrSettingsHasStartedBefore) {
    for (const char* const name : {"watchlist.json", "settings.json"}) {
        const std::filesystem::path file = kept / name;
        writeContents(file, "{}");
        FirstStart later(kept, files);
        EXPECT_FALSE(later.isDue()) << name;
        later.told();
        EXPECT_FALSE(std::filesystem::exists(kept / FirstStart::kFileName));
        std::filesystem::remove(file);
    }
    EXPECT_TRUE(isDue());
}

TEST_F(FirstStartTest, settingsThatComeBeforeItIsToldChangeNothing) {
    FirstStart first(kept, files);
    writeContents(kept / "settings.json", "{}");
    EXPECT_TRUE(first.isDue());
}

TEST_F(FirstStartTest, whatCannotBeKeptIsLoggedAndToldAtTheNextStart) {
    files.breakAll();
    FirstStart first(kept, files);
    first.told();
    EXPECT_FALSE(first.isDue());
    EXPECT_THAT(log.lines("FirstStart"), SizeIs(1));
    EXPECT_TRUE(isDue());
}

}  // namespace

}  // namespace quillbar
