// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/model/Ticker.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

/// Reads what the user types for an alert. Pure; follows no locale.
namespace quillbar::AlertInput {

/// A line, as an `Alert` has it.
struct Line final {
    AlertKind kind = AlertKind::priceAtLeast;
    double threshold = 0;

    [[nodiscard]] bool operator==(const Line&) const = default;
};

/// Why there is no line.
enum class Problem : std::uint8_t {
    /// Nothing was typed.
    nothing,
    /// Neither a number nor one in percent, or a price that is not above 0.
    noNumber,
    /// The pair has no price yet, so it is unknown on which side of it the line is.
    noPriceYet,
    /// It is the present value, so nothing would be crossed.
    isThere,
};

/// The line that was typed: a price, or, with a percent sign, a change over 24 hours. It is crossed
/// upwards when it lies above the ticker's value, and otherwise downwards.
///
/// A number is decimal, with or without a sign: "67234.5", "67,234.50", "-5". Commas group three
/// digits each. Full-width characters count as their usual ones; spaces around do not count.
[[nodiscard]] std::variant<Line, Problem> line(std::string_view text,
                                               const std::optional<Ticker>& ticker);

/// How far the value must go back before the alert fires again: a number in the unit of the line.
/// With a percent sign it is a part of the price, or percentage points of a change. Absent when the
/// text is neither, or gives no level behind the line.
[[nodiscard]] std::optional<double> margin(std::string_view text, const Line& line);

}  // namespace quillbar::AlertInput
