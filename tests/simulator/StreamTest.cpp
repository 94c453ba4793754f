// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/simulator/Clients.h"

#include <QJsonObject>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace quillbar::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

SimulatorOptions smallMarket() {
    SimulatorOptions options;
    options.symbolCount = 100;
    return options;
}

class StreamTest : public ::testing::Test {
public:
    Simulator simulator{smallMarket()};

protected:
    /// A stream of two pairs whose prices change at every step, open.
    StreamClient& twoPairs() {
        m_client.emplace(simulator, "btcusdt@miniTicker/ethusdt@miniTicker");
        EXPECT_TRUE(m_client->opened());
        return *m_client;
    }

private:
    std::optional<StreamClient> m_client;
};

std::string streamOf(const std::string& frame) {
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(frame));
    return document[u"stream"].toString().toStdString();
}

TEST_F(StreamTest, ATickSendsAMiniTickerOfEachPair) {
    StreamClient& client = twoPairs();
    EXPECT_EQ(simulator.openStreams(), 1);
    simulator.tick();
    ASSERT_TRUE(client.received(2));
    EXPECT_EQ(streamOf(client.texts[0]), "btcusdt@miniTicker");
    EXPECT_EQ(streamOf(client.texts[1]), "ethusdt@miniTicker");
    const QJsonObject data =
        QJsonDocument::fromJson(QByteArray::fromStdString(client.texts[0]))[u"data"].toObject();
    EXPECT_EQ(data.size(), 9);
    EXPECT_EQ(data[u"e"].toString(), u"24hrMiniTicker");
    EXPECT_EQ(data[u"s"].toString(), u"BTCUSDT");
    EXPECT_EQ(data[u"E"].toInteger(), simulator.market().now().time_since_epoch().count());
    const DayStatistics day = simulator.market().day(*simulator.market().find("BTCUSDT"));
    EXPECT_EQ(data[u"c"].toString().toStdString(), fmt::format("{:.8f}", day.last));
    EXPECT_EQ(data[u"o"].toString().toStdString(), fmt::format("{:.8f}", day.open));
    EXPECT_EQ(data[u"q"].toString().toStdString(), fmt::format("{:.8f}", day.quoteVolume));
}

TEST_F(StreamTest, OnlyPairsWhosePriceChangedAreSent) {
    const Market& market = simulator.market();
    const Listing* quiet = nullptr;
    for (const Listing& listing : market.listings()) {
        if (listing.status == ListingStatus::trading && listing.tradePeriod > 4) {
            quiet = &listing;
        }
    }
    ASSERT_NE(quiet, nullptr);
    std::string name =
        QString::fromStdString(quiet->symbol).toLower().toStdString() + "@miniTicker";
    StreamClient client(simulator, name + "/btcusdt@miniTicker");
    ASSERT_TRUE(client.opened());
    for (int i = 0; i < quiet->tradePeriod; ++i) {
        simulator.tick();
    }
    ASSERT_TRUE(client.received(static_cast<std::size_t>(quiet->tradePeriod) + 1));
    const auto ofQuiet =
        std::count_if(client.texts.begin(), client.texts.end(), [&name](const auto& text) {
            return streamOf(text) == name;
        });
    EXPECT_EQ(ofQuiet, 1);
}

TEST_F(StreamTest, UnknownAndRepeatedNamesArePassedOver) {
    StreamClient client(simulator, "nope@miniTicker/btcusdt@miniTicker/btcusdt@miniTicker/btcusdt");
    ASSERT_TRUE(client.opened());
    simulator.tick();
    simulator.faults().endStreams(StreamEnd::close);
    ASSERT_TRUE(client.ended());
    EXPECT_THAT(client.texts, SizeIs(1));
}

TEST_F(StreamTest, NamesBeyondAsciiAreStreamedPercentEncoded) {
    Simulator large{[] {
        SimulatorOptions options;
        options.symbolCount = 200;
        return options;
    }()};
    StreamClient client(large, "%E5%B8%81%E5%AE%89%E4%BA%BA%E7%94%9Fusdt@miniTicker");
    ASSERT_TRUE(client.opened());
    large.faults().burst(1);
    ASSERT_TRUE(client.received(1));
    EXPECT_THAT(client.texts[0], HasSubstr("\"s\":\"\u5e01\u5b89\u4eba\u751fUSDT\""));
}

