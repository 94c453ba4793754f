// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ReconnectPolicy.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace quillbar {

Seconds ReconnectPolicy::delay(int attempt) const {
    // Far above every ceiling, and far from overflow.
    constexpr double kLargestExponent = 16;
    const double exponent = std::min(static_cast<double>(attempt) - 1, kLargestExponent);
    const double capped = std::min(maxDelay.count(), baseDelay.count() * std::exp2(exponent));
    return Seconds(jitter(capped));
}

ReconnectPolicy::Jitter ReconnectPolicy::randomJitter() {
    constexpr double kLowest = 0.8;
    constexpr double kHighest = 1.2;
    auto generator = std::make_shared<std::mt19937>(std::random_device{}());
    return [generator = std::move(generator)](double seconds) {
        // nextafter, because the distribution excludes its upper bound.
        std::uniform_real_distribution<double> factor(
            kLowest, std::nextafter(kHighest, std::numeric_limits<double>::max()));
        return seconds * factor(*generator);
    };
}

}  // namespace quillbar
