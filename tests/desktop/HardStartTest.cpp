// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationNames.h"
#include "tests/desktop/DesktopFixture.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SilentSocket.h"
#include "tests/support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <gtest/gtest.h>

#include <filesystem>

namespace quillbar {

namespace {

const QString kBusAddress = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");
constexpr const char* kShow = "exec \"$0\" --show";

QString addressOf(const std::filesystem::path& path) {
    return QStringLiteral("unix:path=") + QString::fromStdString(path.string());
}

/// Starts where something is missing that a session has.
using HardStartTest = DesktopFixture;

TEST_F(HardStartTest, thePanelComesThoughTheSessionBusIsFrozen) {
    PrivateBus bus;
    bus.freeze();
    startInShell(kShow, kBusAddress, bus.address());
    EXPECT_TRUE(eventually([this] { return isPanelOpen(); }));
    EXPECT_EQ(terminateApplication(), 0);
}

TEST_F(HardStartTest, withoutATrayTheHeaderDragsThePanel) {
    desktop().killBar();
    startInShell(kShow, QStringLiteral("TZ"), QStringLiteral("UTC"));
    ASSERT_TRUE(eventually([this] { return isPanelOpen(); }));
    const QPoint step(-6, 8);
    bool hasFollowed = false;
    // At first the program still looks for a tray, and the header does nothing.
    EXPECT_TRUE(eventually([&] {
        const QPoint place = panelGeometry().topLeft();
        const QPoint header = place + QPoint(120, 20);
        screen().movePointer(header);
        screen().press();
        // Longer than it waits for the focus.
        pause();
        for (int steps = 1; steps <= 10; ++steps) {
            screen().movePointer(header + step * steps);
        }
        screen().release();
        pause();
        hasFollowed = isPanelOpen() && panelGeometry().topLeft() == place + step * 10;
        return hasFollowed || !isPanelOpen();
    }));
    EXPECT_TRUE(hasFollowed);
    EXPECT_EQ(terminateApplication(), 0);
    desktop().startBar();
}

TEST_F(HardStartTest, aSessionBusThatIsSlowOnceIsAskedAgain) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "bus";
    const auto readyPath = folder.path() / "ready";
    const QString address = addressOf(path);
    const PrivateBus bus(addressOf(readyPath));
    ASSERT_FALSE(bus.address().isEmpty());
    SilentSocket silent(path);
    startInShell(kShow, kBusAddress, address);
    ASSERT_TRUE(eventually([&silent] { return silent.hasClient(); }));
    // Who asks from here on is answered.
    std::filesystem::rename(readyPath, path);
    const QString name = QStringLiteral("late-bus");
    {
        const QDBusConnection connection = QDBusConnection::connectToBus(address, name);
        ASSERT_TRUE(connection.isConnected());
        EXPECT_TRUE(eventually([&connection] {
            return connection.interface()->isServiceRegistered(
                QString::fromLatin1(ApplicationNames::kBusName));
        }));
    }
    EXPECT_TRUE(eventually([this] { return isPanelOpen(); }));
    EXPECT_EQ(terminateApplication(), 0);
    QDBusConnection::disconnectFromBus(name);
}

TEST_F(HardStartTest, aDisplayThatIsNotThereIsAnExitStatusAndNoCrash) {
    startInShell(kShow, QStringLiteral("DISPLAY"), QStringLiteral(":4242"));
    EXPECT_EQ(endOfApplication(), 1);
}

TEST_F(HardStartTest, lowLimitsAreAnExitStatusAndNoCrash) {
    startInShell("ulimit -n 16; exec \"$0\" --show", kBusAddress, QString());
    EXPECT_EQ(endOfApplication(), 1);
}

}  // namespace

}  // namespace quillbar
