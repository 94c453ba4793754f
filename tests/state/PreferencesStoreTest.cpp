// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesStore.h"
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

struct PreferencesStoreTest : testing::Test {
    Preferences load(std::string_view text) {
        writeContents(folder.path() / "preferences.json", text);
        return PreferencesStore(folder.path()).load();
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(PreferencesStoreTest, takesTheDefaultForWhatIsAbsent) {
    EXPECT_EQ(load(R"({"schemaVersion":1})"), Preferences::defaultPreferences());
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeColors":null,"alertSound":null,"textSize":null,)"
                   R"("language":null})"),
              Preferences::defaultPreferences());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PreferencesStoreTest, ignoresKeysItDoesNotKnow) {
    EXPECT_EQ(load(R"({"future":[],"changeColors":"redUp","schemaVersion":1})").changeColors,
              ChangeColors::redUp);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PreferencesStoreTest, loadsEveryValueItCanHold) {
    for (const ChangeColors colors : kAllChangeColors) {
        for (const TextSize size : kAllTextSizes) {
            const Preferences preferences =
                Preferences{1, colors}.settingTextSize(size).settingAlertSound(true);
            PreferencesStore(folder.path()).save(preferences);
            EXPECT_EQ(PreferencesStore(folder.path()).load(), preferences);
        }
    }
}

TEST_F(PreferencesStoreTest, writesOnlyASizeThatIsNotTheNormalOne) {
    const Preferences normal{1, ChangeColors::redUp};
    EXPECT_EQ(PreferencesDocument::encode(normal.settingTextSize(TextSize::larger)),
              R"({"schemaVersion":1,"changeColors":"redUp","textSize":130})");
    EXPECT_EQ(PreferencesDocument::encode(normal), R"({"schemaVersion":1,"changeColors":"redUp"})");
}

TEST_F(PreferencesStoreTest, loadsTheNormalSizeWhereItIsWritten) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"textSize":100})"), Preferences::defaultPreferences());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PreferencesStoreTest, loadsTheWholeDefaultForAnUnknownSize) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeColors":"redUp","textSize":125})"),
              Preferences::defaultPreferences());
    EXPECT_THAT(log.lines(),
                ElementsAre("PreferencesStore|default|load preferences failed "
                            R"(("textSize" cannot be 125), using default)"));
}

TEST_F(PreferencesStoreTest, loadsEveryLanguageItCanHold) {
    for (const Language language : kAllLanguages) {
        const Preferences preferences = Preferences{}.settingLanguage(language);
        PreferencesStore(folder.path()).save(preferences);
        EXPECT_EQ(PreferencesStore(folder.path()).load(), preferences);
    }
    EXPECT_EQ(load(R"({"schemaVersion":1,"language":"zh"})"), Preferences::defaultPreferences());
}

TEST_F(PreferencesStoreTest, loadsTheWholeDefaultForUnknownColors) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"changeColors":"pinkUp"})"),
              Preferences::defaultPreferences());
    EXPECT_THAT(log.lines(),
                ElementsAre("PreferencesStore|default|load preferences failed "
                            R"(("changeColors" cannot be "pinkUp"), using default)"));
}

TEST_F(PreferencesStoreTest, loadsTheWholeDefaultForValuesOfAnotherType) {
    for (const std::string_view text : {R"({"schemaVersion":"1","changeColors":"redUp"})",
                                        R"({"schemaVersion":true,"changeColors":"redUp"})",
                                        R"({"changeColors":"redUp"})",
                                        R"({"schemaVersion":1,"changeColors":1})",
                                        R"({"schemaVersion":1,"changeColors":["redUp"]})",
                                        R"({"schemaVersion":1,"changeColors":{}})",
                                        R"({"schemaVersion":1,"alertSound":"true"})",
                                        R"({"schemaVersion":1,"alertSound":1})",
                                        R"({"schemaVersion":1,"textSize":115.5})",
                                        R"({"schemaVersion":1,"textSize":"115"})",
                                        R"({"schemaVersion":1,"language":1})",
                                        R"({"schemaVersion":1,"language":"EN"})",
                                        R"({"schemaVersion":1,"language":""})",
                                        R"(["redUp"])"}) {
        SCOPED_TRACE(text);
        log.clear();
        EXPECT_EQ(load(text), Preferences::defaultPreferences());
        EXPECT_EQ(log.lines().size(), 1U);
    }
}

