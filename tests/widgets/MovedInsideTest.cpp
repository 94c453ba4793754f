// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/MovedInside.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

constexpr QRect kArea(100, 30, 800, 600);

TEST(MovedInsideTest, leavesARectangleThatIsInside) {
    EXPECT_EQ(movedInside({100, 30, 200, 100}, kArea), QRect(100, 30, 200, 100));
    EXPECT_EQ(movedInside({700, 530, 200, 100}, kArea), QRect(700, 530, 200, 100));
}

TEST(MovedInsideTest, movesARectangleOnlyAsFarAsNeeded) {
    EXPECT_EQ(movedInside({99, 29, 200, 100}, kArea), QRect(100, 30, 200, 100));
    EXPECT_EQ(movedInside({701, 531, 200, 100}, kArea), QRect(700, 530, 200, 100));
}

TEST(MovedInsideTest, shrinksARectangleThatIsTooLarge) {
    EXPECT_EQ(movedInside({0, 0, 900, 100}, kArea), QRect(100, 30, 800, 100));
    EXPECT_EQ(movedInside({500, 500, 200, 700}, kArea), QRect(500, 30, 200, 600));
}

}  // namespace
}  // namespace quillbar
