// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/OutsideText.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

using OutsideText::oneLine;
using OutsideText::shortened;

TEST(OutsideTextTest, leavesATextOfOneLineUnchanged) {
    EXPECT_EQ(oneLine(""), "");
    EXPECT_EQ(oneLine("BTC 67,234.50 ~ !"), "BTC 67,234.50 ~ !");
    EXPECT_EQ(oneLine("1000SATS 币 🚀 é ▲"), "1000SATS 币 🚀 é ▲");
}

TEST(OutsideTextTest, replacesControlCharactersAndLineEndsBySpaces) {
    EXPECT_EQ(oneLine("A\nB\tC\rD\x7f"), "A B C D ");
    EXPECT_EQ(oneLine(std::string_view("A\0B", 3)), "A B");
    EXPECT_EQ(oneLine("A\u2028B\u2029C\u0085D"), "A B C D");
}

TEST(OutsideTextTest, removesControlSequencesForTerminals) {
    // In one byte, in two, and as the character of its own.
    EXPECT_EQ(oneLine("A\x1b[2JB"), "A [2JB");
    EXPECT_EQ(oneLine("A\u009b2JB"), "A 2JB");
    EXPECT_EQ(oneLine("A\x9b"
                      "2JB"),
              "A\uFFFD2JB");
    EXPECT_EQ(oneLine("A\u0080B\u009fC"), "A B C");
    EXPECT_EQ(oneLine("A\u00a0B"), "A\u00a0B");
}

TEST(OutsideTextTest, dropsInvisibleFormatCharacters) {
    EXPECT_EQ(oneLine("\u202eCTB\u202c"), "CTB");
    EXPECT_EQ(oneLine("\u2066B\u200eT\u200bC\u2069\ufeff\U000e0041"), "BTC");
}

TEST(OutsideTextTest, replacesBytesThatAreNotUtf8) {
    EXPECT_EQ(oneLine("A\xff"), "A\uFFFD");
    EXPECT_EQ(oneLine("\xe5\xb8"), "\uFFFD");
}

TEST(OutsideTextTest, cutsALongTextBetweenCharacters) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdefg", 6), "abcdef…");
    // Each has three bytes.
    EXPECT_EQ(shortened("币币币", 9), "币币币");
    EXPECT_EQ(shortened("币币币", 8), "币币…");
    EXPECT_EQ(shortened("币币币", 6), "币币…");
    EXPECT_EQ(shortened("币币币", 2), "…");
}

TEST(OutsideTextTest, quotesNoMoreThanThreeHundredBytes) {
    EXPECT_EQ(shortened(std::string(300, 'a')), std::string(300, 'a'));
    EXPECT_EQ(shortened(std::string(301, 'a')), std::string(300, 'a') + "…");
}

}  // namespace

}  // namespace quillbar
