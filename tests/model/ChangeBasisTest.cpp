// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ChangeBasis.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

TEST(ChangeBasis, listsTheRollingWindowFirst) {
    ASSERT_EQ(kAllChangeBases.size(), 2U);
    EXPECT_EQ(kAllChangeBases[0], ChangeBasis::rolling24h);
    EXPECT_EQ(kAllChangeBases[1], ChangeBasis::today);
}

TEST(ChangeBasis, isStoredAsItsRawText) {
    EXPECT_EQ(rawValue(ChangeBasis::rolling24h), "rolling24h");
    EXPECT_EQ(rawValue(ChangeBasis::today), "today");
}

TEST(ChangeBasis, isBuiltFromItsRawTextAndFromNoOther) {
    EXPECT_EQ(changeBasisFromRawValue("rolling24h"), ChangeBasis::rolling24h);
    EXPECT_EQ(changeBasisFromRawValue("today"), ChangeBasis::today);
    for (const char* const text : {"", "Today", "today ", "rolling24", "24 小时"}) {
        EXPECT_EQ(changeBasisFromRawValue(text), std::nullopt) << text;
    }
}

TEST(ChangeBasis, isNamedInChinese) {
    EXPECT_EQ(displayName(ChangeBasis::rolling24h), "24 小时");
    EXPECT_EQ(displayName(ChangeBasis::today), "今日");
}

}  // namespace
}  // namespace quillbar
