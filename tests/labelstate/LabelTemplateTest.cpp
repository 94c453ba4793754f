// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelTemplate.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <variant>

namespace quillbar {

namespace {

PinnedQuote bitcoin() {
    return {.coin = Coin{"BTCUSDT", "BTC"},
            .ticker = Ticker{67234.5, 66417.56},
            .changePercent = 1.23,
            .freshness = PriceFreshness::live,
            .connection = ConnectionState::connected};
}

PinnedQuote bitcoinChangedBy(std::optional<double> percent) {
    PinnedQuote quote = bitcoin();
    quote.changePercent = percent;
    return quote;
}

std::string written(const std::string& text, const PinnedQuote& quote = bitcoin()) {
    const auto parsed = LabelTemplate::parse(text);
    const auto* const labelTemplate = std::get_if<LabelTemplate>(&parsed);
    EXPECT_NE(labelTemplate, nullptr) << text;
    return labelTemplate != nullptr ? labelTemplate->text(quote) : std::string();
}

/// Where the mistake is, and what it is.
std::string mistakeIn(const std::string& text) {
    const auto parsed = LabelTemplate::parse(text);
    const auto* const error = std::get_if<LabelTemplateError>(&parsed);
    EXPECT_NE(error, nullptr) << text;
    return error != nullptr ? std::to_string(error->position) + " " + error->text : std::string();
}

TEST(LabelTemplate, writesEachFieldAndWhatStandsBetween) {
    EXPECT_EQ(written("{symbol} {price} {arrow} {change}"), "BTC 67,234.50 ▲ 1.23%");
    EXPECT_EQ(written("比特币 {price}!"), "比特币 67,234.50!");
    EXPECT_EQ(written("{price}{price}"), "67,234.5067,234.50");
    EXPECT_EQ(written("$"), "$");
}

TEST(LabelTemplate, canWriteTheUsualText) {
    const std::string usual = "{symbol} {price} {arrow}{change:>6}";
    for (const double change : {0.0, 0.004, 1.23, 9.996, 12.5, -1.23, -99.9, 100.0, 1234.5}) {
        const PinnedQuote quote = bitcoinChangedBy(change);
        EXPECT_EQ(written(usual, quote), quote.text());
    }
}

TEST(LabelTemplate, writesAsManyDecimalsAsAsked) {
    EXPECT_EQ(written("{price:.0} {price:.1} {price:.8}"), "67,234 67,234.5 67,234.50000000");
    EXPECT_EQ(written("{arrow}{change:.0} {change:.4}"), "▲1% 1.2300%");
    PinnedQuote cheap = bitcoin();
    cheap.ticker->lastPrice = 0.00001234;
    EXPECT_EQ(written("{price} {price:.6}", cheap), "0.00001234 0.000012");
}

TEST(LabelTemplate, putsTextsOnTheLeftAndNumbersOnTheRightOfTheirWidth) {
    EXPECT_EQ(written("[{symbol:6}][{price:12}][{arrow:2}][{change:8}]"),
              "[BTC   ][   67,234.50][▲ ][   1.23%]");
    EXPECT_EQ(written("[{symbol:>6}][{price:<12}][{arrow:>2}][{change:<8}]"),
              "[   BTC][67,234.50   ][ ▲][1.23%   ]");
    EXPECT_EQ(written("[{price:>9.1}][{price:<9.1}]"), "[ 67,234.5][67,234.5 ]");
}

TEST(LabelTemplate, cutsNothingThatIsLongerThanItsWidth) {
    EXPECT_EQ(written("{symbol:<2}{price:1}"), "BTC67,234.50");
    EXPECT_EQ(written("{symbol:99}").size(), 99U);
}

TEST(LabelTemplate, countsTheColumnsOfATerminal) {
    PinnedQuote quote = bitcoin();
    quote.coin->baseAsset = "币安";
    EXPECT_EQ(written("{symbol:<6}|", quote), "币安  |");
    quote.coin->baseAsset = "\u202eB\n";
    EXPECT_EQ(written("{symbol:<6}|", quote), "B     |");
}

TEST(LabelTemplate, signsTheChangeWhereNoArrowTellsItsDirection) {
    const PinnedQuote fallen = bitcoinChangedBy(-2.5);
    EXPECT_EQ(written("{change}", fallen), "-2.50%");
    EXPECT_EQ(written("{change:.1}"), "+1.2%");
    EXPECT_EQ(written("{change}", bitcoinChangedBy(0)), "0.00%");
    EXPECT_EQ(written("{arrow} {change}", fallen), "▼ 2.50%");
    EXPECT_EQ(written("{change} {arrow}", fallen), "2.50% ▼");
}

TEST(LabelTemplate, writesADashForAChangeThatIsNotKnown) {
    const PinnedQuote unknown = bitcoinChangedBy(std::nullopt);
    EXPECT_EQ(written("{price} {change}|{arrow}|", unknown), "67,234.50 —||");
    EXPECT_EQ(written("{arrow:1}{change:>6.1}", unknown), "      —");
}

TEST(LabelTemplate, writesTheCoinsNameAloneWithoutACurrentPrice) {
    PinnedQuote old = bitcoin();
    old.freshness = PriceFreshness::none;
    EXPECT_EQ(written("now {price:>20} {symbol:<9}", old), "BTC");
    PinnedQuote beginning;
    beginning.coin = Coin{"XUSDT", "\u202eX\n"};
    EXPECT_EQ(written("{price}", beginning), "X ");
    EXPECT_EQ(written("{price}", PinnedQuote{}), "Quillbar");
}

TEST(LabelTemplate, writesAPriceThatIsStale) {
    PinnedQuote stale = bitcoin();
    stale.freshness = PriceFreshness::stale;
    EXPECT_EQ(written("{price}", stale), "67,234.50");
}

TEST(LabelTemplate, writesABraceForTwo) {
    EXPECT_EQ(written("{{{symbol}}}"), "{BTC}");
    EXPECT_EQ(written("{{symbol}} }}{{"), "{symbol} }{");
}

TEST(LabelTemplate, tellsWhichFieldsThereAre) {
    const std::string allowed = "，可用 symbol、price、arrow 或 change";
    EXPECT_EQ(mistakeIn("{symbol} {prize}"), "11 未知的字段「prize」" + allowed);
    EXPECT_EQ(mistakeIn("币 {}"), "4 未知的字段「」" + allowed);
    EXPECT_EQ(mistakeIn("{ price}"), "2 未知的字段「 price」" + allowed);
    EXPECT_EQ(mistakeIn("{:.2}"), "2 未知的字段「」" + allowed);
    EXPECT_EQ(mistakeIn("{Price:.2}"), "2 未知的字段「Price」" + allowed);
}

TEST(LabelTemplate, tellsWhichBraceStandsAlone) {
    const std::string open = "「{」之后没有「}」，要写大括号本身请用「{{」";
    const std::string close = "「}」之前没有「{」，要写大括号本身请用「}}」";
    EXPECT_EQ(mistakeIn("{symbol} {"), "10 " + open);
    EXPECT_EQ(mistakeIn("{price"), "1 " + open);
    EXPECT_EQ(mistakeIn("{price {symbol}"), "1 " + open);
    EXPECT_EQ(mistakeIn("{{{price}} }"), "10 " + close);
    EXPECT_EQ(mistakeIn("价}"), "2 " + close);
}

TEST(LabelTemplate, tellsWhatMayStandBehindTheColon) {
    const std::string allowed =
        "冒号后依次可写：< 或 >（靠左或靠右）、宽度（1 到 99）、"
        "小数位数（.0 到 .8），如「>10.2」";
    EXPECT_EQ(mistakeIn("{price:}"), "8 " + allowed);
    EXPECT_EQ(mistakeIn("{price:^9}"), "8 " + allowed);
    EXPECT_EQ(mistakeIn("{price:9x}"), "9 " + allowed);
    EXPECT_EQ(mistakeIn("{price:.2f}"), "10 " + allowed);
    EXPECT_EQ(mistakeIn("{price:.2>9}"), "10 " + allowed);
    EXPECT_EQ(mistakeIn("{price:-1}"), "8 " + allowed);
}

TEST(LabelTemplate, tellsWhichWidthsThereAre) {
    const std::string widths = "这里应是宽度，1 到 99";
    EXPECT_EQ(mistakeIn("{price:<}"), "9 " + widths);
    EXPECT_EQ(mistakeIn("{price:>.2}"), "9 " + widths);
    EXPECT_EQ(mistakeIn("{price:<<9}"), "9 " + widths);
    EXPECT_EQ(mistakeIn("{price:100}"), "8 " + widths);
    EXPECT_EQ(mistakeIn("{price:99999999999999999999}"), "8 " + widths);
    EXPECT_EQ(mistakeIn("{price:0}"), "8 " + widths);
    EXPECT_EQ(mistakeIn("{price:>09}"), "9 " + widths);
    EXPECT_EQ(mistakeIn("{price:>-9}"), "9 " + widths);
}

TEST(LabelTemplate, tellsHowManyDecimalsThereAreAndOfWhat) {
    const std::string decimals = "这里应是小数位数，0 到 8";
    EXPECT_EQ(mistakeIn("{price:.}"), "9 " + decimals);
    EXPECT_EQ(mistakeIn("{change:8.9}"), "11 " + decimals);
    EXPECT_EQ(mistakeIn("{change:.99999999999999999999}"), "10 " + decimals);
    EXPECT_EQ(mistakeIn("{price:.-1}"), "9 " + decimals);
    EXPECT_EQ(mistakeIn("{price:.02}"), "9 " + decimals);
    EXPECT_EQ(mistakeIn("{symbol:6.2}"), "10 只有 price 和 change 有小数位数");
    EXPECT_EQ(mistakeIn("{arrow:.2}"), "8 只有 price 和 change 有小数位数");
}

TEST(LabelTemplate, isNotEmpty) {
    EXPECT_EQ(mistakeIn(""), "1 模板不能为空");
}

TEST(LabelTemplate, knowsTheChangeAtItsEnd) {
    const auto changeAtEnd = [](const char* text, const PinnedQuote& quote = bitcoin()) {
        return std::get<LabelTemplate>(LabelTemplate::parse(text)).changeAtEnd(quote);
    };
    EXPECT_EQ(changeAtEnd("{symbol} {price} {arrow} {change}"), "▲ 1.23%");
    EXPECT_EQ(changeAtEnd("{price} {arrow}{change:>6}"), "▲ 1.23%");
    EXPECT_EQ(changeAtEnd("{price} {change:.1}"), "+1.2%");
    EXPECT_EQ(changeAtEnd("{change} {arrow} "), "1.23% ▲ ");
    EXPECT_EQ(changeAtEnd("{arrow} {price} {change}"), "1.23%");
    EXPECT_EQ(changeAtEnd("{arrow}"), "▲");
    for (const char* const text : {"{change} {price}", "{change}!", "{symbol}", "  ", "BTC"}) {
        EXPECT_EQ(changeAtEnd(text), "") << text;
    }
    EXPECT_EQ(changeAtEnd("{change}", bitcoinChangedBy(std::nullopt)), "");
    PinnedQuote old = bitcoin();
    old.freshness = PriceFreshness::none;
    EXPECT_EQ(changeAtEnd("{change}", old), "") << "the text is the coin alone";
}

TEST(LabelTemplate, knowsItsFields) {
    const auto fields = [](const char* text) {
        const auto own = std::get<LabelTemplate>(LabelTemplate::parse(text));
        return std::string(own.hasSymbol() ? "s" : "") + (own.hasPrice() ? "p" : "")
               + (own.hasChange() ? "c" : "");
    };
    EXPECT_EQ(fields("{symbol} {price} {arrow} {change}"), "spc");
    EXPECT_EQ(fields("{symbol}"), "s");
    EXPECT_EQ(fields("now {price:.0}"), "p");
    EXPECT_EQ(fields("{change}"), "c");
    EXPECT_EQ(fields("{arrow}"), "c");
    EXPECT_EQ(fields("{{price}}"), "");
}

TEST(LabelTemplate, equalsOnlyWhatWritesTheSame) {
    EXPECT_EQ(LabelTemplate::parse("{price:6}"), LabelTemplate::parse("{price:>6}"));
    EXPECT_NE(LabelTemplate::parse("{price:6}"), LabelTemplate::parse("{price:<6}"));
    EXPECT_NE(LabelTemplate::parse("{price:.0}"), LabelTemplate::parse("{price}"));
    EXPECT_NE(LabelTemplate::parse("{{price}}"), LabelTemplate::parse("{price}"));
}

}  // namespace

}  // namespace quillbar
