// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ClickAnchor.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {

namespace {

constexpr QPoint kReported(1000, 10);
constexpr QPoint kNear(1010, 14);
constexpr QPoint kFar(300, 600);

struct Click {
    QPoint pointer = kNear;
    bool reportedInBar = true;
    PointerPosition trust = PointerPosition::current;
    TrayHost::ClickPosition host = TrayHost::ClickPosition::onScreen;

    [[nodiscard]] std::optional<QPoint> anchor() const {
        return clickAnchor(kReported, reportedInBar, pointer, trust, host);
    }
};

TEST(ClickAnchor, isThePointer) {
    EXPECT_EQ(Click{}.anchor(), kNear);
}

TEST(ClickAnchor, isTheReportedPlaceForAHostToldByTheKeyboard) {
    EXPECT_EQ((Click{.pointer = kFar}.anchor()), kReported);
    EXPECT_EQ((Click{.pointer = kFar, .reportedInBar = false}.anchor()), kFar);
}

TEST(ClickAnchor, takesAPointerForFarBeyondTwoHundredPixels) {
    EXPECT_EQ((Click{.pointer = {1150, 60}}.anchor()), QPoint(1150, 60));
    EXPECT_EQ((Click{.pointer = {1151, 60}}.anchor()), kReported);
    EXPECT_EQ((Click{.pointer = {849, 60}}.anchor()), kReported);
}

TEST(ClickAnchor, isTheReportedPlaceWhereThePointerStandsStill) {
    EXPECT_EQ((Click{.trust = PointerPosition::outdated}.anchor()), kReported);
}

TEST(ClickAnchor, isThePointerForAHostThatReportsNoPlaceOnTheScreen) {
    constexpr auto kUnusable = TrayHost::ClickPosition::unusable;
    EXPECT_EQ((Click{.pointer = kFar, .host = kUnusable}.anchor()), kFar);
}

TEST(ClickAnchor, isUnknownWhereNeitherThePointerNorTheHostTellsIt) {
    EXPECT_EQ((Click{.trust = PointerPosition::outdated, .host = TrayHost::ClickPosition::unusable}
                   .anchor()),
              std::nullopt);
}

TEST(LogicalPosition, isTheReportedOneWithoutScaling) {
    EXPECT_EQ(logicalPosition({1500, 14}, {0, 0}, 1), QPoint(1500, 14));
    EXPECT_EQ(logicalPosition({2500, 14}, {1920, 0}, 1), QPoint(2500, 14));
}

TEST(LogicalPosition, isScaledFromTheCornerOfItsScreen) {
    EXPECT_EQ(logicalPosition({1500, 15}, {0, 0}, 1.25), QPoint(1200, 12));
    EXPECT_EQ(logicalPosition({2520, 100}, {1920, 40}, 2), QPoint(2220, 70));
}

}  // namespace

}  // namespace quillbar
