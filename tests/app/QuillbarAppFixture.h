// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/window/PanelWindow.h"
#include "simulator/Simulator.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"
#include "tests/services/HeldSleeper.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tray/fakehost/FakeTrayHost.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QTimer>
#include <QUuid>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quillbar {

/// The application on a bus of its own, with an exchange of its own and a sleep that the test ends.
struct QuillbarAppFixture : ::testing::Test {
    /// What `statusAfter` returns.
    static constexpr int kQuit = 0;
    static constexpr int kDidNotQuit = 77;

    QuillbarAppFixture()
        : bus(QDBusConnection::connectToBus(daemon.address(), connectionName))
        , host(daemon.address()) {
        EXPECT_TRUE(bus.isConnected());
    }

    ~QuillbarAppFixture() override {
        app.reset();
        QDBusConnection::disconnectFromBus(connectionName);
        spinUntilIdle();
    }

    QuillbarAppFixture(const QuillbarAppFixture&) = delete;
    QuillbarAppFixture& operator=(const QuillbarAppFixture&) = delete;
    QuillbarAppFixture(QuillbarAppFixture&&) = delete;
    QuillbarAppFixture& operator=(QuillbarAppFixture&&) = delete;

    static std::string authorityFile() {
        static const TemporaryFolder folder;
        return (folder.path() / "authority.pem").string();
    }

    static void SetUpTestSuite() {
        const simulator::Simulator maker({.caFile = authorityFile(), .symbolCount = 1});
        ASSERT_EQ(trustAuthorities(authorityFile()), std::nullopt);
    }

    void start(const std::optional<QDBusConnection>& connection,
               QuillbarApp::WithoutTray withoutTray = QuillbarApp::WithoutTray::opensPanel) {
        app.emplace(connection,
                    ServiceEndpoints{.rest = {exchange.restBase()},
                                     .stream = {exchange.streamBase()},
                                     .marketCap = exchange.marketCapBase(),
                                     .icon = exchange.iconBase()},
                    folder.path(),
                    sleeper.sleeper());
        app->start(withoutTray);
    }

    /// With a tray that takes the item.
    void startInTray() {
        host.beWatcher();
        start(bus);
        ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    }

    /// Until the item has given up waiting for a tray.
    void startWithoutTray(const std::optional<QDBusConnection>& connection) {
        start(connection);
        ASSERT_TRUE(spinUntil([this] {
            endPatience();
            return panel() != nullptr;
        }));
    }

    /// Ends the wait for a tray; returns whether there was one.
    bool endPatience() {
        return sleeper.wake([](double span) { return span == StatusItem::kPatience.count(); }) > 0;
    }

    void choose(int id) {
        host.callMenu(QStringLiteral("Event"),
                      {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    /// Clicks the entry of the menu that has this label; the host's menu then shows what it was
    /// told.
    void choose(const char* label) {
        host.readMenu();
        const int id = host.shownId(QString::fromUtf8(label));
        ASSERT_GT(id, 0) << label;
        choose(id);
        host.readMenu();
    }

    /// Opens the menu.
    void openMenu() {
        host.callMenu(QStringLiteral("AboutToShow"), {DBusMenu::kRoot});
        host.readMenu();
    }

    [[nodiscard]] bool shows(const char* label) const {
        return host.shownId(QString::fromUtf8(label)) > 0;
    }

    /// Whether the menu's entry with this label is marked.
    [[nodiscard]] bool isOn(const char* label) const {
        EXPECT_TRUE(shows(label)) << label;
        return host.shownMenu.value(host.shownId(QString::fromUtf8(label)))
                   .value(QStringLiteral("toggle-state"))
               == 1;
    }

    /// Where the desktop looks for what it starts at login.
    [[nodiscard]] std::filesystem::path autostartEntry() const {
        return folder.path() / "configuration" / "autostart" / AutostartEntry::kFileName;
    }

    /// The panel while it is shown.
    [[nodiscard]] static PanelWindow* panel() {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (auto* const found = dynamic_cast<PanelWindow*>(window);
                found && found->isVisible()) {
                return found;
            }
        }
        return nullptr;
    }

    [[nodiscard]] static bool tells(Notice notice) {
        return named(*panel(), Notices::text(notice)) != nullptr;
    }

    /// Runs the application as its program does, from `act` on: 0 when it quits by itself.
    static int statusAfter(const std::function<void()>& act) {
        QTimer::singleShot(0, qApp, act);
        QTimer end;
        end.setSingleShot(true);
        QObject::connect(&end, &QTimer::timeout, [] { QCoreApplication::exit(kDidNotQuit); });
        end.start(std::chrono::seconds{20});
        return QCoreApplication::exec();
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment swaySocket{"SWAYSOCK", std::nullopt};
    CapturedLog log;
    TemporaryFolder folder;
    TemporaryEnvironment configuration{"XDG_CONFIG_HOME",
                                       (folder.path() / "configuration").string()};
    TemporaryEnvironment systemConfiguration{"XDG_CONFIG_DIRS",
                                             (folder.path() / "system").string()};
    HeldSleeper sleeper;
    PrivateBus daemon;
    QString connectionName = QUuid::createUuid().toString();
    QDBusConnection bus;
    FakeTrayHost host;
    simulator::Simulator exchange{{.caFile = authorityFile(), .symbolCount = 100}};
    std::optional<QuillbarApp> app;
};

}  // namespace quillbar
