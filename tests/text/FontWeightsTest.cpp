// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/FontWeights.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using FontWeights::closest;

TEST(FontWeightsTest, semiboldIsMediumWhereAFontHasNoSemibold) {
    EXPECT_EQ(closest(QFont::DemiBold, {400, 500, 700}), QFont::Medium);
    EXPECT_EQ(closest(QFont::DemiBold, {400, 500, 600, 700}), QFont::DemiBold);
    EXPECT_EQ(closest(QFont::DemiBold, {400, 700}), QFont::DemiBold);
    EXPECT_EQ(closest(QFont::DemiBold, {}), QFont::DemiBold);
}

TEST(FontWeightsTest, otherWeightsStayAsTheyAre) {
    for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::Bold}) {
        EXPECT_EQ(closest(weight, {400, 500, 700}), weight);
        EXPECT_EQ(closest(weight, {400}), weight);
    }
}

}  // namespace

}  // namespace quillbar
