// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/integration/Fetching.h"
#include "tests/integration/TestExchange.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

namespace quillbar {
namespace {

// The session of the process keeps what it trusted at a port, and a port is soon given again.
TEST(TestExchangeTest, isTrustedAtThePortOfTheOneBefore) {
    std::optional<TestExchange> exchange(std::in_place);
    const std::uint16_t port = (*exchange)->port();
    Fetching fetching;
    EXPECT_EQ(fetching.get(exchange->klinesUrl()).status, 200);
    exchange.reset();
    exchange.emplace(Trust::trusted, simulator::SimulatorOptions{.port = port});
    EXPECT_EQ(fetching.get(exchange->klinesUrl()).status, 200);
}

}  // namespace
}  // namespace quillbar
