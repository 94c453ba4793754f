// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/FakeTrayHost.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QUuid>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenu = QStringLiteral("com.canonical.dbusmenu");
const QString kMenuPath = QStringLiteral("/MenuBar");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

QVariant onlyArgument(const QDBusMessage& reply) {
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

}  // namespace

FakeTrayHost::FakeTrayHost(const QString& address)
    : m_name(QUuid::createUuid().toString())
    , m_bus(QDBusConnection::connectToBus(address, m_name)) {
    registerMenuMessages();
    m_bus.registerObject(
        QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportScriptableSlots);
    const auto listen = [this](const QString& interface, const QString& signal, const char* slot) {
        const QString path = interface == kItem ? kItemPath : kMenuPath;
        EXPECT_TRUE(m_bus.connect(QString(), path, interface, signal, this, slot));
    };
    listen(kItem, QStringLiteral("NewIcon"), SLOT(newIcon()));
    listen(kItem, QStringLiteral("NewToolTip"), SLOT(newTooltip()));
    listen(kItem, QStringLiteral("NewTitle"), SLOT(newTitle()));
    listen(kItem, QStringLiteral("XAyatanaNewLabel"), SLOT(newLabel(QString, QString)));
    listen(kMenu, QStringLiteral("LayoutUpdated"), SLOT(layoutUpdated(uint, int)));
}

FakeTrayHost::~FakeTrayHost() {
    QDBusConnection::disconnectFromBus(m_name);
}

void FakeTrayHost::beWatcher() {
    const auto reply =
        m_bus.interface()->registerService(kWatcher,
                                           QDBusConnectionInterface::ReplaceExistingService,
                                           QDBusConnectionInterface::AllowReplacement);
    EXPECT_EQ(reply.value(), QDBusConnectionInterface::ServiceRegistered);
}

void FakeTrayHost::resign() {
    m_bus.unregisterService(kWatcher);
}

QDBusMessage FakeTrayHost::callItem(const QString& method, const QVariantList& arguments) {
    return call(kItemPath, kItem, method, arguments);
}

QDBusMessage FakeTrayHost::callMenu(const QString& method, const QVariantList& arguments) {
    return call(kMenuPath, kMenu, method, arguments);
}

QVariant FakeTrayHost::property(const QString& name) {
    return onlyArgument(call(kItemPath, kProperties, QStringLiteral("Get"), {kItem, name}));
}

QVariant FakeTrayHost::menuProperty(const QString& name) {
    return onlyArgument(call(kMenuPath, kProperties, QStringLiteral("Get"), {kMenu, name}));
}

StatusImages FakeTrayHost::icon() {
    return qdbus_cast<StatusImages>(property(QStringLiteral("IconPixmap")));
}

StatusTooltip FakeTrayHost::tooltip() {
    return qdbus_cast<StatusTooltip>(property(QStringLiteral("ToolTip")));
}

void FakeTrayHost::RegisterStatusNotifierItem(const QString& service) {
    registered << service;
    m_item = service;
    if (refuses) {
        sendErrorReply(refusal, QStringLiteral("no room"));
    }
}

void FakeTrayHost::newLabel(const QString& label, const QString& /*guide*/) {
    signalled << QStringLiteral("XAyatanaNewLabel");
    labels << label;
}

void FakeTrayHost::layoutUpdated(uint revision, int /*parent*/) {
    revisions << revision;
}

QDBusMessage FakeTrayHost::call(const QString& path,
                                const QString& interface,
                                const QString& method,
                                const QVariantList& arguments) {
    QDBusMessage question = QDBusMessage::createMethodCall(m_item, path, interface, method);
    question.setArguments(arguments);
    const QDBusPendingCallWatcher answer(m_bus.asyncCall(question));
    EXPECT_TRUE(spinUntil([&answer] { return answer.isFinished(); }));
    return answer.reply();
}

}  // namespace quillbar
