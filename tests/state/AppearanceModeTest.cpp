// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppearanceMode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

TEST(AppearanceMode, isStoredAsItsRawTextInTheDeclaredOrder) {
    std::vector<std::string_view> rawTexts;
    rawTexts.reserve(kAllAppearanceModes.size());
    for (const AppearanceMode mode : kAllAppearanceModes) {
        rawTexts.push_back(rawValue(mode));
    }
    EXPECT_THAT(rawTexts, ElementsAre("dark", "light", "system"));
}

TEST(AppearanceMode, isBuiltFromItsRawTextAndFromNoOther) {
    for (const AppearanceMode mode : kAllAppearanceModes) {
        EXPECT_EQ(appearanceModeFromRawValue(rawValue(mode)), mode);
    }
    for (const char* const text : {"", "Dark", "auto", "深色"}) {
        EXPECT_EQ(appearanceModeFromRawValue(text), std::nullopt) << text;
    }
}

TEST(AppearanceMode, isNamedInChinese) {
    std::vector<std::string_view> names;
    names.reserve(kAllAppearanceModes.size());
    for (const AppearanceMode mode : kAllAppearanceModes) {
        names.push_back(displayName(mode));
    }
    EXPECT_THAT(names, ElementsAre("深色", "浅色", "跟随系统"));
}

}  // namespace
}  // namespace quillbar
