// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/AlertAnnouncer.h"
#include "tests/qtsupport/FakeNotifications.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/state/AppStateFixture.h"

#include <QDBusMessage>

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A keeper with an alert on BTC at 110, last known at 100, and a bus of the test's own.
struct AlertAnnouncerTest : AppStateFixture {
    AlertAnnouncerTest()
        : bus(QDBusConnection::connectToBus(daemon.address(), QStringLiteral("announcer")))
        , server(daemon.address()) {
        startConnected(listOf({"BTC"}));
        keeper = std::make_unique<AlertKeeper>(
            AlertKeeperDependencies{.executor = executor,
                                    .appState = *state,
                                    .store = AlertStore(folder.path()),
                                    .now = time.clock(),
                                    .monotonic = time.monotonicClock(),
                                    .sleeper = time.sleeper()});
        price("BTC", 100);
    }
    ~AlertAnnouncerTest() override {
        announcer.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("announcer"));
    }
    AlertAnnouncerTest(const AlertAnnouncerTest&) = delete;
    AlertAnnouncerTest& operator=(const AlertAnnouncerTest&) = delete;
    AlertAnnouncerTest(AlertAnnouncerTest&&) = delete;
    AlertAnnouncerTest& operator=(AlertAnnouncerTest&&) = delete;

    void announce(const QDBusConnection& connection) {
        announcer.emplace(*keeper, preferences, connection);
    }
    void add(double threshold,
             std::optional<double> margin = std::nullopt,
             const std::string& note = {}) {
        ASSERT_TRUE(keeper->add({.symbol = "BTCUSDT",
                                 .baseAsset = "BTC",
                                 .threshold = threshold,
                                 .margin = margin,
                                 .note = note}));
    }
    [[nodiscard]] bool noticesAre(std::size_t count) const {
        return spinUntil([&] { return server.notices.size() == count; });
    }
    [[nodiscard]] bool allAreShown() const {
        return spinUntil([&] { return keeper->fired()->empty(); });
    }

    PrivateBus daemon;
    QDBusConnection bus;
    FakeNotifications server;
    std::unique_ptr<AlertKeeper> keeper;
    Observed<Preferences> preferences;
    std::optional<AlertAnnouncer> announcer;
};

TEST_F(AlertAnnouncerTest, showsWhatFiredAsANotice) {
    server.begin();
    announce(bus);
    add(110, std::nullopt, "卖 <一半> & 等");
    price("BTC", 112.5);
    ASSERT_TRUE(noticesAre(1));
    const FakeNotifications::Notice& notice = server.notices.front();
    EXPECT_EQ(notice.title, QStringLiteral("BTC 价格 ≥ 110.00"));
    EXPECT_EQ(notice.text,
              QStringLiteral("当时 112.50，24 小时 +12.50%\n卖 &lt;一半&gt; &amp; 等"));
    EXPECT_EQ(notice.replaces, 0U);
    EXPECT_EQ(notice.actions.value(0), QStringLiteral("default"));
    EXPECT_EQ(notice.hints.value(QStringLiteral("urgency")).toInt(), 1);
    EXPECT_TRUE(allAreShown());
    EXPECT_THAT(*announcer->unshown(), IsEmpty());
    EXPECT_THAT(AlertStore(folder.path()).load().fired, IsEmpty());
}

TEST_F(AlertAnnouncerTest, asksForASoundOnlyWhileTheUserWantsOne) {
    server.begin();
    announce(bus);
    const QString sound = QStringLiteral("sound-name");
    const QString silence = QStringLiteral("suppress-sound");
    add(110);
    add(120);
    price("BTC", 111);
    ASSERT_TRUE(noticesAre(1));
    EXPECT_FALSE(server.notices.back().hints.contains(sound));
    EXPECT_EQ(server.notices.back().hints.value(silence), QVariant(true));
    preferences.set(Preferences().settingAlertSound(true));
    price("BTC", 121);
    ASSERT_TRUE(noticesAre(2));
    EXPECT_EQ(server.notices.back().hints.value(sound),
              QVariant(QStringLiteral("message-new-instant")));
    EXPECT_FALSE(server.notices.back().hints.contains(silence));
}

