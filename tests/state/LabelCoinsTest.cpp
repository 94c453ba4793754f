// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/LabelCoins.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

TEST(LabelCoins, areStoredAsTheirRawTextInTheDeclaredOrder) {
    std::vector<std::string_view> rawTexts;
    rawTexts.reserve(kAllLabelCoins.size());
    for (const LabelCoins coins : kAllLabelCoins) {
        rawTexts.push_back(rawValue(coins));
    }
    EXPECT_THAT(rawTexts, ElementsAre("pinned", "sideBySide", "rotating"));
}

TEST(LabelCoins, areBuiltFromTheirRawTextAndFromNoOther) {
    for (const LabelCoins coins : kAllLabelCoins) {
        EXPECT_EQ(labelCoinsFromRawValue(rawValue(coins)), coins);
    }
    for (const char* const text : {"", "Pinned", "side-by-side", "固定的币种"}) {
        EXPECT_EQ(labelCoinsFromRawValue(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillbar
