// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/PercentEncoding.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillbar {
namespace {

TEST(PercentEncodingTest, encodesEveryByteButThoseThatMayStandAnywhere) {
    constexpr std::string_view kMarks = "-._~";
    for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<char>(value);
        const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        const bool isDigit = byte >= '0' && byte <= '9';
        const bool isMark = kMarks.find(byte) != std::string_view::npos;
        EXPECT_EQ(
            percentEncoded(std::string(1, byte)),
            isLetter || isDigit || isMark ? std::string(1, byte) : fmt::format("%{:02X}", value));
    }
}

TEST(PercentEncodingTest, encodesEachByteOfACharacter) {
    EXPECT_EQ(percentEncoded("币 a"), "%E5%B8%81%20a");
    EXPECT_EQ(percentEncoded(""), "");
}

}  // namespace
}  // namespace quillbar
