// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/DesktopNotifications.h"
#include "tests/qtsupport/FakeNotifications.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/CapturedLog.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Notices of one program on a bus of the test's own, with a server that is not there yet.
struct DesktopNotificationsTest : testing::Test {
    DesktopNotificationsTest()
        : server(daemon.address())
        , notifications(
              QDBusConnection::connectToBus(daemon.address(), QStringLiteral("notices"))) {
        notifications.onChosen = [this](uint number, const QString& token) {
            chosen.push_back(std::to_string(number) + ' ' + token.toStdString());
        };
        notifications.onServer = [this] { ++servers; };
    }
    ~DesktopNotificationsTest() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("notices"));
    }
    DesktopNotificationsTest(const DesktopNotificationsTest&) = delete;
    DesktopNotificationsTest& operator=(const DesktopNotificationsTest&) = delete;
    DesktopNotificationsTest(DesktopNotificationsTest&&) = delete;
    DesktopNotificationsTest& operator=(DesktopNotificationsTest&&) = delete;

    /// The number of the notice; 0 when no server took it.
    uint show(const QString& title, const QString& text = {}) {
        const auto outcome = std::make_shared<std::optional<uint>>();
        notifications.show({.title = title, .text = text}, [outcome](std::optional<uint> number) {
            *outcome = number.value_or(0);
        });
        EXPECT_TRUE(spinUntil([outcome] { return outcome->has_value(); }));
        return outcome->value_or(0);
    }
    /// Until a click on the notice has come, and with it all that was sent before.
    [[nodiscard]] bool isChosen(uint number) {
        const std::size_t before = chosen.size();
        server.choose(number, QStringLiteral("token"));
        return spinUntil([&] { return chosen.size() > before; });
    }

    CapturedLog log;
    PrivateBus daemon;
    FakeNotifications server;
    std::vector<std::string> chosen;
    int servers = 0;
    // Last: it calls back.
    DesktopNotifications notifications;
};

TEST_F(DesktopNotificationsTest, saysWhichProgramItIs) {
    server.begin();
    ASSERT_NE(show(QStringLiteral("title")), 0U);
    const FakeNotifications::Notice& notice = server.notices.front();
    EXPECT_EQ(notice.application, QStringLiteral("Quillbar"));
    EXPECT_EQ(notice.icon, QStringLiteral("io.github.quillbar.Quillbar"));
    EXPECT_EQ(notice.hints.value(QStringLiteral("desktop-entry")),
              QStringLiteral("io.github.quillbar.Quillbar"));
}

TEST_F(DesktopNotificationsTest, leavesItToTheServerHowLongItStays) {
    server.begin();
    ASSERT_NE(show(QStringLiteral("title")), 0U);
    EXPECT_EQ(server.notices.front().time, -1);
}

TEST_F(DesktopNotificationsTest, wordsWhatAClickDoes) {
    server.begin();
    ASSERT_NE(show(QStringLiteral("title")), 0U);
    EXPECT_EQ(server.notices.front().actions,
              (QStringList{QStringLiteral("default"), QStringLiteral("查看走势")}));
}

TEST_F(DesktopNotificationsTest, sendsPlainTextToAServerWithoutMarkup) {
    server.capabilities = QStringList{QStringLiteral("body")};
    server.begin();
    ASSERT_NE(show(QStringLiteral("title"), QStringLiteral("a < b\nc")), 0U);
    EXPECT_EQ(server.notices.front().text, QStringLiteral("a < b\nc"));
    EXPECT_THAT(server.notices.front().actions, IsEmpty());
}

TEST_F(DesktopNotificationsTest, tellsInTheLogThatThereIsNoServer) {
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith("Notifications|default|no notification server: ")));
}

TEST_F(DesktopNotificationsTest, aNoticeWithoutANumberWasNotTaken) {
    server.isRefusing = true;
    server.begin();
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    EXPECT_EQ(server.refused, 1);
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith("Notifications|error|a notice was not taken: ")));
}

