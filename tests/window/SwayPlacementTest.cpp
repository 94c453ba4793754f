// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/SwayPlacement.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/FakeSway.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using OpenedBy = SwayPlacement::OpenedBy;
using Lines = std::vector<std::string>;

const std::string kSubscribe = "subscribe [\"window\"]";
const std::string kFloat = "[con_id=8] floating enable, border none, sticky enable";
const std::string kFloatAtPointer = kFloat + ", move position cursor";

class SwayPlacementTest : public ::testing::Test {
protected:
    void waitForRequests(std::size_t count) {
        EXPECT_TRUE(spinUntil([this, count] { return m_sway.requests.size() >= count; }));
        spinUntilIdle();
    }
    /// What the placement asked until it put the window in its place, or gave up.
    Lines requestsAfter(OpenedBy openedBy, std::size_t count = 5) {
        m_placement.shown(openedBy);
        waitForRequests(count);
        return std::exchange(m_sway.requests, {});
    }
    void waitForFailure() {
        EXPECT_TRUE(spinUntil([this] { return !m_log.lines("SwayPlacement").empty(); }));
        EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
    }
    [[nodiscard]] Lines log() const { return m_log.lines("SwayPlacement"); }

    CapturedLog m_log;
    FakeSway m_sway;
    SwayPlacement m_placement{m_sway.path(), {.pid = 4711, .title = QStringLiteral("Quillbar")}};
};

TEST_F(SwayPlacementTest, asksNothingBeforeTheWindowIsShown) {
    m_placement.resized({400, 500});
    spinUntilIdle();
    EXPECT_FALSE(m_sway.isConnected());
}

TEST_F(SwayPlacementTest, hangsTheWindowFromABarAtTheTop) {
    EXPECT_EQ(requestsAfter(OpenedBy::pointer),
              (Lines{kSubscribe,
                     "getTree",
                     kFloatAtPointer,
                     "getTree",
                     "[con_id=8] move absolute position 440 px 30 px"}));
    EXPECT_EQ(log(), Lines{});
}

TEST_F(SwayPlacementTest, standsTheWindowOnABarAtTheBottom) {
    m_sway.workspace = {0, 0, 1280, 770};
    m_sway.window.moveTo(700, 320);
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).back(),
              "[con_id=8] move absolute position 700 px 290 px");
}

TEST_F(SwayPlacementTest, keepsTheGapToTheScreensEdge) {
    m_sway.window.moveTo(880, 0);
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).back(),
              "[con_id=8] move absolute position 876 px 30 px");
}

TEST_F(SwayPlacementTest, placesItOnTheScreenOfThePointer) {
    m_sway.output = {-1920, 0, 1920, 1080};
    m_sway.workspace = {-1920, 30, 1920, 1050};
    m_sway.window.moveTo(-1900, 0);
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).back(),
              "[con_id=8] move absolute position -1900 px 30 px");
}

TEST_F(SwayPlacementTest, waitsForTheWindowToAppear) {
    m_sway.isMapped = false;
    EXPECT_EQ(requestsAfter(OpenedBy::pointer, 2), (Lines{kSubscribe, "getTree"}));
    m_sway.mapWindow();
    waitForRequests(3);
    EXPECT_EQ(
        m_sway.requests,
        (Lines{kFloatAtPointer, "getTree", "[con_id=8] move absolute position 440 px 30 px"}));
}

TEST_F(SwayPlacementTest, leavesOtherWindowsAlone) {
    m_sway.isMapped = false;
    requestsAfter(OpenedBy::pointer, 2);
    m_sway.title = "Quillbar notes";
    m_sway.mapWindow();
    m_sway.title = "Quillbar";
    m_sway.pid = 4712;
    m_sway.mapWindow();
    m_sway.pid = 4711;
    m_sway.mapWindow("close");
    spinUntilIdle();
    EXPECT_EQ(m_sway.requests, Lines{});
    m_sway.mapWindow();
    waitForRequests(3);
    EXPECT_EQ(m_sway.requests.front(), kFloatAtPointer);
}

TEST_F(SwayPlacementTest, floatsItOnceThoughTheEventAndTheTreeBothTellOfIt) {
    m_sway.isSilent = true;
    m_placement.shown(OpenedBy::pointer);
    waitForRequests(1);
    m_sway.isSilent = false;
    m_sway.sendRaw(
        SwayMessage{.type = SwayMessage::Type::subscribe, .payload = R"({"success":true})"}
            .encoded());
    m_sway.mapWindow();
    waitForRequests(5);
    m_sway.mapWindow("title");
    spinUntilIdle();
    EXPECT_EQ(std::count(m_sway.requests.begin(), m_sway.requests.end(), kFloatAtPointer), 1);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 440 px 30 px");
}

