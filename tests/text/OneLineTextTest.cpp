// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/OneLineText.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(OneLineTextTest, leavesWhatIsOneLineAlone) {
    EXPECT_EQ(OneLineText::of("1000SATS 币 🚀"), QStringLiteral("1000SATS 币 🚀"));
    EXPECT_EQ(OneLineText::of(""), QString());
}

TEST(OneLineTextTest, hasASpaceForEachControlAndEndOfALine) {
    EXPECT_EQ(OneLineText::of("A\nB\tC\rD\x7f"), QStringLiteral("A B C D "));
    EXPECT_EQ(OneLineText::of("A\u2028B\u2029C\u0085D"), QStringLiteral("A B C D"));
}

TEST(OneLineTextTest, dropsWhatSaysHowToWriteOthers) {
    EXPECT_EQ(OneLineText::of("\u202eCTB\u202c"), QStringLiteral("CTB"));
    EXPECT_EQ(OneLineText::of("\u2066B\u200eT\u200bC\u2069\U000e0041"), QStringLiteral("BTC"));
}

TEST(OneLineTextTest, takesBytesThatAreNoText) {
    EXPECT_EQ(OneLineText::of("A\xff"), QStringLiteral("A\ufffd"));
}

}  // namespace

}  // namespace quillbar
