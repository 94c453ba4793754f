// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/ChangeColors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

TEST(ChangeColors, areStoredAsTheirRawTextInTheDeclaredOrder) {
    std::vector<std::string_view> rawTexts;
    rawTexts.reserve(kAllChangeColors.size());
    for (const ChangeColors colors : kAllChangeColors) {
        rawTexts.push_back(rawValue(colors));
    }
    EXPECT_THAT(rawTexts, ElementsAre("greenUp", "redUp", "blueUp"));
}

TEST(ChangeColors, areBuiltFromTheirRawTextAndFromNoOther) {
    for (const ChangeColors colors : kAllChangeColors) {
        EXPECT_EQ(changeColorsFromRawValue(rawValue(colors)), colors);
    }
    for (const char* const text : {"", "RedUp", "redup", "红涨绿跌"}) {
        EXPECT_EQ(changeColorsFromRawValue(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillbar
