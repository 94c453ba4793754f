// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <random>

namespace quillbar {

/// Reproducible numbers of either sign whose magnitudes are spread evenly over the powers of ten
/// between two exponents.
class RandomNumbers final {
public:
    RandomNumbers(double lowestExponent, double highestExponent)
        : m_exponent(lowestExponent, highestExponent) {}

    [[nodiscard]] double next() {
        const double magnitude = std::pow(10.0, m_exponent(m_engine));
        return m_engine() % 2 == 0 ? magnitude : -magnitude;
    }

private:
    std::mt19937_64 m_engine{20261115};
    std::uniform_real_distribution<double> m_exponent;
};

}  // namespace quillbar
