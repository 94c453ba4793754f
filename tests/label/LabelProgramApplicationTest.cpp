// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/instance/FakeApplication.h"
#include "tests/label/LabelProgramFixture.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnectionInterface>

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>

namespace quillbar {

namespace {

using ::testing::HasSubstr;

/// The program in a session where the application may run, too.
class LabelProgramApplicationTest : public LabelProgramFixture {
protected:
    LabelProgramApplicationTest() {
        m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
    }
    void TearDown() override {
        m_application.reset();
        QDBusConnection::disconnectFromBus(kName);
        LabelProgramFixture::TearDown();
    }

    void startTheApplication() { m_application = std::make_unique<FakeApplication>(m_connection); }
    [[nodiscard]] bool hasOwnStreams(int count) {
        return spinUntil([&] { return m_binance.openStreams() == count; });
    }

    inline static const QString kName = QStringLiteral("application");
    PrivateBus m_bus;
    QDBusConnection m_connection = QDBusConnection::connectToBus(m_bus.address(), kName);
    std::unique_ptr<FakeApplication> m_application;
};

TEST_F(LabelProgramApplicationTest, onceAsksTheApplicationAlone) {
    startTheApplication();
    run({QStringLiteral("--once")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(m_output, "BTC 101.00\n");
    EXPECT_EQ(m_binance.streamsAccepted(), 0);
}

TEST_F(LabelProgramApplicationTest, onceWaitsForTheApplicationsPrice) {
    LabelReport beginning = pricedReport("");
    beginning.label.text = "BTC";
    beginning.label.quote.freshness = PriceFreshness::none;
    beginning.isStarted = false;
    startTheApplication();
    m_application->source.set(beginning);
    run({QStringLiteral("--once")});
    // Told at its start and when it was set, and asked by the program.
    ASSERT_TRUE(spinUntil([&] { return m_application->source.reads() > 2; }));
    m_application->source.set(pricedReport("102.00"));
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(m_output, "BTC 102.00\n");
}

TEST_F(LabelProgramApplicationTest, followsTheApplication) {
    startTheApplication();
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 101.00\n"));
    m_application->source.set(pricedReport("102.00"));
    EXPECT_TRUE(printsLine("BTC 102.00\n"));
    EXPECT_EQ(m_binance.streamsAccepted(), 0);
}

TEST_F(LabelProgramApplicationTest, wordsWhatTheApplicationTells) {
    startTheApplication();
    run({QStringLiteral("--follow"), QStringLiteral("--template={price:.1} {symbol}")});
    ASSERT_TRUE(printsLine("101.0 BTC\n"));
    EXPECT_EQ(m_binance.streamsAccepted(), 0);
}

TEST_F(LabelProgramApplicationTest, asksTheExchangeItselfForOtherCoins) {
    startTheApplication();
    run({QStringLiteral("--symbol=ETH")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, ::testing::StartsWith("ETH "));
    EXPECT_FALSE(m_binance.requests().empty());
}

TEST_F(LabelProgramApplicationTest, goesOnByItselfWhenTheApplicationQuits) {
    startTheApplication();
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 101.00\n"));
    m_application.reset();
    EXPECT_TRUE(printsLine("BTC 67,"));
    EXPECT_TRUE(hasOwnStreams(1));
    // No line without a price in between.
    EXPECT_EQ(m_output.find("BTC\n"), std::string::npos);
}

TEST_F(LabelProgramApplicationTest, hidesTheNumbersByItselfWhenTheApplicationQuits) {
    std::filesystem::create_directories(m_folder.path() / "Quillbar");
    std::ofstream(m_folder.path() / "Quillbar" / "preferences.json")
        << R"({"schemaVersion":1,"label":{"discreet":true}})";
    startTheApplication();
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 101.00\n"));
    m_application.reset();
    EXPECT_TRUE(printsLine("Quillbar\n"));
    EXPECT_TRUE(hasOwnStreams(1));
    EXPECT_EQ(m_output.find("67,"), std::string::npos);
}

TEST_F(LabelProgramApplicationTest, leavesTheConnectingToAnApplicationThatStarts) {
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 67,"));
    ASSERT_TRUE(hasOwnStreams(1));
    startTheApplication();
    EXPECT_TRUE(printsLine("BTC 101.00\n"));
    EXPECT_TRUE(hasOwnStreams(0));
    EXPECT_EQ(m_label.state(), QProcess::Running);
}

TEST_F(LabelProgramApplicationTest, connectsByItselfWhereTheBusHangs) {
    const auto daemon =
        m_connection.interface()->servicePid(QStringLiteral("org.freedesktop.DBus"));
    ASSERT_EQ(::kill(static_cast<pid_t>(daemon.value()), SIGSTOP), 0);
    run({QStringLiteral("--once")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, HasSubstr("BTC 67,"));
}

TEST_F(LabelProgramApplicationTest, endsOnASignalWhileItFollowsTheApplication) {
    startTheApplication();
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 101.00\n"));
    send(SIGTERM);
    EXPECT_EQ(exitStatus(), 0);
}

}  // namespace

}  // namespace quillbar
