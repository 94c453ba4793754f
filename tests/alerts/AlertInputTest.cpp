// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertInput.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <variant>

namespace quillbar {
namespace {

using AlertInput::Line;
using AlertInput::Problem;

const Ticker kTicker{.lastPrice = 102, .openPrice24h = 100};

Line lineOf(const std::string& text) {
    const auto result = AlertInput::line(text, kTicker);
    EXPECT_TRUE(std::holds_alternative<Line>(result)) << text;
    return std::holds_alternative<Line>(result) ? std::get<Line>(result) : Line{};
}

Problem problemOf(const std::string& text, const std::optional<Ticker>& ticker = kTicker) {
    const auto result = AlertInput::line(text, ticker);
    EXPECT_TRUE(std::holds_alternative<Problem>(result)) << text;
    return std::holds_alternative<Problem>(result) ? std::get<Problem>(result) : Problem{};
}

TEST(AlertInputTest, aPriceIsCrossedFromThePresentSide) {
    EXPECT_EQ(lineOf("110"), (Line{AlertKind::priceAtLeast, 110}));
    EXPECT_EQ(lineOf("90.5"), (Line{AlertKind::priceAtMost, 90.5}));
}

TEST(AlertInputTest, aPercentSignMakesItAChange) {
    EXPECT_EQ(lineOf("5%"), (Line{AlertKind::changeAtLeast, 5}));
    EXPECT_EQ(lineOf("+5 %"), (Line{AlertKind::changeAtLeast, 5}));
    EXPECT_EQ(lineOf("1%"), (Line{AlertKind::changeAtMost, 1}));
    EXPECT_EQ(lineOf("-5%"), (Line{AlertKind::changeAtMost, -5}));
}

TEST(AlertInputTest, readsGroupsSpacesAndFullWidthCharacters) {
    EXPECT_EQ(lineOf(" 70,000.25 ").threshold, 70000.25);
    EXPECT_EQ(lineOf("1,234,567").threshold, 1234567);
    EXPECT_EQ(lineOf("123,456").threshold, 123456);
    EXPECT_EQ(lineOf("123,456,789").threshold, 123456789);
    EXPECT_EQ(lineOf("70,000.5").threshold, 70000.5);
    EXPECT_EQ(lineOf("\uFF0D\uFF15\uFF05"), (Line{AlertKind::changeAtMost, -5}));
    EXPECT_EQ(lineOf("\uFF17\uFF10\uFF0C\uFF10\uFF10\uFF10\uFF0E\uFF15").threshold, 70000.5);
    EXPECT_EQ(lineOf(".5").threshold, 0.5);
    EXPECT_EQ(lineOf("200.").threshold, 200);
}

TEST(AlertInputTest, refusesWhatIsNoNumber) {
    for (const char* const text :
         {"abc",  "%",     "-",   "+",     ".",    "1e5",      "0x10",     "nan",
          "inf",  "1.2.3", "1,2", "70,00", ",500", "7000,000", "1,000,00", "5%%",
          "--5%", "1 000", "0",   "-110",  "110,", "十",       "\xEF\xBC"}) {
        EXPECT_EQ(problemOf(text), Problem::noNumber) << text;
    }
    EXPECT_EQ(problemOf(std::string(400, '9')), Problem::noNumber);
    EXPECT_EQ(problemOf("\u3F15"), Problem::noNumber) << "but for its lead a full-width five";
    EXPECT_EQ(problemOf("\uFE15"), Problem::noNumber) << "a page before the full-width five";
}

TEST(AlertInputTest, saysWhyThereIsNoLine) {
    EXPECT_EQ(problemOf("  "), Problem::nothing);
    EXPECT_EQ(problemOf("110", std::nullopt), Problem::noPriceYet);
    EXPECT_EQ(problemOf("110", Ticker{0, 0}), Problem::noPriceYet);
    EXPECT_EQ(problemOf("5%", Ticker{102, 0}), Problem::noPriceYet);
    EXPECT_EQ(problemOf("102"), Problem::isThere);
    EXPECT_EQ(problemOf("2%"), Problem::isThere);
}

TEST(AlertInputTest, aMarginIsAPartOfAPriceOrANumber) {
    const Line price{AlertKind::priceAtLeast, 200};
    EXPECT_EQ(AlertInput::margin("1%", price), 2);
    EXPECT_EQ(AlertInput::margin("3.5", price), 3.5);
    const Line change{AlertKind::changeAtMost, -5};
    EXPECT_EQ(AlertInput::margin("1%", change), 1);
    EXPECT_EQ(AlertInput::margin("1", change), 1);
}

TEST(AlertInputTest, refusesAMarginThatLeadsNowhere) {
    const Line price{AlertKind::priceAtLeast, 200};
    for (const char* const text : {"", "0", "-1", "200", "100%", "0.00000000000000001", "x"}) {
        EXPECT_EQ(AlertInput::margin(text, price), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillbar
