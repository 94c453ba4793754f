// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/AmountText.h"

#include "Quillbar/platform/TextLanguage.h"
#include "QuillbarCore/model/AbbreviatedAmount.h"
#include "QuillbarCore/model/MarketCapFormatter.h"
#include "QuillbarCore/model/VolumeFormatter.h"

#include <array>
#include <cmath>
#include <string_view>

namespace quillbar::AmountText {

namespace {

struct Unit {
    double size;
    std::string_view name;
};

constexpr Unit kMillion{1e6, "M"};
constexpr std::array kUnits{Unit{1e12, "T"}, Unit{1e9, "B"}, kMillion, Unit{1e3, "K"}};
/// Below this a volume is written in full, as in Chinese.
constexpr double kShortened = 1e4;
/// From this share of a unit on, two decimals say 1.00 of it: 999,996 is 1.00M, and not 1000.00K.
constexpr double kRoundedToOne = 0.999995;

/// In the largest unit that there is at least one of.
std::string inEnglish(double value) {
    for (const Unit& unit : kUnits) {
        if (std::fabs(value) >= unit.size * kRoundedToOne) {
            return abbreviatedAmount(value, unit.size, unit.name);
        }
    }
    return abbreviatedAmount(value, kMillion.size, kMillion.name);
}

bool isEnglish() {
    return TextLanguages::inUse() == TextLanguage::english;
}

}  // namespace

std::string volume(std::optional<double> value) {
    return isEnglish() && value && std::fabs(*value) >= kShortened
               ? inEnglish(*value)
               : VolumeFormatter::compact(value);
}

std::string marketCap(std::optional<double> value) {
    if (!isEnglish() || !value) {
        return MarketCapFormatter::compact(value);
    }
    return std::fabs(*value) < kMillion.size
               ? abbreviatedAmount(*value, kMillion.size, kMillion.name)
               : inEnglish(*value);
}

}  // namespace quillbar::AmountText
