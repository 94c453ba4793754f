// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ReconnectPolicy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <vector>

namespace quillbar {

namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Le;

ReconnectPolicy policy(ReconnectPolicy::Jitter jitter) {
    return {Seconds(1), Seconds(60), std::move(jitter)};
}

ReconnectPolicy plainPolicy() {
    return policy([](double seconds) { return seconds; });
}

}  // namespace

TEST(ReconnectPolicyTest, doublesTheDelayUpToTheCeiling) {
    std::vector<double> delays;
    for (int attempt = 1; attempt <= 9; ++attempt) {
        delays.push_back(plainPolicy().delay(attempt).count());
    }
    EXPECT_THAT(delays, ElementsAre(1, 2, 4, 8, 16, 32, 60, 60, 60));
}

TEST(ReconnectPolicyTest, staysAtTheCeilingHoweverManyAttempts) {
    EXPECT_EQ(plainPolicy().delay(40), Seconds(60));
    EXPECT_EQ(plainPolicy().delay(std::numeric_limits<int>::max()), Seconds(60));
}

TEST(ReconnectPolicyTest, capsTheExponentAtSixteen) {
    ReconnectPolicy patient = plainPolicy();
    patient.maxDelay = Seconds(1e9);
    EXPECT_EQ(patient.delay(16), Seconds(32768));
    EXPECT_EQ(patient.delay(17), Seconds(65536));
    EXPECT_EQ(patient.delay(18), Seconds(65536));
}

TEST(ReconnectPolicyTest, givesSmallerDelaysForAttemptsBelowOne) {
    EXPECT_EQ(plainPolicy().delay(0), Seconds(0.5));
    EXPECT_EQ(plainPolicy().delay(std::numeric_limits<int>::min()), Seconds(0));
}

TEST(ReconnectPolicyTest, jittersTheDelayBelowTheCeiling) {
    const ReconnectPolicy jittered = policy([](double seconds) { return seconds * 1.5; });
    EXPECT_EQ(jittered.delay(2), Seconds(3));
    EXPECT_EQ(jittered.delay(40), Seconds(90));
}

TEST(ReconnectPolicyTest, drawsItsJitterFromAFifthAroundTheDelay) {
    const ReconnectPolicy::Jitter jitter = ReconnectPolicy::randomJitter();
    std::vector<double> drawn;
    for (int round = 0; round < 1000; ++round) {
        drawn.push_back(jitter(10));
    }
    EXPECT_THAT(drawn, Each(AllOf(Ge(8.0), Le(12.0))));
    const auto [lowest, highest] = std::minmax_element(drawn.begin(), drawn.end());
    EXPECT_LT(*lowest, 8.2);
    EXPECT_GT(*highest, 11.8);
    EXPECT_GT(std::set<double>(drawn.begin(), drawn.end()).size(), 900U);
}

TEST(ReconnectPolicyTest, drawsAnotherSequenceEachTime) {
    const ReconnectPolicy first{Seconds(1), Seconds(60)};
    const ReconnectPolicy second{Seconds(1), Seconds(60)};
    EXPECT_NE(first.delay(1), second.delay(1));
    const ReconnectPolicy copy = first;
    EXPECT_NE(first.delay(1), copy.delay(1));
}

}  // namespace quillbar
