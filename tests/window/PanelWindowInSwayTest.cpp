// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/FakeSway.h"
#include "tests/window/PanelContent.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using AskedBy = PanelWindow::AskedBy;

class PanelWindowInSwayTest : public ::testing::Test {
protected:
    PanelWindowInSwayTest() {
        m_sway.pid = QCoreApplication::applicationPid();
        m_sway.workspace = {0, 0, 1280, 770};
        m_sway.window = {700, 320, 400, 480};
    }

    void waitForRequests(std::size_t count) {
        EXPECT_TRUE(spinUntil([this, count] { return m_sway.requests.size() >= count; }));
        spinUntilIdle();
    }

    FakeSway m_sway;
    TemporaryEnvironment m_socket{"SWAYSOCK", m_sway.path().toStdString()};
    PanelContent* m_content = new PanelContent({400, 480});
    PanelWindow m_window{m_content, [] { return 0ms; }};
};

TEST_F(PanelWindowInSwayTest, isPlacedWhenItOpens) {
    m_window.open(AskedBy::pointer, QPoint(1, 2));
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests[2],
              "[con_id=8] floating enable, border none, sticky enable, move position cursor");
    EXPECT_EQ(m_sway.requests[4], "[con_id=8] move absolute position 700 px 290 px");
    m_window.dismiss();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
}

TEST_F(PanelWindowInSwayTest, isPlacedAtThePointerThatSwayAloneKnows) {
    m_window.open(AskedBy::pointer);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests[2],
              "[con_id=8] floating enable, border none, sticky enable, move position cursor");
}

TEST_F(PanelWindowInSwayTest, isPlacedWithoutThePointerWhenNobodyClicked) {
    m_window.open(AskedBy::command);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests[2], "[con_id=8] floating enable, border none, sticky enable");
}

TEST_F(PanelWindowInSwayTest, isMovedWhenItGrows) {
    m_window.open(AskedBy::pointer, QPoint(1, 2));
    waitForRequests(5);
    m_content->grow({400, 500});
    waitForRequests(6);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 700 px 270 px");
}

TEST_F(PanelWindowInSwayTest, withoutAnItemStaysWhereItWasDraggedToWhenItGrows) {
    m_window.setStandalone(true);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 876 px 290 px");
    m_sway.window.moveTo(100, 120);
    m_content->grow({400, 500});
    EXPECT_TRUE(spinUntil([this] { return m_window.height() == 500; }));
    waitForRequests(6);
    EXPECT_EQ(m_sway.requests.size(), 6U);
    EXPECT_EQ(m_sway.requests.back(), "getTree") << "to see that it has room there";
    EXPECT_EQ(m_window.maximumSize(), QSize(400, 500));
}

TEST_F(PanelWindowInSwayTest, withoutAnItemIsPushedOntoTheScreenWhenItGrows) {
    m_window.setStandalone(true);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    m_sway.window.moveTo(100, 290);
    m_content->grow({400, 500});
    waitForRequests(7);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 100 px 270 px");
}

TEST_F(PanelWindowInSwayTest, withoutAnItemOpensWhereItWasDraggedTo) {
    m_window.setStandalone(true);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    m_window.dismiss();
    m_sway.window.moveTo(100, 120);
    m_sway.closeWindow();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
    m_sway.requests.clear();
    m_sway.window.moveTo(440, 150);
    m_sway.isMapped = true;
    m_window.open(AskedBy::command);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 100 px 120 px");
}

TEST_F(PanelWindowInSwayTest, withoutAnItemOpensThereBeforeSwayHasToldThatItClosed) {
    m_window.setStandalone(true);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    m_window.renew();
    spinUntilIdle();
    EXPECT_EQ(m_sway.requests.size(), 5U);
    m_sway.window.moveTo(100, 120);
    m_sway.closeWindow();
    m_sway.window.moveTo(440, 150);
    m_sway.mapWindow();
    waitForRequests(9);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 100 px 120 px");
}

TEST_F(PanelWindowInSwayTest, withAnItemAgainOpensAtTheEndOfTheBar) {
    m_window.setStandalone(true);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    m_window.dismiss();
    m_sway.window.moveTo(100, 120);
    m_sway.closeWindow();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
    m_sway.requests.clear();
    m_sway.isMapped = true;
    m_window.setStandalone(false);
    m_window.open(AskedBy::command);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 876 px 290 px");
}

TEST_F(PanelWindowInSwayTest, hasNoOtherSizeSoThatItIsNotTiled) {
    m_window.open(AskedBy::pointer, QPoint(1, 2));
    EXPECT_EQ(m_window.minimumSize(), QSize(400, 480));
    EXPECT_EQ(m_window.maximumSize(), QSize(400, 480));
    m_content->grow({400, 500});
    EXPECT_TRUE(spinUntil([this] { return m_window.height() == 500; }));
}

}  // namespace

}  // namespace quillbar
