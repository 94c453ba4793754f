// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/DecimalText.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace quillbar {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::optional<double> number(std::string_view text) {
    try {
        return decimalNumber(text);
    } catch (const BinanceDecodingError& error) {
        EXPECT_EQ(error.invalidNumber(), text);
        return std::nullopt;
    }
}

void expectNumber(std::string_view text, double expected) {
    const auto value = number(text);
    ASSERT_TRUE(value) << text;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*value), std::bit_cast<std::uint64_t>(expected))
        << text << " gives " << *value;
}

void expectRejected(std::string_view text) {
    EXPECT_EQ(number(text), std::nullopt) << text;
}

// What the rules say in terms of strtod in the C locale.
class StrtodJudge {
public:
    StrtodJudge()
        : m_locale(::newlocale(LC_ALL_MASK, "C", nullptr)) {}
    StrtodJudge(const StrtodJudge&) = delete;
    StrtodJudge& operator=(const StrtodJudge&) = delete;
    StrtodJudge(StrtodJudge&&) = delete;
    StrtodJudge& operator=(StrtodJudge&&) = delete;
    ~StrtodJudge() { ::freelocale(m_locale); }

    [[nodiscard]] std::optional<double> number(const std::string& text) const {
        if (text.empty() || std::string_view(" \t\n\v\f\r").find(text[0]) != std::string::npos) {
            return std::nullopt;
        }
        char* end = nullptr;
        const double value = ::strtod_l(text.c_str(), &end, m_locale);
        if (end != text.data() + text.size() || !std::isfinite(value)) {
            return std::nullopt;
        }
        return value;
    }

private:
    locale_t m_locale;
};

// Texts that are numbers, or nearly.
class RandomTexts {
public:
    std::string next() {
        std::string text = sign();
        const bool isHexadecimal = oneIn(4);
        if (isHexadecimal) {
            text += oneIn(2) ? "0x" : "0X";
        }
        text += oneIn(30) ? word() : significand(isHexadecimal);
        if (oneIn(2)) {
            text += exponent(isHexadecimal);
        }
        if (oneIn(4)) {
            damage(text);
        }
        return text;
    }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool oneIn(int chances) { return below(chances) == 0; }
    char pick(std::string_view from) {
        return from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
    }

    std::string sign() {
        if (oneIn(3)) {
            return oneIn(2) ? "-" : "+";
        }
        return {};
    }

    std::string digits(int most, bool isHexadecimal) {
        const std::string_view all = isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
        std::string text;
        const bool isZero = oneIn(6);
        for (int left = below(most + 1); left > 0; --left) {
            text += isZero ? '0' : pick(all);
        }
        return text;
    }

    std::string significand(bool isHexadecimal) {
        const int most = oneIn(20) ? 400 : 12;
        std::string text = digits(most, isHexadecimal);
        if (oneIn(2)) {
            text += '.';
            text += digits(most, isHexadecimal);
        }
        return text;
    }

    std::string exponent(bool isHexadecimal) {
        std::string text(1, pick(isHexadecimal ? "pP" : "eE"));
        text += sign();
        // Sizes around both ends of a double's range, and far beyond them.
        const int size = oneIn(10) ? 12 : (oneIn(3) ? (isHexadecimal ? 4 : 3) : 2);
        return text + digits(size, false);
    }

    std::string word() {
        static constexpr std::array<std::string_view, 8> kWords{
            "inf", "INF", "Infinity", "nan", "NaN", "nan(1)", "nan(", "infinit"};
        return std::string(kWords[static_cast<std::size_t>(below(kWords.size()))]);
    }

    void damage(std::string& text) {
        const auto position = static_cast<std::size_t>(below(static_cast<int>(text.size()) + 1));
        if (position < text.size() && oneIn(2)) {
            text.erase(position, 1);
        } else {
            text.insert(position, 1, pick(std::string_view("0.,+-exXpP \t\nif_'\0", 18)));
        }
    }

    std::mt19937 m_random{20260};
};

}  // namespace

TEST(DecimalTextTest, takesThePricesOfTheExchange) {
    expectNumber("65000.10", 65000.1);
    expectNumber("64000", 64000);
    expectNumber("0.00000000", 0);
    expectNumber("1.5E9", 1.5e9);
}

TEST(DecimalTextTest, takesEveryFormOfADecimalNumber) {
    expectNumber("-0.5", -0.5);
    expectNumber("+0.5", 0.5);
    expectNumber("1e-8", 1e-8);
    expectNumber("1e5", 1e5);
    expectNumber("1e+5", 1e5);
    expectNumber("1.", 1);
    expectNumber(".5", 0.5);
    expectNumber("00012.50", 12.5);
    expectNumber("-0", -0.0);
}

TEST(DecimalTextTest, takesHexadecimalNumbers) {
    expectNumber("0x1p3", 8);
    expectNumber("0X1.8P+1", 3);
    expectNumber("-0x.8", -0.5);
    expectNumber("0x1e5", 485);
    expectNumber("0x10p-4", 1);
}

