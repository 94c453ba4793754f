// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/simulator/ExchangeFixture.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QNetworkProxy>
#include <QSslSocket>
#include <QTcpSocket>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar::simulator {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

using RequestFaultsTest = ExchangeFixture;

TEST_F(RequestFaultsTest, AStatusStrikesTheNextRequestsAndNoMore) {
    simulator.faults().status(503, 2);
    EXPECT_EQ(candles().status, 503);
    EXPECT_EQ(tickers().status, 503);
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, AStatusCanSayWhenToComeBack) {
    RequestFault fault;
    fault.kind = RequestFault::Kind::status;
    fault.status = 429;
    fault.retryAfter = std::chrono::seconds{7};
    simulator.faults().onRequests(fault);
    const Answer answer = candles();
    EXPECT_EQ(answer.status, 429);
    EXPECT_EQ(answer.retryAfter, "7");
    EXPECT_EQ(candles().retryAfter, "");
}

TEST_F(RequestFaultsTest, APathNarrowsWhatIsStruck) {
    simulator.faults().status(500, 1, "/api/v3/klines");
    EXPECT_EQ(tickers().status, 200);
    EXPECT_EQ(candles().status, 500);
}

TEST_F(RequestFaultsTest, RulesAreSpentInTheOrderGiven) {
    simulator.faults().status(500);
    simulator.faults().status(418);
    EXPECT_EQ(candles().status, 500);
    EXPECT_EQ(candles().status, 418);
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, RulesThatMakeNoSenseAreRefused) {
    EXPECT_THROW(simulator.faults().status(503, 0), std::invalid_argument);
    EXPECT_THROW(simulator.faults().status(99), std::invalid_argument);
    EXPECT_THROW(simulator.faults().status(600), std::invalid_argument);
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, ABodyIsCutShort) {
    const std::string whole = tickers().body;
    simulator.faults().on(RequestFault::Kind::cutShort);
    const Answer answer = tickers();
    EXPECT_EQ(answer.error, QNetworkReply::RemoteHostClosedError);
    EXPECT_EQ(answer.body, whole.substr(0, whole.size() / 2));
    EXPECT_EQ(tickers().body, whole);
}

TEST_F(RequestFaultsTest, ABodyIsNotJson) {
    simulator.faults().on(RequestFault::Kind::notJson);
    const Answer answer = candles();
    EXPECT_EQ(answer.status, 200);
    EXPECT_TRUE(answer.json().isNull());
    EXPECT_THAT(answer.body, HasSubstr("<html>"));
}

TEST_F(RequestFaultsTest, ANumberIsWrongInABodyThatIsStillJson) {
    using Kind = RequestFault::Kind;
    simulator.faults().on(Kind::wrongNumber, "/api/v3/klines");
    EXPECT_EQ(candles().json().array()[0][1].toString(), u"abc");
    simulator.faults().on(Kind::wrongNumber, "/api/v3/ticker");
    EXPECT_EQ(tickers().json().array()[0][u"lastPrice"].toString(), u"abc");
    simulator.faults().on(Kind::wrongNumber, "/coingecko");
    const Answer caps =
        m_client.get(simulator.marketCapBase() + "/coins/markets?vs_currency=usd&per_page=3");
    EXPECT_EQ(caps.json().array()[0][u"current_price"].toString(), u"abc");
    EXPECT_THAT(candles().body, Not(HasSubstr("abc")));
}

TEST_F(RequestFaultsTest, AListIsEmptyInABodyThatIsStillJson) {
    using Kind = RequestFault::Kind;
    for (const std::string& list : {candles().body, tickers().body}) {
        EXPECT_THAT(list, Not("[]"));
    }
    simulator.faults().on(Kind::emptyList, "/api/v3/klines");
    EXPECT_EQ(candles().body, "[]");
    simulator.faults().on(Kind::emptyList, "/api/v3/ticker");
    EXPECT_EQ(tickers().body, "[]");
    simulator.faults().on(Kind::emptyList, "/coingecko");
    EXPECT_EQ(
        m_client.get(simulator.marketCapBase() + "/coins/markets?vs_currency=usd&per_page=3").body,
        "[]");
    simulator.faults().on(Kind::emptyList, "/api/v3/exchangeInfo");
    const QJsonObject information =
        m_client.get(simulator.restBase() + "/exchangeInfo").json().object();
    EXPECT_TRUE(information[u"symbols"].isArray());
    EXPECT_TRUE(information[u"symbols"].toArray().isEmpty());
    EXPECT_GT(information.size(), 1) << "the rest is as it was";
    EXPECT_THAT(candles().body, Not("[]"));
}