TEST_F(SwayPlacementTest, withoutAClickItGoesToTheEndOfTheBar) {
    EXPECT_EQ(requestsAfter(OpenedBy::other),
              (Lines{kSubscribe,
                     "getTree",
                     kFloat,
                     "getTree",
                     "[con_id=8] move absolute position 876 px 30 px"}));
}

TEST_F(SwayPlacementTest, withoutAClickItGoesWhereTheLastClickWas) {
    requestsAfter(OpenedBy::pointer);
    m_placement.hidden();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
    m_sway.window.moveTo(600, 300);
    EXPECT_EQ(requestsAfter(OpenedBy::other).back(),
              "[con_id=8] move absolute position 440 px 30 px");
    m_placement.hidden();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
    m_sway.output.moveLeft(2000);
    m_sway.workspace.moveLeft(2000);
    EXPECT_EQ(requestsAfter(OpenedBy::other).back(),
              "[con_id=8] move absolute position 2876 px 30 px")
        << "that screen is not this one";
}

TEST_F(SwayPlacementTest, aSecondShowingOfTheOpenWindowAsksNothing) {
    requestsAfter(OpenedBy::pointer);
    m_placement.shown(OpenedBy::other);
    spinUntilIdle();
    EXPECT_EQ(m_sway.requests, Lines{});
}

TEST_F(SwayPlacementTest, movesAWindowThatGrowsOnABarAtTheBottom) {
    m_sway.workspace = {0, 0, 1280, 770};
    m_sway.window.moveTo(700, 320);
    requestsAfter(OpenedBy::pointer);
    m_placement.resized({400, 600});
    waitForRequests(1);
    EXPECT_EQ(m_sway.requests, Lines{"[con_id=8] move absolute position 700 px 170 px"});
}

TEST_F(SwayPlacementTest, leavesAWindowThatGrowsBelowABar) {
    requestsAfter(OpenedBy::pointer);
    m_placement.resized({400, 600});
    spinUntilIdle();
    EXPECT_EQ(m_sway.requests, Lines{});
}

TEST_F(SwayPlacementTest, heedsASizeThatComesBeforeThePlace) {
    m_sway.workspace = {0, 0, 1280, 770};
    m_sway.window.moveTo(700, 320);
    m_placement.shown(OpenedBy::pointer);
    m_placement.resized({400, 600});
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 700 px 170 px");
}

TEST_F(SwayPlacementTest, understandsAnswersThatComeInPieces) {
    m_sway.isSlow = true;
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).back(),
              "[con_id=8] move absolute position 440 px 30 px");
}

TEST_F(SwayPlacementTest, ignoresMessagesOfOtherTypes) {
    m_sway.isMapped = false;
    requestsAfter(OpenedBy::pointer, 2);
    m_sway.sendRaw(
        SwayMessage{.type = static_cast<SwayMessage::Type>(0x80000015), .payload = "{}"}.encoded());
    m_sway.mapWindow();
    waitForRequests(3);
    EXPECT_EQ(log(), Lines{});
}

TEST_F(SwayPlacementTest, endsWithTheWindowAtAnyStep) {
    for (std::size_t step = 0; step <= 5; ++step) {
        m_placement.shown(OpenedBy::pointer);
        EXPECT_TRUE(spinUntil([&] { return m_sway.requests.size() >= step; }));
        m_placement.hidden();
        spinUntilIdle();
        EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
        m_sway.requests.clear();
    }
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).size(), 5U);
}

TEST_F(SwayPlacementTest, logsOnceThatNobodyListens) {
    m_sway.disappear();
    for (int opening = 0; opening < 3; ++opening) {
        m_placement.shown(OpenedBy::pointer);
        spinUntilIdle();
        m_placement.hidden();
    }
    EXPECT_EQ(log(),
              Lines{"SwayPlacement|error|sway did not place the panel: "
                    "QLocalSocket::connectToServer: Invalid name"});
}

TEST_F(SwayPlacementTest, logsAConnectionThatIsLostAtAnyStep) {
    for (std::size_t step = 1; step <= 5; ++step) {
        m_log.clear();
        m_sway.requests.clear();
        SwayPlacement placement(m_sway.path(), {.pid = 4711, .title = QStringLiteral("Quillbar")});
        placement.shown(OpenedBy::pointer);
        EXPECT_TRUE(spinUntil([&] { return m_sway.requests.size() >= step; }));
        m_sway.hangUp();
        waitForFailure();
        EXPECT_EQ(
            log(),
            Lines{"SwayPlacement|error|sway did not place the panel: QLocalSocket: Remote closed"});
    }
}