TEST(DecimalTextTest, refusesTheEmptyTextAndWhiteSpace) {
    expectRejected("");
    for (const char* const space : {" ", "\t", "\n", "\v", "\f", "\r"}) {
        expectRejected(space);
        expectRejected(std::string(space) + "1.0");
        expectRejected(std::string("1.0") + space);
    }
    expectRejected("1 000");
    expectRejected("- 1");
}

TEST(DecimalTextTest, refusesTrailingCharacters) {
    for (const char* const text :
         {"abc",  "1,5",     "1.2.3", "1e",  "1e+",   "1e5x", "e5",   ".",    "-",
          "+",    "--1",     "+-1",   "-+1", "0x",    "0x.",  "0xp3", "0xg",  "0x-1",
          "0x1p", "0x1p+-3", "1e-+3", "1p3", "0x1p+", "1_0",  "x1",   "0x0x1"}) {
        expectRejected(text);
    }
}

TEST(DecimalTextTest, refusesInfinitiesAndNaNs) {
    for (const char* const text :
         {"inf", "-inf", "+INF", "infinity", "nan", "NaN", "-nan", "nan(1)", "0xinf", "0xnan"}) {
        expectRejected(text);
    }
}

TEST(DecimalTextTest, refusesATextWithANulInside) {
    expectRejected(std::string_view("1\0", 2));
    expectRejected(std::string_view("\0", 1));
    expectRejected(std::string_view("1\0002", 3));
}

TEST(DecimalTextTest, refusesWhatIsTooLargeForADouble) {
    expectNumber("1.7976931348623157e308", std::numeric_limits<double>::max());
    expectRejected("1.8e308");
    expectRejected("-1e309");
    expectRejected("1e99999999999999999999");
    expectRejected("1" + std::string(400, '0'));
    expectRejected("0x1p1024");
    expectRejected("0x" + std::string(300, 'f'));
    expectRejected("0x" + std::string(400, 'f') + "p-500");
    expectRejected("1" + std::string(400, '0') + "e-20");
    EXPECT_LT(decimalNumber("0x1.fffffffffffffp1023"), kInfinity);
}

TEST(DecimalTextTest, takesWhatIsTooSmallForADoubleAsZeroOrDenormal) {
    expectNumber("5e-324", std::numeric_limits<double>::denorm_min());
    expectNumber("2.2250738585072011e-308", 2.2250738585072011e-308);
    expectNumber("1e-400", 0);
    expectNumber("-1e-400", -0.0);
    expectNumber("1e-99999999999999999999", 0);
    expectNumber("0." + std::string(400, '0') + "1", 0);
    expectNumber("0." + std::string(400, '0') + "1e+20", 0);
    expectNumber("0x1p-1074", std::numeric_limits<double>::denorm_min());
    expectNumber("-0x1p-2000", -0.0);
    expectNumber("0x." + std::string(300, '0') + "1", 0);
}

TEST(DecimalTextTest, takesAZeroWithAnyExponent) {
    expectNumber("0e999999999999", 0);
    expectNumber("-0.0e-999999999999", -0.0);
    expectNumber("0x0p999999999999", 0);
}

TEST(DecimalTextTest, agreesWithStrtodOnRandomTexts) {
    const StrtodJudge judge;
    RandomTexts texts;
    int accepted = 0;
    constexpr int kCount = 100'000;
    for (int round = 0; round < kCount; ++round) {
        const std::string text = texts.next();
        const auto expected = judge.number(text);
        const auto actual = number(text);
        ASSERT_EQ(actual.has_value(), expected.has_value()) << text;
        if (expected) {
            ++accepted;
            ASSERT_EQ(std::bit_cast<std::uint64_t>(*actual),
                      std::bit_cast<std::uint64_t>(*expected))
                << text << " gives " << *actual;
        }
    }
    // The texts must not be all of one kind.
    EXPECT_GT(accepted, kCount / 4);
    EXPECT_LT(accepted, kCount * 3 / 4 + kCount / 8);
}

TEST(BinanceDecodingErrorTest, quotesTheTextOnOneLine) {
    EXPECT_STREQ(BinanceDecodingError("abc").what(), "invalidNumber(\"abc\")");
    EXPECT_STREQ(BinanceDecodingError("a\"\\\n").what(), "invalidNumber(\"a\\\"\\\\\\x0a\")");
}

TEST(BinanceDecodingErrorTest, shortensALongText) {
    const std::string text(1000, '9');
    const BinanceDecodingError error(text);
    EXPECT_EQ(error.invalidNumber(), text);
    EXPECT_EQ(error.what(), "invalidNumber(\"" + std::string(64, '9') + "\"...)");
}

TEST(BinanceDecodingErrorTest, equalsWithTheSameText) {
    EXPECT_EQ(BinanceDecodingError("abc"), BinanceDecodingError("abc"));
    EXPECT_NE(BinanceDecodingError("abc"), BinanceDecodingError("abd"));
}

}  // namespace quillbar
