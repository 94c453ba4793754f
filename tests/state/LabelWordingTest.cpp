// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/LabelWording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

TEST(LabelWording, areStoredAsTheirRawTextInTheDeclaredOrder) {
    std::vector<std::string_view> rawTexts;
    rawTexts.reserve(kAllLabelWordings.size());
    for (const LabelWording wording : kAllLabelWordings) {
        rawTexts.push_back(rawValue(wording));
    }
    EXPECT_THAT(
        rawTexts,
        ElementsAre("symbolPriceChange", "symbolPrice", "price", "change", "symbol", "custom"));
}

TEST(LabelWording, areBuiltFromTheirRawTextAndFromNoOther) {
    for (const LabelWording wording : kAllLabelWordings) {
        EXPECT_EQ(labelWordingFromRawValue(rawValue(wording)), wording);
    }
    for (const char* const text : {"", "Price", "symbolprice", "价格"}) {
        EXPECT_EQ(labelWordingFromRawValue(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillbar
