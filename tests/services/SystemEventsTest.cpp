// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SystemEvents.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>

namespace quillbar {

namespace {

/// A system bus of the tests' own, with a logind that sends what it is told.
class SystemEventsTest : public ::testing::Test {
protected:
    // Qt connects to the system bus once per process, so one serves all tests and goes with the
    // process.
    static void SetUpTestSuite() {
        if (s_bus != nullptr) {
            return;
        }
        s_bus = new QProcess;
        s_bus->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        s_bus->start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"),
                      QStringLiteral("--nofork"),
                      QStringLiteral("--print-address")});
        ASSERT_TRUE(s_bus->waitForReadyRead());
        const QString address = QString::fromUtf8(s_bus->readLine()).trimmed();
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
    inline static QProcess* s_bus = nullptr;
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
