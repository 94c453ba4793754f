// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/services/AppServicesFixture.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ClockSetBackTest = AppServicesFixture;

TEST_F(ClockSetBackTest, leavesNoOldPriceAndNoSilentStream) {
    simulator::Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(isSettled(binance));
    ASSERT_TRUE(nextPriceArrives(binance));
    binance.faults().setVoice(simulator::StreamVoice::silent);
    setClockBack(Seconds(8 * 3600));
    letPass(Seconds(91));
    ASSERT_TRUE(wakeWatchdog());
    EXPECT_TRUE(spinUntil([&] { return label() == "BTC"; }));
    EXPECT_TRUE(spinUntil([&] { return binance.streamsAccepted() == 2; }));
}

}  // namespace

}  // namespace quillbar