TEST_F(RequestFaultsTest, AnAnswerWithoutAListStaysAsItIs) {
    simulator.faults().on(RequestFault::Kind::emptyList, "/icons");
    const std::string path = simulator.iconBase() + "/BTC.png";
    const std::string struck = m_client.get(path).body;
    EXPECT_EQ(struck, m_client.get(path).body);
    EXPECT_FALSE(struck.empty());
}

TEST_F(RequestFaultsTest, ARedirectNamesItsTarget) {
    RequestFault fault;
    fault.kind = RequestFault::Kind::redirect;
    fault.location = "http://127.0.0.1:1/elsewhere";
    simulator.faults().onRequests(fault);
    const Answer answer = candles();
    EXPECT_EQ(answer.status, 302);
    EXPECT_EQ(answer.location, "http://127.0.0.1:1/elsewhere");
}

TEST_F(RequestFaultsTest, ABodyIsAsLargeAsAsked) {
    RequestFault fault;
    fault.kind = RequestFault::Kind::oversized;
    fault.bytes = 5'000'000;
    simulator.faults().onRequests(fault);
    EXPECT_EQ(candles().body.size(), 5'000'000U);
}

TEST_F(RequestFaultsTest, ASocketIsResetInsteadOfAnAnswer) {
    simulator.faults().on(RequestFault::Kind::reset, "", 10);
    const Answer answer = candles();
    EXPECT_NE(answer.error, QNetworkReply::NoError);
    EXPECT_EQ(answer.status, 0);
}

TEST_F(RequestFaultsTest, AHeldRequestIsAnsweredWhenReleased) {
    simulator.faults().on(RequestFault::Kind::hold);
    QNetworkReply* reply =
        m_client.start(simulator.restBase() + "/klines?symbol=BTCUSDT&interval=1m&limit=2");
    ASSERT_TRUE(spinUntil([this] { return simulator.requests().size() == 1; }));
    spinUntilIdle();
    EXPECT_FALSE(reply->isFinished());
    EXPECT_EQ(simulator.faults().releaseHeld(), 1);
    EXPECT_EQ(HttpClient::finished(reply).json().array().size(), 2);
    EXPECT_EQ(simulator.faults().releaseHeld(), 0);
}

TEST_F(RequestFaultsTest, ADelayPassesBeforeTheAnswer) {
    candles();
    RequestFault fault;
    fault.delay = std::chrono::milliseconds{120};
    simulator.faults().onRequests(fault);
    QElapsedTimer watch;
    watch.start();
    EXPECT_EQ(candles().status, 200);
    EXPECT_GE(watch.elapsed(), 115);
}

TEST_F(RequestFaultsTest, AClientThatLeavesADelayedRequestHarmsNothing) {
    RequestFault fault;
    fault.delay = std::chrono::milliseconds{30};
    simulator.faults().onRequests(fault);
    QNetworkReply* reply = m_client.start(simulator.restBase() + "/exchangeInfo");
    ASSERT_TRUE(spinUntil([this] { return simulator.requests().size() == 1; }));
    reply->abort();
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 0; }));
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, ClearForgetsAndAnswersWhatIsHeld) {
    simulator.faults().on(RequestFault::Kind::hold);
    QNetworkReply* reply = m_client.start(simulator.restBase() + "/exchangeInfo");
    ASSERT_TRUE(spinUntil([this] { return simulator.requests().size() == 1; }));
    simulator.faults().status(503, 100);
    simulator.faults().refuseConnections();
    simulator.faults().clear();
    EXPECT_EQ(HttpClient::finished(reply).status, 200);
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, ConnectionsAreRefusedAndAcceptedAgainOnTheSamePort) {
    EXPECT_EQ(candles().status, 200);
    simulator.faults().refuseConnections(OpenConnections::drop);
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 0; }));
    spinUntilIdle();
    EXPECT_EQ(candles().error, QNetworkReply::ConnectionRefusedError);
    simulator.faults().listenAgain();
    EXPECT_EQ(candles().status, 200);
}

