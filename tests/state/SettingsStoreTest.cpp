// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/SettingsStore.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SettingsStoreTest : testing::Test {
    AppSettings load(std::string_view text) {
        writeContents(folder.path() / "settings.json", text);
        return SettingsStore(folder.path()).load();
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(SettingsStoreTest, takesDarkAndNoBoardForWhatIsAbsent) {
    const AppSettings expected{1, ChangeBasis::today, AppearanceMode::dark};
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeBasis":"today"})"), expected);
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeBasis":"today",)"
                   R"("appearance":null,"lastBoard":null})"),
              expected);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(SettingsStoreTest, ignoresKeysItDoesNotKnow) {
    EXPECT_EQ(load(R"({"future":[],"changeBasis":"today","schemaVersion":1})").changeBasis,
              ChangeBasis::today);
}

TEST_F(SettingsStoreTest, loadsEveryValueItCanHold) {
    for (const ChangeBasis basis : kAllChangeBases) {
        for (const AppearanceMode mode : kAllAppearanceModes) {
            for (const RankingBoard board : kAllRankingBoards) {
                const AppSettings settings{1, basis, mode, board};
                SettingsStore(folder.path()).save(settings);
                EXPECT_EQ(SettingsStore(folder.path()).load(), settings);
            }
        }
    }
}

TEST_F(SettingsStoreTest, loadsTheWholeDefaultForAnUnknownBasis) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeBasis":"weekly","appearance":"light",)"
                   R"("lastBoard":"volume"})"),
              AppSettings::defaultSettings());
    EXPECT_THAT(log.lines(),
                ElementsAre("SettingsStore|default|load settings failed "
                            R"(("changeBasis" cannot be "weekly"), using default)"));
}

TEST_F(SettingsStoreTest, loadsTheWholeDefaultForAnUnknownAppearance) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeBasis":"today","appearance":"Dark"})"),
              AppSettings::defaultSettings());
    EXPECT_THAT(log.lines(),
                ElementsAre("SettingsStore|default|load settings failed "
                            R"(("appearance" cannot be "Dark"), using default)"));
}

TEST_F(SettingsStoreTest, loadsTheWholeDefaultForAnUnknownBoard) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeBasis":"today","lastBoard":"trending"})"),
              AppSettings::defaultSettings());
    EXPECT_THAT(log.lines(),
                ElementsAre("SettingsStore|default|load settings failed "
                            R"(("lastBoard" cannot be "trending"), using default)"));
}

TEST_F(SettingsStoreTest, loadsTheWholeDefaultForValuesOfAnotherType) {
    for (const std::string_view text :
         {R"({"schemaVersion":"1","changeBasis":"today"})",
          R"({"schemaVersion":true,"changeBasis":"today"})",
          R"({"schemaVersion":null,"changeBasis":"today"})",
          R"({"schemaVersion":1,"changeBasis":1})",
          R"({"schemaVersion":1,"changeBasis":null})",
          R"({"schemaVersion":1,"changeBasis":"today","appearance":0})",
          R"({"schemaVersion":1,"changeBasis":"today","appearance":["dark"]})",
          R"({"schemaVersion":1,"changeBasis":"today","lastBoard":{}})",
          R"({"schemaVersion":1,"ChangeBasis":"today"})"}) {
        SCOPED_TRACE(text);
        log.clear();
        EXPECT_EQ(load(text), AppSettings::defaultSettings());
        EXPECT_EQ(log.lines().size(), 1U);
    }
}

TEST_F(SettingsStoreTest, loadsTheDefaultForEveryOtherVersion) {
    EXPECT_EQ(load(R"({"schemaVersion":0,"changeBasis":"today"})"), AppSettings::defaultSettings());
    EXPECT_EQ(load(R"({"schemaVersion":-9223372036854775808,"changeBasis":"today"})"),
              AppSettings::defaultSettings());
    EXPECT_THAT(log.lines(),
                ElementsAre("SettingsStore|error|unknown settings schema version 0, using default",
                            "SettingsStore|error|unknown settings schema version "
                            "-9223372036854775808, using default"));
}

}  // namespace
}  // namespace quillbar
