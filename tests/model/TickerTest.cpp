// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Ticker.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

TEST(Ticker, hasNotMovedWhenTheOpenIsZero) {
    EXPECT_EQ((Ticker{110, 0}.changePercent24h()), 0);
    EXPECT_EQ((Ticker{0, 0}.changePercent24h()), 0);
    EXPECT_EQ((Ticker{110, -0.0}.changePercent24h()), 0);
}

TEST(Ticker, measuresItsChangeAgainstTheOpen) {
    EXPECT_EQ((Ticker{110, 100}.changePercent24h()), 10);
    EXPECT_EQ((Ticker{90, 100}.changePercent24h()), -10);
}

TEST(Ticker, equalityComparesAllFields) {
    EXPECT_EQ((Ticker{1, 2, 3}), (Ticker{1, 2, 3}));
    EXPECT_NE((Ticker{1, 2, 3}), (Ticker{9, 2, 3}));
    EXPECT_NE((Ticker{1, 2, 3}), (Ticker{1, 9, 3}));
    EXPECT_NE((Ticker{1, 2, 3}), (Ticker{1, 2, 9}));
    EXPECT_NE((Ticker{1, 2, 0}), (Ticker{1, 2, std::nullopt}));
}

}  // namespace
}  // namespace quillbar
