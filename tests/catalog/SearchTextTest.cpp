// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/SearchText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SearchText, trimsWhiteSpaceAndLineEndsAtBothEnds) {
    EXPECT_EQ(SearchText::trimmed(" \t\r\n btc \v\f\n"), "btc");
    EXPECT_EQ(SearchText::trimmed("btc"), "btc");
    EXPECT_EQ(SearchText::trimmed(" \t "), "");
    EXPECT_EQ(SearchText::trimmed(""), "");
}

TEST(SearchText, keepsWhiteSpaceInside) {
    EXPECT_EQ(SearchText::trimmed(" a b\n"), "a b");
}

TEST(SearchText, trimsTheWhiteSpaceOfOtherScripts) {
    // No-break space, line separator, ideographic space.
    EXPECT_EQ(SearchText::trimmed("\u00A0\u2028\u3000币安\u3000\u00A0"), "币安");
}

TEST(SearchText, keepsWhatOnlyLooksLikeWhiteSpace) {
    // A zero-width space is none.
    EXPECT_EQ(SearchText::trimmed("\u200Bbtc"), "\u200Bbtc");
}

TEST(SearchText, wordsStandBetweenWhiteSpaceCommasAndSemicolons) {
    EXPECT_THAT(SearchText::words("BTC, eth;SOL\tADA\r\nBNB"),
                ElementsAre("BTC", "eth", "SOL", "ADA", "BNB"));
    EXPECT_THAT(SearchText::words("BTC"), ElementsAre("BTC"));
    EXPECT_THAT(SearchText::words("SOL/USDT a.b:c|d"), ElementsAre("SOL/USDT", "a.b:c|d"));
}

TEST(SearchText, wordsStandBetweenFullWidthSeparatorsToo) {
    EXPECT_THAT(SearchText::words("BTC、ETH，SOL；ADA\u3000币安人生\u00A0BNB"),
                ElementsAre("BTC", "ETH", "SOL", "ADA", "币安人生", "BNB"));
}

TEST(SearchText, noWordIsEmpty) {
    EXPECT_THAT(SearchText::words(",, BTC ,；;ETH,\n"), ElementsAre("BTC", "ETH"));
    EXPECT_THAT(SearchText::words(" ,、\n"), IsEmpty());
    EXPECT_THAT(SearchText::words(""), IsEmpty());
}

TEST(SearchText, upperCasesAsciiLetters) {
    EXPECT_EQ(SearchText::upperCased("1inch"), "1INCH");
    EXPECT_EQ(SearchText::upperCased("@`{azAZ[/09"), "@`{AZAZ[/09");
    EXPECT_EQ(SearchText::upperCased(""), "");
}

TEST(SearchText, upperCasesByUnicodesFullMapping) {
    EXPECT_EQ(SearchText::upperCased("straße"), "STRASSE");
    EXPECT_EQ(SearchText::upperCased("дог"), "ДОГ");
    EXPECT_EQ(SearchText::upperCased("ıi"), "II");
    EXPECT_EQ(SearchText::upperCased("币安人生"), "币安人生");
}

TEST(SearchText, survivesBytesThatAreNotUtf8) {
    EXPECT_EQ(SearchText::upperCased("a\xFF"), "A\uFFFD");
    EXPECT_EQ(SearchText::trimmed(" \xFF "), "\uFFFD");
    EXPECT_THAT(SearchText::words("a\xFF,\xEF\xBC"), ElementsAre("a\uFFFD", "\uFFFD"));
}

}  // namespace
}  // namespace quillbar
