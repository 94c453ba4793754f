// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QUuid>

namespace quillbar {

StatusItemFixture::StatusItemFixture()
    : connectionName(QUuid::createUuid().toString())
    , bus(QDBusConnection::connectToBus(daemon.address(), connectionName)) {
    EXPECT_TRUE(bus->isConnected());
    host.emplace(daemon.address());
}

StatusItemFixture::~StatusItemFixture() {
    item.reset();
    host.reset();
    bus.reset();
    QDBusConnection::disconnectFromBus(connectionName);
    spinUntilIdle();
}

void StatusItemFixture::start(const std::optional<QDBusConnection>& connection) {
    item.emplace(
        StatusItemEnvironment{
            .bus = connection.value_or(*bus),
            .executor = executor,
            .sleeper = time.sleeper(),
            .hasOlderTray =
                [this] {
                    ++olderTrayQuestions;
                    return hasOlderTray;
                },
            .processName =
                [this](uint processId) {
                    askedProcesses.push_back(processId);
                    return hostProcess;
                },
            .pointer = [this] { return pointer; },
            .pointerPosition = pointerPosition,
            .logicalPosition =
                [this](QPoint reported) { return logicalPosition(reported, QPoint(), pixelRatio); },
            .isInBar = [](QPoint position) { return position.y() < 30; },
            .hasThemeIcon = [this](const QString& /*name*/) { return hasThemeIcon; },
            .canPopUpMenus = canPopUpMenus,
        },
        StatusItem::Handlers{
            .onActivate =
                [this](std::optional<QPoint> anchor, ActivationSource source) {
                    activations.emplace_back(anchor, source);
                },
            .onMenuShown = [this] { onMenuShown(); },
            .onMenu =
                [this](int id, std::optional<QPoint> anchor) {
                    chosen.push_back(id);
                    menuAnchors.push_back(anchor);
                },
            .onScroll = [this](int places) { scrolled.push_back(places); },
            .onActivationToken = [this](const QString& token) { tokens.push_back(token); },
            .onNoTray = [this] { ++noTray; },
            .onTray = [this] { ++tray; },
            .onOffered = [this] { ++offered; },
        });
    item->show(face());
    executor.run();
}

void StatusItemFixture::startAt(const std::string& processName) {
    hostProcess = processName;
    host->beWatcher();
    start();
    ASSERT_TRUE(seesRegistrations(*host, 1));
}

bool StatusItemFixture::seesRegistrations(const FakeTrayHost& observer, qsizetype count) {
    return spinUntil([&] {
        executor.run();
        return observer.registered.size() >= count;
    });
}

void StatusItemFixture::settle() {
    executor.run();
    // Messages keep their order, so the answer comes after what was sent before it.
    host->property(QStringLiteral("Status"));
    executor.run();
}

LabelFace StatusItemFixture::face(const QString& text) {
    LabelFace result;
    result.text = text;
    // Behind the coin and the price.
    result.change = text.section(u' ', 2);
    result.symbol = QStringLiteral("BTC");
    result.shortPrice = QStringLiteral("67.2k");
    result.shortChange = QStringLiteral("+1.2%");
    result.direction = LabelDirection::up;
    result.details = QStringLiteral("刚刚更新\n已连接");
    return result;
}

QSystemTrayIcon* StatusItemFixture::olderIcon() const {
    return item->findChild<QSystemTrayIcon*>();
}

}  // namespace quillbar
