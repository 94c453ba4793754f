// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/LongIntegers.h"

#include <gtest/gtest.h>

#include <string_view>

namespace quillbar {

namespace {

using LongIntegers::asFractions;

constexpr std::string_view kLong = "100000000000000000000";

TEST(LongIntegersTest, areWrittenAsFractions) {
    EXPECT_EQ(asFractions(kLong), "100000000000000000000.0");
    EXPECT_EQ(asFractions(R"({"a":-100000000000000000000,"b":[7,18446744073709551616]})"),
              R"({"a":-100000000000000000000.0,"b":[7,18446744073709551616.0]})");
}

TEST(LongIntegersTest, beginBeyondTheTypesOf64Bits) {
    EXPECT_EQ(asFractions("18446744073709551615"), std::nullopt);
    EXPECT_EQ(asFractions("18446744073709551616"), "18446744073709551616.0");
    EXPECT_EQ(asFractions("-9223372036854775808"), std::nullopt);
    EXPECT_EQ(asFractions("-9223372036854775809"), "-9223372036854775809.0");
}

TEST(LongIntegersTest, doNotIncludeFractionsAndExponents) {
    for (const char* const number : {"100000000000000000000.5",
                                     "0.100000000000000000000",
                                     "100000000000000000000e5",
                                     "1E100000000000000000000",
                                     "1e-100000000000000000000"}) {
        EXPECT_EQ(asFractions(number), std::nullopt) << number;
    }
}

TEST(LongIntegersTest, areNotLookedForInStrings) {
    EXPECT_EQ(asFractions(R"({"a 100000000000000000000":"100000000000000000000"})"), std::nullopt);
    EXPECT_EQ(asFractions(R"(["\"100000000000000000000"])"), std::nullopt);
    EXPECT_EQ(asFractions(R"(["\\",100000000000000000000])"), R"(["\\",100000000000000000000.0])");
}

TEST(LongIntegersTest, areFoundInNoOrdinaryText) {
    for (const char* const text :
         {"", "{}", "true", "[1,2.5,-3e7]", "\"", "\"\\", "\"100000000000000000000", "<html>"}) {
        EXPECT_EQ(asFractions(text), std::nullopt) << text;
    }
}

TEST(LongIntegersTest, leaveInvalidJSONInvalid) {
    EXPECT_EQ(asFractions("0100000000000000000000"), "0100000000000000000000.0");
    EXPECT_EQ(asFractions("100000000000000000000 .5"), "100000000000000000000.0 .5");
    EXPECT_EQ(asFractions("+100000000000000000000"), std::nullopt);
    EXPECT_EQ(asFractions("1-100000000000000000000"), std::nullopt);
}

}  // namespace

}  // namespace quillbar