TEST_F(SwayPlacementTest, logsAnAnswerThatIsNoMessage) {
    m_sway.isSilent = true;
    m_placement.shown(OpenedBy::pointer);
    waitForRequests(1);
    m_sway.sendRaw("HTTP/1.1 400 Bad Request\r\n");
    waitForFailure();
    EXPECT_EQ(log(),
              Lines{"SwayPlacement|error|sway did not place the panel: "
                    "its answer is not a message"});
}

TEST_F(SwayPlacementTest, logsARefusal) {
    m_sway.commandAnswer = R"([{"success": false, "error": "No matching node."}])";
    m_placement.shown(OpenedBy::pointer);
    waitForFailure();
    EXPECT_EQ(log(), Lines{"SwayPlacement|error|sway did not place the panel: No matching node."});
    EXPECT_EQ(m_sway.requests.back(), kFloatAtPointer);
}

TEST_F(SwayPlacementTest, logsARefusedSubscription) {
    m_sway.subscribeAnswer = R"({"success": false})";
    m_placement.shown(OpenedBy::pointer);
    waitForFailure();
    EXPECT_EQ(log(), Lines{"SwayPlacement|error|sway did not place the panel: no reason given"});
}

TEST_F(SwayPlacementTest, logsATreeThatIsBroken) {
    m_sway.isMapped = false;
    requestsAfter(OpenedBy::pointer, 2);
    m_sway.treeAnswer = R"({"nodes": [)";
    m_sway.mapWindow();
    waitForFailure();
    EXPECT_EQ(log(),
              Lines{"SwayPlacement|error|sway did not place the panel: "
                    "the window is not in its tree"});
}

TEST_F(SwayPlacementTest, worksAgainAfterAFailure) {
    m_sway.subscribeAnswer = R"({"success": false})";
    m_placement.shown(OpenedBy::pointer);
    waitForFailure();
    m_placement.hidden();
    m_sway.subscribeAnswer.clear();
    m_sway.requests.clear();
    EXPECT_EQ(requestsAfter(OpenedBy::pointer).size(), 5U);
}

TEST_F(SwayPlacementTest, isThereInASessionOfSwayAlone) {
    const auto isThere = [](const std::optional<std::string>& path) {
        const TemporaryEnvironment socket("SWAYSOCK", path);
        return SwayPlacement::ofSession(QStringLiteral("Quillbar")) != nullptr;
    };
    EXPECT_FALSE(isThere(std::nullopt));
    EXPECT_FALSE(isThere(""));
    EXPECT_TRUE(isThere(m_sway.path().toStdString()));
}

TEST_F(SwayPlacementTest, ofASessionPlacesThisProgramsWindow) {
    m_sway.pid = QCoreApplication::applicationPid();
    const TemporaryEnvironment socket("SWAYSOCK", m_sway.path().toStdString());
    const auto placement = SwayPlacement::ofSession(QStringLiteral("Quillbar"));
    placement->shown(OpenedBy::pointer);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 440 px 30 px");
}

QPoint anchorOf(QRect window, QRect workspace = {0, 30, 1280, 770}) {
    return SwayPlacement::anchorOf(
        {.id = 1, .rectangle = window, .output = {0, 0, 1280, 800}, .workspace = workspace});
}

TEST(SwayAnchorTest, isTheMiddleOfAWindowThatTouchesNoEdge) {
    EXPECT_EQ(anchorOf({300, 100, 401, 301}), QPoint(500, 250));
    EXPECT_EQ(anchorOf({300, 100, 400, 300}), QPoint(500, 250));
}

TEST(SwayAnchorTest, isAtTheEdgeThatHeldTheWindow) {
    EXPECT_EQ(anchorOf({300, 0, 401, 301}), QPoint(500, 0));
    EXPECT_EQ(anchorOf({300, 499, 401, 301}), QPoint(500, 799));
    EXPECT_EQ(anchorOf({0, 100, 401, 301}), QPoint(0, 250));
    EXPECT_EQ(anchorOf({879, 100, 401, 301}), QPoint(1279, 250));
}

TEST(SwayAnchorTest, ofAWindowAsTallAsTheScreenIsOnTheSideOfTheBar) {
    EXPECT_EQ(anchorOf({300, 0, 401, 800}).y(), 0);
    EXPECT_EQ(anchorOf({300, 0, 401, 800}, {0, 0, 1280, 770}).y(), 799);
    EXPECT_EQ(anchorOf({300, -10, 401, 900}).y(), 0);
}

}  // namespace

}  // namespace quillbar