TEST_F(RequestFaultsTest, OpenConnectionsOutliveAClosedPortUnlessDropped) {
    EXPECT_EQ(candles().status, 200);
    simulator.faults().refuseConnections();
    EXPECT_EQ(candles().status, 200) << "over the connection that stands";
    EXPECT_EQ(simulator.openConnections(), 1);
}

TEST_F(RequestFaultsTest, ThePortCannotOpenAgainOnceTaken) {
    simulator.faults().refuseConnections();
    SimulatorOptions options;
    options.symbolCount = 1;
    options.port = simulator.port();
    const Simulator other(options);
    EXPECT_THROW(simulator.faults().listenAgain(), std::runtime_error);
}

// Without a helper of Qt's in between.

TEST(RawSocketTest, PipelinedRequestsAreAnsweredInOrder) {
    SimulatorOptions options;
    options.symbolCount = 20;
    options.transport = Transport::plain;
    Simulator simulator(options);
    EXPECT_EQ(simulator.caFile(), "");
    EXPECT_EQ(simulator.caCertificatePem(), "");
    EXPECT_THAT(simulator.restBase(), HasSubstr("http://"));
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(QStringLiteral("127.0.0.1"), simulator.port());
    socket.write(
        "GET /api/v3/nothing HTTP/1.1\r\nHost: x\r\n\r\n"
        "POST /api/v3/klines HTTP/1.1\r\nContent-Length: 4\r\n\r\nbody"
        "GET /icons/BTC.png HTTP/1.1\r\nConnection: close\r\n\r\n");
    std::string all;
    ASSERT_TRUE(spinUntil([&socket, &all] {
        all += socket.readAll().toStdString();
        return socket.state() == QAbstractSocket::UnconnectedState && !all.empty();
    }));
    EXPECT_THAT(all, HasSubstr("HTTP/1.1 404 Not Found\r\n"));
    EXPECT_LT(all.find("404 Not Found"), all.find("405 Method Not Allowed"));
    EXPECT_LT(all.find("405 Method Not Allowed"), all.find("\x89PNG"));
    EXPECT_EQ(simulator.openConnections(), 0);
}

TEST(RawSocketTest, WhatIsNotHttpIsHungUpOn) {
    SimulatorOptions options;
    options.symbolCount = 20;
    options.transport = Transport::plain;
    Simulator simulator(options);
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(QStringLiteral("127.0.0.1"), simulator.port());
    socket.write("good morning\r\n\r\n");
    bool wasConnected = false;
    EXPECT_TRUE(spinUntil([&socket, &wasConnected] {
        wasConnected = wasConnected || socket.state() == QAbstractSocket::ConnectedState;
        return wasConnected && socket.state() == QAbstractSocket::UnconnectedState;
    }));
    EXPECT_TRUE(socket.readAll().isEmpty());
}

TEST(RawSocketTest, OtherMethodsAreNotAllowed) {
    SimulatorOptions options;
    options.symbolCount = 20;
    options.transport = Transport::plain;
    Simulator simulator(options);
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(QStringLiteral("127.0.0.1"), simulator.port());
    socket.write("DELETE /api/v3/klines HTTP/1.1\r\n\r\n");
    ASSERT_TRUE(spinUntil([&socket] { return socket.bytesAvailable() > 20; }));
    EXPECT_THAT(socket.readAll().toStdString(), HasSubstr("405 Method Not Allowed"));
}

}  // namespace
}  // namespace quillbar::simulator