TEST_F(DesktopNotificationsTest, tellsOfAServerThatComesAfterOneThatTookNothing) {
    server.isRefusing = true;
    server.begin();
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    server.end();
    FakeNotifications next(daemon.address());
    next.begin();
    EXPECT_TRUE(spinUntil([this] { return servers == 1; }));
}

TEST_F(DesktopNotificationsTest, tellsOfNoServerWhenOneGoes) {
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    server.begin();
    ASSERT_TRUE(spinUntil([this] { return servers == 1; }));
    server.end();
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    EXPECT_EQ(servers, 1) << "the answer came after the word that the server has gone";
}

TEST_F(DesktopNotificationsTest, asksAServerThatComesLaterWhatItCanDo) {
    EXPECT_EQ(show(QStringLiteral("title")), 0U);
    server.begin();
    ASSERT_TRUE(spinUntil([this] { return servers == 1; }));
    ASSERT_NE(show(QStringLiteral("title"), QStringLiteral("text")), 0U);
    server.end();
    FakeNotifications plain(daemon.address());
    plain.capabilities.clear();
    plain.begin();
    ASSERT_TRUE(spinUntil([this] { return servers == 2; }));
    ASSERT_NE(show(QStringLiteral("title"), QStringLiteral("text")), 0U);
    EXPECT_EQ(plain.notices.front().title, QStringLiteral("title · text"));
}

TEST_F(DesktopNotificationsTest, asksAServerThatTookNothingAgainWhatItCanDo) {
    server.isRefusing = true;
    server.begin();
    EXPECT_EQ(show(QStringLiteral("title"), QStringLiteral("text")), 0U);
    server.isRefusing = false;
    server.capabilities.clear();
    ASSERT_NE(show(QStringLiteral("title"), QStringLiteral("text")), 0U);
    EXPECT_EQ(server.notices.front().title, QStringLiteral("title · text"));
}

TEST_F(DesktopNotificationsTest, tellsAClickOnce) {
    server.begin();
    const uint first = show(QStringLiteral("first"));
    const uint second = show(QStringLiteral("second"));
    ASSERT_NE(first, second);
    ASSERT_TRUE(isChosen(first));
    ASSERT_TRUE(isChosen(second));
    EXPECT_THAT(chosen,
                ElementsAre(std::to_string(first) + " token", std::to_string(second) + " token"));
}

TEST_F(DesktopNotificationsTest, anotherActionIsNoClick) {
    server.begin();
    const uint number = show(QStringLiteral("title"));
    server.act(number, QStringLiteral("settings"));
    ASSERT_TRUE(isChosen(number));
    EXPECT_THAT(chosen, ElementsAre(std::to_string(number) + " token"));
}

TEST_F(DesktopNotificationsTest, theLastTokenCountsAndOnlyForItsClick) {
    server.begin();
    const uint number = show(QStringLiteral("title"));
    server.giveToken(number, QStringLiteral("old"));
    ASSERT_TRUE(isChosen(number));
    server.act(number, QStringLiteral("default"));
    ASSERT_TRUE(spinUntil([this] { return chosen.size() == 2; }));
    EXPECT_THAT(chosen,
                ElementsAre(std::to_string(number) + " token", std::to_string(number) + ' '));
}

TEST_F(DesktopNotificationsTest, anotherProgramGivesNoToken) {
    server.begin();
    const uint number = show(QStringLiteral("title"));
    FakeNotifications other(daemon.address());
    other.giveToken(number, QStringLiteral("others"));
    // Waits for the bus, which has passed the token on by then. The name is taken, so nothing else.
    other.begin();
    server.act(number, QStringLiteral("default"));
    ASSERT_TRUE(spinUntil([this] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre(std::to_string(number) + ' '));
}

}  // namespace
}  // namespace quillbar
