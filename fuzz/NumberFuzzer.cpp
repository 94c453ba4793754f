// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "fuzz/NaiveNumber.h"
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/DecimalText.h"
#include "QuillbarCore/model/GroupedDecimal.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace quillbar {

namespace {

std::optional<double> number(const std::string& text) {
    try {
        return decimalNumber(text);
    } catch (const BinanceDecodingError& error) {
        require(error.invalidNumber() == text, "the error carries the text as received");
        return std::nullopt;
    }
}

/// Whether the text, its commas taken out, is a number no further from the value than the
/// tolerance.
bool shows(std::string text, double value, double tolerance) {
    std::erase(text, ',');
    const auto shown = naiveNumber(text);
    return shown && std::abs(*shown - value) <= tolerance;
}

void requireFaithfulTexts(double value) {
    // Beyond this, what four digits are rounded to may be too large for a double.
    if (std::abs(value) > 1e300) {
        return;
    }
    const double doubt = std::abs(value) * 1e-15 + 1e-320;
    require(shows(GroupedDecimal::withTwoFractionDigits(value), value, 0.005 + doubt),
            "a text with two decimals is half a unit away at most");
    require(shows(GroupedDecimal::withUpToFourSignificantDigits(value),
                  value,
                  std::abs(value) * 5e-4 + doubt),
            "a text with four digits is half a unit away at most");
}

}  // namespace

void fuzz(std::string_view input) {
    const std::string text(input);
    const auto value = number(text);
    const auto expected = naiveNumber(text);
    require(value.has_value() == expected.has_value(), "accepted exactly when strtod accepts it");
    if (value) {
        // Bit for bit, so that the two zeros differ.
        require(std::bit_cast<std::uint64_t>(*value) == std::bit_cast<std::uint64_t>(*expected),
                "the value is strtod's");
        requireFaithfulTexts(*value);
    }
}

}  // namespace quillbar
