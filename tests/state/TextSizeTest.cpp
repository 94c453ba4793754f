// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/TextSize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;

/// What `describe` returns for each size, from the smallest up.
template <class Describe>
auto ofEach(Describe describe) {
    std::vector<decltype(describe(TextSize::normal))> all;
    all.reserve(kAllTextSizes.size());
    for (const TextSize size : kAllTextSizes) {
        all.push_back(describe(size));
    }
    return all;
}

TEST(TextSize, isAPercentageInTheDeclaredOrder) {
    EXPECT_THAT(ofEach([](TextSize size) { return percentOf(size); }), ElementsAre(100, 115, 130));
}

TEST(TextSize, growsByFifteenAndByThirtyPercent) {
    EXPECT_THAT(ofEach([](TextSize size) { return scaleOf(size); }), ElementsAre(1, 1.15, 1.3));
}

TEST(TextSize, isMadeFromItsPercentageAndFromNoOther) {
    for (const TextSize size : kAllTextSizes) {
        EXPECT_EQ(textSizeFromPercent(percentOf(size)), size);
    }
    for (const std::int64_t percent : {std::int64_t{0},
                                       std::int64_t{-100},
                                       std::int64_t{1},
                                       std::int64_t{99},
                                       std::int64_t{116},
                                       // What is left of it in 32 bits is 100.
                                       (std::int64_t{1} << 32) + 100,
                                       std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(textSizeFromPercent(percent), std::nullopt) << percent;
    }
}

}  // namespace
}  // namespace quillbar
