// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/PriceTicks.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quillbar::PriceTicks {

namespace {

constexpr double kNextToNothing = 1e-300;
// Above this, neighbouring multiples of a step are the same double.
constexpr double kMostSteps = 9e15;

// Of 1, 2 or 5 times a power of ten.
struct Step {
    std::int64_t factor;
    int exponent;

    // Made from the decimal text, because sums and products of fractions are not exact.
    [[nodiscard]] double times(std::int64_t count) const {
        const std::string text = fmt::format("{}e{}", count * factor, exponent);
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }
};

std::vector<double> multiples(const Step& step, const PriceRange& range) {
    const double size = step.times(1);
    std::vector<double> prices;
    // The division may be off by one at both ends.
    const auto first = static_cast<std::int64_t>(std::floor(range.lower / size)) - 1;
    const auto last = static_cast<std::int64_t>(std::ceil(range.upper / size)) + 1;
    for (std::int64_t count = first; count <= last; ++count) {
        const double price = step.times(count);
        if (price >= range.lower && price <= range.upper) {
            prices.push_back(price);
        }
    }
    return prices;
}

}  // namespace

std::vector<double> within(const PriceRange& range, int most) {
    const double span = range.upper - range.lower;
    if (!std::isfinite(span) || !(span > 0) || range.lower < 0) {
        return {};
    }
    if (span < kNextToNothing) {
        return range.lower > 0 ? std::vector<double>{} : std::vector<double>{0.0};
    }
    int exponent = static_cast<int>(std::floor(std::log10(span / most)));
    if (range.upper / Step{1, exponent}.times(1) > kMostSteps) {
        return {};
    }
    for (;; ++exponent) {
        for (const std::int64_t factor : {1, 2, 5}) {
            std::vector<double> prices = multiples({factor, exponent}, range);
            if (prices.size() <= static_cast<std::size_t>(most)) {
                return prices;
            }
        }
    }
}

}  // namespace quillbar::PriceTicks
