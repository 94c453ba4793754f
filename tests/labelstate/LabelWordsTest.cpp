// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelWords.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillbar {

namespace {

PinnedQuote bitcoin() {
    return {.coin = Coin{"BTCUSDT", "BTC"},
            .ticker = Ticker{67234.5, 66417.56},
            .changePercent = 1.23,
            .freshness = PriceFreshness::live,
            .connection = ConnectionState::connected};
}

LabelWords words(LabelWording wording, const PinnedQuote& quote = bitcoin()) {
    return LabelWords::of(quote, {.wording = wording});
}

LabelWords own(const std::string& text, const PinnedQuote& quote = bitcoin()) {
    return LabelWords::of(quote, {.wording = LabelWording::custom, .ownTemplate = text});
}

/// The first letters of what a small picture shows.
std::string fieldsOf(const LabelWords& words) {
    return std::string(words.showsSymbol ? "s" : "") + (words.showsPrice ? "p" : "")
           + (words.showsChange ? "c" : "");
}

TEST(LabelWords, ofAFirstStartAreTheUsualText) {
    const LabelWords usual = LabelWords::of(bitcoin(), {});
    EXPECT_EQ(usual.text, bitcoin().text());
    EXPECT_EQ(usual.change, "▲ 1.23%");
    EXPECT_EQ(fieldsOf(usual), "spc");
}

TEST(LabelWords, sayWhatTheWordingNamesAndNothingElse) {
    EXPECT_EQ(words(LabelWording::symbolPrice).text, "BTC 67,234.50");
    EXPECT_EQ(words(LabelWording::price).text, "67,234.50");
    EXPECT_EQ(words(LabelWording::change).text, "▲ 1.23%");
    EXPECT_EQ(words(LabelWording::symbol).text, "BTC");
    EXPECT_EQ(fieldsOf(words(LabelWording::symbolPrice)), "sp");
    EXPECT_EQ(fieldsOf(words(LabelWording::price)), "p");
    EXPECT_EQ(fieldsOf(words(LabelWording::change)), "c");
    EXPECT_EQ(fieldsOf(words(LabelWording::symbol)), "s");
}

TEST(LabelWords, knowTheChangeAtTheirEnd) {
    EXPECT_EQ(words(LabelWording::change).change, "▲ 1.23%");
    EXPECT_EQ(words(LabelWording::symbolPrice).change, "");
    EXPECT_EQ(own("{price} {change}").change, "+1.23%");
    EXPECT_EQ(own("{change} {price}").change, "");
}

TEST(LabelWords, keepTheWidthOfAChangeAlone) {
    PinnedQuote quote = bitcoin();
    quote.changePercent = -12.5;
    EXPECT_EQ(words(LabelWording::change, quote).text, "▼12.50%");
    quote.changePercent = std::nullopt;
    EXPECT_EQ(words(LabelWording::change, quote).text, "—");
    EXPECT_EQ(words(LabelWording::change, quote).change, "");
}

TEST(LabelWords, areThoseOfTheUsersOwnTemplate) {
    const LabelWords price = own("¥ {price:.0}");
    EXPECT_EQ(price.text, "¥ 67,234");
    EXPECT_EQ(fieldsOf(price), "p");
    EXPECT_EQ(fieldsOf(own("hello")), "");
    EXPECT_EQ(own("hello").text, "hello");
}

TEST(LabelWords, ofATemplateThatCannotBeReadOrWritesNothingAreTheUsualOnes) {
    PinnedQuote withoutChange = bitcoin();
    withoutChange.changePercent = std::nullopt;
    for (const char* const text : {"", "{", "{volume}", "  "}) {
        EXPECT_EQ(own(text), LabelWords::of(bitcoin(), {})) << text;
    }
    EXPECT_EQ(own("{arrow} ", withoutChange), LabelWords::of(withoutChange, {}));
}

TEST(LabelWords, nameTheCoinWhileThereIsNoPriceAndTheApplicationWithoutACoin) {
    PinnedQuote old = bitcoin();
    old.freshness = PriceFreshness::none;
    for (const LabelWording wording : kAllLabelWordings) {
        EXPECT_EQ(words(wording, old).text, "BTC");
        EXPECT_EQ(words(wording, old).change, "");
        EXPECT_EQ(fieldsOf(words(wording, old)), "spc");
        EXPECT_EQ(words(wording, PinnedQuote{}).text, "Quillbar");
    }
}

}  // namespace

}  // namespace quillbar
