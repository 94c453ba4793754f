// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using std::chrono::milliseconds;

TEST(SpinUntilTest, GivesUpWhenTheTimeIsOver) {
    // Long enough for a timer that is allowed to fire a twentieth early.
    EXPECT_FALSE(spinUntil([] { return false; }, milliseconds{300}));
    EXPECT_FALSE(spinUntil([] { return false; }, milliseconds{0}));
}

TEST(SpinUntilTest, GivesUpInsideAnother) {
    EXPECT_FALSE(spinUntil(
        [] {
            EXPECT_FALSE(spinUntil([] { return false; }, milliseconds{60}));
            return false;
        },
        milliseconds{30}));
}

TEST(SpinUntilTest, AsksFirst) {
    EXPECT_TRUE(spinUntil([] { return true; }, milliseconds{0}));
}

TEST(SpinUntilTest, ReturnsOnceAnEventMakesItTrue) {
    bool isDone = false;
    QTimer::singleShot(0, [&isDone] { isDone = true; });
    EXPECT_TRUE(spinUntil([&isDone] { return isDone; }));
}

TEST(SpinUntilTest, DeletesWhatWaits) {
    bool isGone = false;
    auto* object = new QObject;
    QObject::connect(object, &QObject::destroyed, [&isGone] { isGone = true; });
    object->deleteLater();
    QTimer::singleShot(0, [] {});
    EXPECT_TRUE(spinUntil([&isGone] { return isGone; }));
}

}  // namespace
}  // namespace quillbar
