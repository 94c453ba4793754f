// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/TextSize.h"

#include <cstddef>

namespace quillbar {

namespace {

constexpr double kNormalPercent = 100;
constexpr std::array<int, kAllTextSizes.size()> kPercents{100, 115, 130};

}  // namespace

int percentOf(TextSize size) {
    return kPercents.at(static_cast<std::size_t>(size));
}

std::optional<TextSize> textSizeFromPercent(std::int64_t percent) {
    for (const TextSize size : kAllTextSizes) {
        if (percentOf(size) == percent) {
            return size;
        }
    }
    return std::nullopt;
}

double scaleOf(TextSize size) {
    return percentOf(size) / kNormalPercent;
}

}  // namespace quillbar