TEST_F(StreamTest, AutomaticTicksComeByThemselves) {
    SimulatorOptions options = smallMarket();
    options.ticking = Ticking::automatic;
    options.speed = 200;
    Simulator moving(options);
    StreamClient client(moving, "btcusdt@miniTicker");
    EXPECT_TRUE(client.received(3));
    EXPECT_GE(moving.market().steps(), 3);
}

TEST_F(StreamTest, ClosingIsRecordedWithItsCode) {
    StreamClient& client = twoPairs();
    client.socket.close(QWebSocketProtocol::CloseCodeGoingAway);
    ASSERT_TRUE(client.ended());
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 0; }));
    EXPECT_THAT(simulator.closeCodes(), ElementsAre(1001));
    EXPECT_EQ(simulator.openStreams(), 0);
    EXPECT_EQ(simulator.streamsAccepted(), 1);
}

TEST_F(StreamTest, PingsAreAnsweredBothWays) {
    StreamClient& client = twoPairs();
    client.socket.ping("from the client");
    ASSERT_TRUE(spinUntil([&client] { return !client.pongs.empty(); }));
    EXPECT_THAT(client.pongs, ElementsAre("from the client"));
    EXPECT_THAT(simulator.pings(), ElementsAre("from the client"));
    simulator.faults().ping("from the server");
    ASSERT_TRUE(spinUntil([this] { return !simulator.pongs().empty(); }));
    EXPECT_THAT(simulator.pongs(), ElementsAre("from the server"));
    EXPECT_THROW(simulator.faults().ping(std::string(126, 'x')), std::invalid_argument);
}

TEST_F(StreamTest, TheHandshakeIsRecordedAsARequest) {
    twoPairs();
    ASSERT_THAT(simulator.requests(), SizeIs(1));
    EXPECT_EQ(simulator.requests()[0].target,
              "/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker");
}

TEST_F(StreamTest, APlainRequestForTheStreamIsRefused) {
    HttpClient client(simulator);
    const std::string url = "https" + simulator.streamBase().substr(3) + "/stream?streams=x";
    EXPECT_EQ(client.get(url).status, 400);
}

TEST_F(StreamTest, ABurstGoesRoundThePairs) {
    StreamClient& client = twoPairs();
    simulator.faults().burst(1001);
    ASSERT_TRUE(client.received(1001));
    EXPECT_EQ(streamOf(client.texts[0]), "btcusdt@miniTicker");
    EXPECT_EQ(streamOf(client.texts[999]), "ethusdt@miniTicker");
    EXPECT_EQ(streamOf(client.texts[1000]), "btcusdt@miniTicker");
}

