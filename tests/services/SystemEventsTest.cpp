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

/// A system bus of the tests' own, with a logind that sends what it is told.
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
    }

    static void prepareForSleep(bool isGoingToSleep) {
        QDBusMessage signal =
            QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
                                       QStringLiteral("org.freedesktop.login1.Manager"),
                                       QStringLiteral("PrepareForSleep"));
        signal << isGoingToSleep;
        QDBusConnection(kLogind).send(signal);
    }

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
