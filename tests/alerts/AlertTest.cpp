// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/Alert.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace quillbar {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kGreatest = std::numeric_limits<double>::max();

bool isSound(AlertKind kind, double threshold, std::optional<double> margin = std::nullopt) {
    return Alert{.kind = kind, .threshold = threshold, .margin = margin}.isSound();
}

TEST(AlertTest, onlyAPriceMustBeAboveZero) {
    for (const AlertKind kind : {AlertKind::priceAtLeast, AlertKind::priceAtMost}) {
        EXPECT_TRUE(isSound(kind, 1e-8)) << rawValue(kind);
        EXPECT_FALSE(isSound(kind, 0)) << rawValue(kind);
        EXPECT_FALSE(isSound(kind, -1)) << rawValue(kind);
    }
    for (const AlertKind kind : {AlertKind::changeAtLeast, AlertKind::changeAtMost}) {
        for (const double threshold : {5.0, 0.0, -5.0}) {
            EXPECT_TRUE(isSound(kind, threshold)) << rawValue(kind) << ' ' << threshold;
        }
    }
}

TEST(AlertTest, everyNumberIsFinite) {
    for (const AlertKind kind : kAllAlertKinds) {
        for (const double wrong : {kNoNumber, kInfinity, -kInfinity}) {
            EXPECT_FALSE(isSound(kind, wrong)) << rawValue(kind) << ' ' << wrong;
            EXPECT_FALSE(isSound(kind, 5, wrong)) << rawValue(kind) << ' ' << wrong;
        }
    }
    EXPECT_FALSE(isSound(AlertKind::changeAtMost, kGreatest)) << "no number lies above it";
}

TEST(AlertTest, theMarginLeadsToAValueOnTheNearSide) {
    EXPECT_TRUE(isSound(AlertKind::priceAtLeast, 100, 99.5));
    EXPECT_FALSE(isSound(AlertKind::priceAtLeast, 100, 100)) << "a price of zero";
    EXPECT_TRUE(isSound(AlertKind::priceAtMost, 100, 200));
    EXPECT_TRUE(isSound(AlertKind::changeAtLeast, 5, 20)) << "a change may fall below zero";
    for (const AlertKind kind : kAllAlertKinds) {
        for (const double wrong : {0.0, -1.0, 1e-20}) {
            EXPECT_FALSE(isSound(kind, 5, wrong)) << rawValue(kind) << ' ' << wrong;
        }
    }
}

TEST(AlertTest, withoutAMarginTheNextValueOnTheNearSideArmsIt) {
    const Alert rising{.kind = AlertKind::priceAtLeast, .threshold = 1};
    EXPECT_EQ(rising.rearmLevel(), 1 - std::numeric_limits<double>::epsilon() / 2);
    const Alert falling{.kind = AlertKind::changeAtMost, .threshold = 1};
    EXPECT_EQ(falling.rearmLevel(), 1 + std::numeric_limits<double>::epsilon());
}

TEST(AlertTest, theLineItselfIsReached) {
    for (const AlertKind kind : kAllAlertKinds) {
        const Alert alert{.kind = kind, .threshold = 5};
        EXPECT_TRUE(alert.isReachedBy(5)) << rawValue(kind);
        EXPECT_EQ(alert.isReachedBy(5.1), isRising(kind)) << rawValue(kind);
        EXPECT_EQ(alert.isReachedBy(4.9), !isRising(kind)) << rawValue(kind);
    }
}

TEST(AlertTest, theTextsOfTheKindsStayWhatFilesHold) {
    EXPECT_EQ(rawValue(AlertKind::priceAtLeast), "priceAtLeast");
    EXPECT_EQ(rawValue(AlertKind::priceAtMost), "priceAtMost");
    EXPECT_EQ(rawValue(AlertKind::changeAtLeast), "changeAtLeast");
    EXPECT_EQ(rawValue(AlertKind::changeAtMost), "changeAtMost");
    EXPECT_EQ(alertKindFromRawValue("changeAtMost"), AlertKind::changeAtMost);
    EXPECT_EQ(alertKindFromRawValue("ChangeAtMost"), std::nullopt);
    EXPECT_EQ(alertKindFromRawValue(""), std::nullopt);
}

}  // namespace
}  // namespace quillbar
