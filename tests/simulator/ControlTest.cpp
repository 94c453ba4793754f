// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Control.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/simulator/ExchangeFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar::simulator {
namespace {

using ::testing::HasSubstr;

class ControlTest : public ExchangeFixture {
protected:
    Answer control(const std::string& command) {
        return m_client.get(simulator.controlBase() + "/" + command);
    }
};

TEST_F(ControlTest, FaultsAreSetOverHttp) {
    EXPECT_EQ(control("requests?kind=status&status=429&times=2&retry-after=9&path=/api").body,
              R"({"done":true})");
    EXPECT_EQ(candles().retryAfter, "9");
    EXPECT_EQ(candles().status, 429);
    EXPECT_EQ(candles().status, 200);
    EXPECT_EQ(control("requests?kind=cut-short").status, 200);
    EXPECT_EQ(candles().error, QNetworkReply::RemoteHostClosedError);
    EXPECT_EQ(control("requests?kind=wrong-number").status, 200);
    EXPECT_THAT(candles().body, HasSubstr("abc"));
    EXPECT_EQ(control("requests?kind=empty").status, 200);
    EXPECT_EQ(candles().body, "[]");
    EXPECT_EQ(control("requests?kind=oversized&bytes=77").status, 200);
    EXPECT_EQ(candles().body.size(), 77U);
}

TEST_F(ControlTest, ControlItselfIsNeitherStruckNorCounted) {
    simulator.faults().status(503, 5);
    EXPECT_EQ(control("state").status, 200);
    EXPECT_EQ(simulator.openConnections(), 0);
    EXPECT_EQ(control("clear").status, 200);
    EXPECT_EQ(candles().status, 200);
    EXPECT_EQ(simulator.requests().size(), 1U);
}

TEST_F(ControlTest, StreamsAreFaultedOverHttp) {
    StreamClient client(simulator, "btcusdt@miniTicker");
    ASSERT_TRUE(client.opened());
    EXPECT_EQ(control("tick?steps=2").status, 200);
    ASSERT_TRUE(client.received(2));
    EXPECT_EQ(control("burst?frames=3").status, 200);
    ASSERT_TRUE(client.received(5));
    EXPECT_EQ(control("text?text=%7B%7D").status, 200);
    ASSERT_TRUE(client.received(6));
    EXPECT_EQ(client.texts[5], "{}");
    EXPECT_EQ(control("server-shutdown").status, 200);
    ASSERT_TRUE(client.received(7));
    EXPECT_THAT(client.texts[6], HasSubstr("serverShutdown"));
    EXPECT_EQ(control("ping?payload=hello").status, 200);
    ASSERT_TRUE(spinUntil([this] { return !simulator.pongs().empty(); }));
    EXPECT_EQ(control("voice?is=silent").status, 200);
    EXPECT_EQ(control("tick").status, 200);
    EXPECT_EQ(control("voice?is=normal").status, 200);
    EXPECT_EQ(control("end-streams?how=close&after=8").status, 200);
    EXPECT_EQ(control("tick").status, 200);
    ASSERT_TRUE(client.ended());
    EXPECT_EQ(client.texts.size(), 8U) << "seven, and the one after which it ended";
}

TEST_F(ControlTest, TheStateIsCounted) {
    StreamClient client(simulator, "btcusdt@miniTicker");
    ASSERT_TRUE(client.opened());
    simulator.tick();
    EXPECT_EQ(control("state").body,
              R"({"steps":1,"openConnections":1,"openStreams":1,"streamsAccepted":1,)"
              R"("abandonedConnections":0,"requests":1,"closeCodes":[],"pings":0,"pongs":0})");
}

TEST_F(ControlTest, ThePortClosesAndOpens) {
    EXPECT_EQ(candles().status, 200);
    EXPECT_EQ(control("refuse").status, 200);
    EXPECT_EQ(candles().status, 200) << "the connection that stands is kept";
    EXPECT_EQ(control("refuse?open=drop").status, 200);
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 0; }));
    EXPECT_EQ(candles().error, QNetworkReply::ConnectionRefusedError);
    EXPECT_EQ(control("clear").status, 200);
    EXPECT_EQ(candles().status, 200);
}

TEST_F(ControlTest, TheAddressAloneExplainsTheCommands) {
    const Answer help = control("");
    EXPECT_EQ(help.status, 200);
    EXPECT_EQ(help.body, controlHelp());
    EXPECT_EQ(control("nonsense").status, 404);
    EXPECT_EQ(control("nonsense").body, help.body);
    EXPECT_THAT(help.body, HasSubstr("  /end-streams\n      how=close|drop|reset"));
}

TEST_F(ControlTest, WhatMakesNoSenseIsExplained) {
    const auto complaint = [this](const std::string& command) {
        const Answer answer = control(command);
        EXPECT_EQ(answer.status, 400) << command;
        return answer.body;
    };
    EXPECT_EQ(complaint("voice?is=loud"), "is must be one of: normal, silent, junk, dead\n");
    EXPECT_EQ(complaint("burst?frames=0"), "frames must be a whole number from 1 up\n");
    EXPECT_EQ(complaint("requests?status=700"), "status must be from 100 to 599\n");
    EXPECT_EQ(complaint("requests?times=many"), "times must be a whole number from 1 up\n");
    EXPECT_EQ(complaint("ping?payload=" + std::string(126, 'x')),
              "a ping holds at most 125 bytes\n");
}

}  // namespace
}  // namespace quillbar::simulator