TEST_F(StreamTest, AnyMessageCanBeSent) {
    StreamClient& client = twoPairs();
    simulator.faults().serverShutdown();
    simulator.faults().sendText(std::string(70'000, 'x'));
    simulator.faults().sendText("");
    simulator.faults().sendBinary(std::string{"\x00\xFF", 2});
    ASSERT_TRUE(client.received(3));
    ASSERT_TRUE(spinUntil([&client] { return !client.binaries.empty(); }));
    EXPECT_EQ(client.texts[0],
              fmt::format(R"({{"e":"serverShutdown","E":{}}})",
                          simulator.market().now().time_since_epoch().count()));
    EXPECT_EQ(client.texts[1], std::string(70'000, 'x'));
    EXPECT_EQ(client.texts[2], "");
    EXPECT_EQ(client.binaries[0], (std::string{"\x00\xFF", 2}));
}

TEST_F(StreamTest, AStreamIsClosedAfterSoManyMessages) {
    simulator.faults().endStreamsAfter(3, StreamEnd::close);
    StreamClient& client = twoPairs();
    simulator.tick();
    simulator.tick();
    ASSERT_TRUE(client.ended());
    EXPECT_THAT(client.texts, SizeIs(3));
    EXPECT_EQ(client.socket.closeCode(), QWebSocketProtocol::CloseCodeGoingAway);
    EXPECT_TRUE(simulator.closeCodes().empty()) << "the client did not close it";
    StreamClient& next = twoPairs();
    simulator.tick();
    simulator.tick();
    EXPECT_TRUE(next.received(4)) << "one stream was to end, no more";
}

TEST_F(StreamTest, AStreamIsDroppedWithoutACloseFrame) {
    StreamClient& client = twoPairs();
    simulator.tick();
    EXPECT_EQ(simulator.faults().endStreams(StreamEnd::drop), 1);
    ASSERT_TRUE(client.ended());
    EXPECT_THAT(client.texts, SizeIs(2));
    EXPECT_NE(client.socket.closeCode(), QWebSocketProtocol::CloseCodeGoingAway);
}

TEST_F(StreamTest, AStreamIsResetRightAfterItsHandshake) {
    simulator.faults().endStreamsAfter(0, StreamEnd::reset);
    StreamClient client(simulator, "btcusdt@miniTicker");
    ASSERT_TRUE(client.ended());
    EXPECT_TRUE(client.texts.empty());
    EXPECT_EQ(simulator.streamsAccepted(), 1);
    EXPECT_EQ(simulator.openConnections(), 0);
}

TEST_F(StreamTest, ARuleForSpentStreamsStrikesAtOnce) {
    StreamClient& client = twoPairs();
    simulator.tick();
    ASSERT_TRUE(client.received(2));
    simulator.faults().endStreamsAfter(2, StreamEnd::close);
    EXPECT_TRUE(client.ended());
}

TEST_F(StreamTest, ASilentStreamAnswersPingsAndSendsNoMessage) {
    simulator.faults().setVoice(StreamVoice::silent);
    StreamClient& client = twoPairs();
    simulator.tick();
    simulator.faults().burst(5);
    client.socket.ping("still there?");
    ASSERT_TRUE(spinUntil([&client] { return !client.pongs.empty(); }));
    EXPECT_TRUE(client.texts.empty());
    simulator.faults().setVoice(StreamVoice::normal);
    simulator.tick();
    EXPECT_TRUE(client.received(2));
}

TEST_F(StreamTest, AJunkStreamSendsNoPrice) {
    simulator.faults().setVoice(StreamVoice::junk);
    StreamClient& client = twoPairs();
    simulator.tick();
    ASSERT_TRUE(client.received(2));
    EXPECT_EQ(client.texts[0], R"({"hello":"world"})");
    client.socket.ping("still there?");
    EXPECT_TRUE(spinUntil([&client] { return !client.pongs.empty(); }));
}

TEST_F(StreamTest, ADeadStreamAnswersNothing) {
    simulator.faults().setVoice(StreamVoice::dead);
    StreamClient& client = twoPairs();
    client.socket.ping("still there?");
    ASSERT_TRUE(spinUntil([this] { return !simulator.pings().empty(); }));
    simulator.tick();
    spinUntilIdle();
    EXPECT_TRUE(client.pongs.empty());
    EXPECT_TRUE(client.texts.empty());
    EXPECT_FALSE(client.hasEnded);
}

TEST_F(StreamTest, AnUpgradeIsNeverAnswered) {
    simulator.faults().setHandshake(Handshake::silentUpgrade);
    StreamClient client(simulator, "btcusdt@miniTicker");
    ASSERT_TRUE(spinUntil([this] { return !simulator.requests().empty(); }));
    HttpClient http(simulator);
    EXPECT_EQ(http.get(simulator.restBase() + "/ticker/24hr?symbol=BTCUSDT").status, 200);
    EXPECT_FALSE(client.isOpen);
    EXPECT_FALSE(client.hasEnded);
    EXPECT_EQ(simulator.openStreams(), 0);
}

TEST_F(StreamTest, TheNewestTenThousandPingsAreRemembered) {
    StreamClient& client = twoPairs();
    for (int number = 0; number <= 10'000; ++number) {
        client.socket.ping(QByteArray::number(number));
    }
    ASSERT_TRUE(spinUntil(
        [this] { return !simulator.pings().empty() && simulator.pings().back() == "10000"; }));
    EXPECT_THAT(simulator.pings(), SizeIs(10'000));
    EXPECT_EQ(simulator.pings().front(), "1");
}

TEST_F(StreamTest, AStatusAnswersTheHandshake) {
    simulator.faults().status(503, 1, "/stream");
    StreamClient refused(simulator, "btcusdt@miniTicker");
    EXPECT_FALSE(refused.opened());
    EXPECT_TRUE(twoPairs().isOpen);
}

TEST_F(StreamTest, RequestFaultsWithoutAPathSpareTheStream) {
    simulator.faults().status(503);
    EXPECT_TRUE(twoPairs().isOpen);
    HttpClient http(simulator);
    EXPECT_EQ(http.get(simulator.restBase() + "/exchangeInfo").status, 503);
}

}  // namespace
}  // namespace quillbar::simulator