TEST_F(AlertAnnouncerTest, offersAServerOnlyWhatItCanDo) {
    server.capabilities.clear();
    server.begin();
    announce(bus);
    add(110, std::nullopt, "<b>");
    price("BTC", 112);
    ASSERT_TRUE(noticesAre(1));
    EXPECT_EQ(server.notices.front().title,
              QStringLiteral("BTC 价格 ≥ 110.00 · 当时 112.00，24 小时 +12.00% <b>"));
    EXPECT_EQ(server.notices.front().text, QString());
    EXPECT_TRUE(server.notices.front().actions.isEmpty());
}

TEST_F(AlertAnnouncerTest, anAlertThatFiresAgainReplacesItsNotice) {
    server.begin();
    announce(bus);
    add(110, 5);
    price("BTC", 111);
    ASSERT_TRUE(allAreShown());
    price("BTC", 100);
    price("BTC", 115);
    ASSERT_TRUE(noticesAre(2));
    EXPECT_EQ(server.notices.back().replaces, server.notices.front().number);
}

TEST_F(AlertAnnouncerTest, whatNoServerTakesWaitsForOneAndIsListedMeanwhile) {
    announce(bus);
    add(110);
    price("BTC", 111);
    ASSERT_TRUE(spinUntil([this] { return announcer->unshown()->size() == 1; }));
    EXPECT_EQ(keeper->fired()->size(), 1U);
    server.begin();
    ASSERT_TRUE(noticesAre(1));
    EXPECT_TRUE(allAreShown());
    EXPECT_THAT(*announcer->unshown(), IsEmpty());
}

TEST_F(AlertAnnouncerTest, whatWasSeenInThePanelIsNotShownByAServerThatComesLater) {
    announce(bus);
    add(110);
    price("BTC", 111);
    ASSERT_TRUE(spinUntil([this] { return announcer->unshown()->size() == 1; }));
    keeper->markShown(announcer->unshown()->front().serial);
    EXPECT_THAT(*announcer->unshown(), IsEmpty());
    server.begin();
    add(120);
    price("BTC", 121);
    ASSERT_TRUE(noticesAre(1));
    EXPECT_EQ(server.notices.front().title, QStringLiteral("BTC 价格 ≥ 120.00"));
}

TEST_F(AlertAnnouncerTest, withoutABusWhatFiredIsListed) {
    announce(QDBusConnection(QString()));
    add(110);
    price("BTC", 111);
    EXPECT_TRUE(spinUntil([this] { return announcer->unshown()->size() == 1; }));
}

TEST_F(AlertAnnouncerTest, whatWasNotShownBeforeTheEndIsShownAfterTheStart) {
    server.begin();
    add(110);
    price("BTC", 111);
    announce(bus);
    EXPECT_TRUE(noticesAre(1));
}

TEST_F(AlertAnnouncerTest, aClickTellsThePairAndTheToken) {
    server.begin();
    announce(bus);
    std::vector<std::string> chosen;
    announcer->onChosen = [&chosen](const std::string& symbol, const QString& token) {
        chosen.push_back(symbol + " " + token.toStdString());
    };
    add(110);
    price("BTC", 111);
    ASSERT_TRUE(allAreShown());
    server.choose(7, QStringLiteral("other"));
    server.choose(server.notices.front().number, QStringLiteral("token1"));
    ASSERT_TRUE(spinUntil([&chosen] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre("BTCUSDT token1")) << "the notices of others are not ours";
}

TEST_F(AlertAnnouncerTest, anotherProgramCannotClick) {
    server.begin();
    announce(bus);
    int clicks = 0;
    announcer->onChosen = [&clicks](const std::string& /*symbol*/, const QString& /*token*/) {
        ++clicks;
    };
    add(110);
    price("BTC", 111);
    ASSERT_TRUE(allAreShown());
    const uint number = server.notices.front().number;
    FakeNotifications other(daemon.address());
    other.choose(number, QString());
    server.choose(number, QString());
    ASSERT_TRUE(spinUntil([&clicks] { return clicks > 0; }));
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quillbar