TEST_F(PreferencesStoreTest, storesOfTheLabelWhatIsNotItsDefault) {
    const Preferences usual;
    const auto stored = [&](const LabelPreferences& label) {
        return PreferencesDocument::encode(usual.settingLabel(label));
    };
    EXPECT_EQ(stored({}), R"({"schemaVersion":1,"changeColors":"greenUp"})");
    EXPECT_EQ(stored({.isDiscreet = true}),
              R"({"schemaVersion":1,"changeColors":"greenUp","label":{"discreet":true}})");
    EXPECT_EQ(stored({.wording = LabelWording::custom, .ownTemplate = "¥{price}"}),
              R"({"schemaVersion":1,"changeColors":"greenUp",)"
              R"("label":{"wording":"custom","template":"¥{price}"}})");
    EXPECT_EQ(stored({.coins = LabelCoins::rotating, .rotationSeconds = 60}),
              R"({"schemaVersion":1,"changeColors":"greenUp",)"
              R"("label":{"coins":"rotating","every":60}})");
}

TEST_F(PreferencesStoreTest, loadsEveryLabelItCanHold) {
    for (const LabelWording wording : kAllLabelWordings) {
        const Preferences preferences = Preferences{}.settingLabel(
            {.wording = wording, .ownTemplate = "", .isDiscreet = wording == LabelWording::price});
        PreferencesStore(folder.path()).save(preferences);
        EXPECT_EQ(PreferencesStore(folder.path()).load(), preferences);
    }
    for (const LabelCoins coins : kAllLabelCoins) {
        for (const int seconds : kAllRotationSeconds) {
            const Preferences preferences =
                Preferences{}.settingLabel({.coins = coins, .rotationSeconds = seconds});
            PreferencesStore(folder.path()).save(preferences);
            EXPECT_EQ(PreferencesStore(folder.path()).load(), preferences);
        }
    }
}

TEST_F(PreferencesStoreTest, takesTheDefaultForWhatIsAbsentOfTheLabel) {
    for (const std::string_view text :
         {R"({"schemaVersion":1,"label":null})",
          R"({"schemaVersion":1,"label":{}})",
          R"({"schemaVersion":1,"label":{"wording":null,"template":null,"discreet":null}})",
          R"({"schemaVersion":1,"label":{"discreet":false,"future":1}})"}) {
        EXPECT_EQ(load(text), Preferences::defaultPreferences()) << text;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(PreferencesStoreTest, loadsTheWholeDefaultForALabelThatCannotBe) {
    for (const std::string_view label : {R"([])",
                                         R"("price")",
                                         R"({"wording":"Price"})",
                                         R"({"wording":1})",
                                         R"({"template":1})",
                                         R"({"coins":"all"})",
                                         R"({"coins":2})",
                                         R"({"every":7})",
                                         R"({"every":"10"})",
                                         R"({"every":10.5})",
                                         R"({"discreet":1})",
                                         R"({"discreet":"true"})"}) {
        SCOPED_TRACE(label);
        log.clear();
        EXPECT_EQ(load(R"({"schemaVersion":1,"changeColors":"redUp","label":)" + std::string(label)
                       + "}"),
                  Preferences::defaultPreferences());
        EXPECT_EQ(log.lines().size(), 1U);
    }
}

TEST_F(PreferencesStoreTest, loadsTheDefaultForEveryOtherVersion) {
    EXPECT_EQ(load(R"({"schemaVersion":0,"changeColors":"redUp"})"),
              Preferences::defaultPreferences());
    EXPECT_THAT(
        log.lines(),
        ElementsAre("PreferencesStore|error|unknown preferences schema version 0, using default"));
}

TEST_F(PreferencesStoreTest, readsNothingElseOfALaterVersion) {
    EXPECT_EQ(load(R"({"schemaVersion":2,"changeColors":"rainbow","label":{"wording":"sung"}})"),
              Preferences::defaultPreferences());
    EXPECT_THAT(
        log.lines(),
        ElementsAre("PreferencesStore|error|unknown preferences schema version 2, using default"));
}

}  // namespace
}  // namespace quillbar
