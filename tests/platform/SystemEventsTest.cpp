// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SystemEvents.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillbar {

namespace {

/// A system bus of the tests' own, with a logind and a NetworkManager that send what they are told.
class SystemEventsTest : public ::testing::Test {
protected:
    // Qt connects to the system bus once per process, so one serves all tests and goes with the
    // process.
    static void SetUpTestSuite() {
        if (systemBus != nullptr) {
            return;
        }
        systemBus = new PrivateBus;
        const QString address = systemBus->address();
        ASSERT_FALSE(address.isEmpty());
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8().constData(), 1);
        QDBusConnection logind = QDBusConnection::connectToBus(address, kLogind);
        ASSERT_TRUE(logind.registerService(QStringLiteral("org.freedesktop.login1")));
        ASSERT_TRUE(logind.registerService(QStringLiteral("org.freedesktop.NetworkManager")));
    }

    static void prepareForSleep(bool isGoingToSleep) {
        QDBusMessage signal =
            QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
                                       QStringLiteral("org.freedesktop.login1.Manager"),
                                       QStringLiteral("PrepareForSleep"));
        signal << isGoingToSleep;
        QDBusConnection(kLogind).send(signal);
    }

    static void networkState(uint state) {
        QDBusMessage signal =
            QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/NetworkManager"),
                                       QStringLiteral("org.freedesktop.NetworkManager"),
                                       QStringLiteral("StateChanged"));
        signal << state;
        QDBusConnection(kLogind).send(signal);
    }

    // As NetworkManager numbers them.
    static constexpr uint kDisconnected = 20;
    static constexpr uint kConnecting = 40;
    static constexpr uint kConnectedToSite = 60;
    static constexpr uint kConnectedToAll = 70;

    inline static const QString kLogind = QStringLiteral("logind");
    inline static PrivateBus* systemBus = nullptr;
};

TEST_F(SystemEventsTest, tellOfAMachineThatWokeUpOnce) {
    int resumed = 0;
    const SystemEvents events([&resumed] { ++resumed; });
    // The notice of going to sleep arrives first and must not count.
    prepareForSleep(true);
    prepareForSleep(false);
    EXPECT_TRUE(spinUntil([&resumed] { return resumed > 0; }));
    EXPECT_EQ(resumed, 1);
}

TEST_F(SystemEventsTest, tellOfEveryWakeUp) {
    int resumed = 0;
    const SystemEvents events([&resumed] { ++resumed; });
    for (int night = 0; night < 3; ++night) {
        prepareForSleep(true);
        prepareForSleep(false);
    }
    EXPECT_TRUE(spinUntil([&resumed] { return resumed == 3; }));
}

TEST_F(SystemEventsTest, tellOfANetworkThatComesBackOnce) {
    int resumed = 0;
    const SystemEvents events([&resumed] { ++resumed; });
    for (const uint state : {kDisconnected, kConnecting, kConnectedToSite, kConnectedToAll}) {
        networkState(state);
    }
    EXPECT_TRUE(spinUntil([&resumed] { return resumed > 0; }));
    // The notice of a wake-up comes after everything that the network has told.
    prepareForSleep(false);
    EXPECT_TRUE(spinUntil([&resumed] { return resumed > 1; }));
    EXPECT_EQ(resumed, 2);
}

TEST_F(SystemEventsTest, tellOfEveryReturnOfTheNetwork) {
    int resumed = 0;
    const SystemEvents events([&resumed] { ++resumed; });
    for (int outage = 0; outage < 3; ++outage) {
        networkState(kDisconnected);
        networkState(kConnectedToAll);
    }
    EXPECT_TRUE(spinUntil([&resumed] { return resumed == 3; }));
}

TEST_F(SystemEventsTest, areSilentOnceDestroyed) {
    int forgotten = 0;
    int resumed = 0;
    {
        const SystemEvents events([&forgotten] { ++forgotten; });
    }
    const SystemEvents events([&resumed] { ++resumed; });
    prepareForSleep(false);
    EXPECT_TRUE(spinUntil([&resumed] { return resumed == 1; }));
    EXPECT_EQ(forgotten, 0);
}

}  // namespace

}  // namespace quillbar
