// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

namespace quillbar {

namespace {

using namespace std::chrono_literals;

class StatusItemWithoutBusTest : public StatusItemFixture {
protected:
    void start() {
        StatusItemFixture::start(QDBusConnection(QStringLiteral("no such connection")));
    }
};

TEST_F(StatusItemWithoutBusTest, usesTheOlderTrayAtOnce) {
    hasOlderTray = true;
    start();
    EXPECT_NE(olderIcon(), nullptr);
}

TEST_F(StatusItemWithoutBusTest, saysAtOnceThatNoBarCanTakeTheItem) {
    start();
    EXPECT_EQ(offered, 1);
}

TEST_F(StatusItemWithoutBusTest, saysThatThereIsNoTrayEither) {
    start();
    item->show(face(QStringLiteral("BTC 67,234.51 ▲ 1.23%")));
    EXPECT_EQ(noTray, 0);
    pass(10s);
    EXPECT_EQ(noTray, 1);
}

TEST_F(StatusItemWithoutBusTest, saysThatTheOlderTrayIsGone) {
    hasOlderTray = true;
    start();
    ASSERT_NE(olderIcon(), nullptr);
    pass(100s);
    EXPECT_EQ(noTray, 0);
    hasOlderTray = false;
    pass(10s);
    EXPECT_EQ(olderIcon(), nullptr);
    EXPECT_EQ(noTray, 0) << "another may take its place";
    pass(100s);
    EXPECT_EQ(noTray, 1);
    EXPECT_EQ(tray, 0);
}

TEST_F(StatusItemWithoutBusTest, saysEachTimeThatTheOlderTrayComesAndGoes) {
    start();
    pass(10s);
    for (int count = 1; count < 4; ++count) {
        EXPECT_EQ(noTray, count);
        hasOlderTray = true;
        pass(10s);
        EXPECT_NE(olderIcon(), nullptr);
        EXPECT_EQ(tray, count);
        hasOlderTray = false;
        pass(20s);
        EXPECT_EQ(olderIcon(), nullptr);
    }
}

TEST_F(StatusItemWithoutBusTest, saysNothingOfAnOlderTrayThatComesBackAtOnce) {
    hasOlderTray = true;
    start();
    hasOlderTray = false;
    pass(10s);
    hasOlderTray = true;
    pass(10s);
    EXPECT_NE(olderIcon(), nullptr);
    EXPECT_EQ(noTray, 0);
    EXPECT_EQ(tray, 0);
}

}  // namespace

}  // namespace quillbar
