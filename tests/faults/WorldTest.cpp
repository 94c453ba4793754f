// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

// What every cell of the table takes for granted.
TEST(WorldTest, isWellWithoutAFault) {
    World world;
    world.start();
    world.pass(5s);
    EXPECT_TRUE(world.hasPresentPrices());
    EXPECT_TRUE(world.hasPresentPrice());
    EXPECT_EQ(world.face().details.toStdString(), "刚刚更新\n已连接");
    EXPECT_EQ(world.banner(), "");
    world.click("展开 BTC 走势");
    world.pass(1s);
    EXPECT_EQ(world.chart(), "chart");
    world.click("添加币种");
    world.type("SOL");
    world.pass(1s);
    EXPECT_EQ(world.search(), "rows of SOLUSDT");
    world.click("添加币种");
    world.click("涨幅");
    world.pass(2s);
    EXPECT_EQ(world.board(), "rows");
    world.pass(300s);
    EXPECT_EQ(world.board(), "rows");
    EXPECT_TRUE(world.hasPresentPrices());
    EXPECT_EQ(world.host(0).streamsAccepted(), 1);
    EXPECT_THAT(world.log().lines(), ::testing::IsEmpty());
}

}  // namespace

}  // namespace quillbar
