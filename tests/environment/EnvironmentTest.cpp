// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// What the run claims to be, as its registration says in the environment.
std::string expected(const char* what) {
    const char* value = std::getenv(what);
    return value == nullptr ? "(not told)" : value;
}

// 7 September 2025 begins at one o'clock in Santiago: the clocks go forward at midnight.
std::string startOfTheSeventhOfSeptember() {
    std::tm day{};
    day.tm_year = 125;
    day.tm_mon = 8;
    day.tm_mday = 7;
    day.tm_isdst = -1;
    const std::time_t instant = std::mktime(&day);
    std::tm local{};
    ::localtime_r(&instant, &local);
    std::string text(32, '\0');
    text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M %z", &local));
    return text;
}

TEST(Environment, NumbersTakeTheDecimalPointOfTheRun) {
    EXPECT_EQ(std::localeconv()->decimal_point, expected("QUILLBAR_EXPECTED_DECIMAL_POINT"));
}

TEST(Environment, ADayBeginsWhereTheZoneOfTheRunSays) {
    EXPECT_EQ(startOfTheSeventhOfSeptember(), expected("QUILLBAR_EXPECTED_MIDNIGHT"));
}

TEST(Environment, TestsComeInTheOrderOfTheRun) {
    EXPECT_EQ(GTEST_FLAG_GET(shuffle) ? "shuffled" : "declared",
              expected("QUILLBAR_EXPECTED_ORDER"));
}

}  // namespace
