// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/StatusItem.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/support/CapturedLog.h"
#include "tests/tray/fakehost/FakeTrayHost.h"

#include <QDBusConnection>
#include <QPoint>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// A status item on a bus of its own, with a pointer, a tray of the older kind and a time that the
/// test moves.
struct StatusItemFixture : ::testing::Test {
    StatusItemFixture();
    ~StatusItemFixture() override;
    StatusItemFixture(const StatusItemFixture&) = delete;
    StatusItemFixture& operator=(const StatusItemFixture&) = delete;
    StatusItemFixture(StatusItemFixture&&) = delete;
    StatusItemFixture& operator=(StatusItemFixture&&) = delete;

    /// Makes the item, on this connection, and shows the face of bitcoin.
    void start(const std::optional<QDBusConnection>& connection = std::nullopt);
    /// Makes the item with a host there already, whose process has this name, and waits until it is
    /// registered.
    void startAt(const std::string& processName);
    /// Runs the loop until the host has seen so many registrations.
    [[nodiscard]] bool seesRegistrations(const FakeTrayHost& observer, qsizetype count);
    /// Runs the loop until all that was sent to the host before has arrived there.
    void settle();
    /// Lets time pass; what wakes runs.
    void pass(Seconds span) { time.advance(span); }

    /// "BTC 67,234.50 ▲ 1.23%" unless told otherwise.
    static LabelFace face(const QString& text = QStringLiteral("BTC 67,234.50 ▲ 1.23%"));

    [[nodiscard]] QSystemTrayIcon* olderIcon() const;

    ManualExecutor executor;
    ManualTime time{executor};
    CapturedLog log;
    PrivateBus daemon;
    std::string hostProcess;
    std::vector<uint> askedProcesses;
    bool hasOlderTray = false;
    int olderTrayQuestions = 0;
    QPoint pointer{1000, 10};
    PointerPosition pointerPosition = PointerPosition::current;
    double pixelRatio = 1;
    bool hasThemeIcon = true;
    bool canPopUpMenus = true;
    std::vector<std::pair<std::optional<QPoint>, ActivationSource>> activations;
    std::vector<int> chosen;
    std::vector<std::optional<QPoint>> menuAnchors;
    /// Called when the menu is about to be shown.
    std::function<void()> onMenuShown = [] {};
    std::vector<QString> tokens;
    std::vector<int> scrolled;
    int noTray = 0;
    int tray = 0;
    int offered = 0;
    QString connectionName;
    std::optional<QDBusConnection> bus;
    std::optional<FakeTrayHost> host;
    std::optional<StatusItem> item;
};

}  // namespace quillbar
