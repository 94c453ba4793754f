// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/fakehost/FakeTrayHost.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QUuid>

#include <gtest/gtest.h>

#include <utility>

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

void collectIds(const MenuLayout& layout, QList<int>& ids) {
    ids.append(layout.id);
    for (const QDBusVariant& child : layout.children) {
        collectIds(qdbus_cast<MenuLayout>(child.variant()), ids);
    }
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
    listen(kMenu,
           QStringLiteral("ItemsPropertiesUpdated"),
           SLOT(itemsPropertiesUpdated(QDBusMessage)));
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

void FakeTrayHost::readMenu() {
    const QStringList ofLayout{QStringLiteral("type"), QStringLiteral("children-display")};
    const QDBusMessage layout = callMenu(QStringLiteral("GetLayout"), {0, -1, ofLayout});
    QList<int> ids;
    collectIds(qdbus_cast<MenuLayout>(layout.arguments().value(1)), ids);
    shownMenu.removeIf([&ids](const auto& entry) { return !ids.contains(entry.key()); });
    ids.removeIf([this](int id) { return shownMenu.contains(id); });
    // Without any id, it would be a question about all of them.
    if (ids.isEmpty()) {
        return;
    }
    const QDBusMessage unseen =
        callMenu(QStringLiteral("GetGroupProperties"), {QVariant::fromValue(ids), QStringList()});
    for (const auto& entry : qdbus_cast<QList<MenuProperties>>(unseen.arguments().value(0))) {
        shownMenu.insert(entry.id, entry.properties);
    }
}

int FakeTrayHost::shownId(const QString& label) const {
    for (auto entry = shownMenu.begin(); entry != shownMenu.end(); ++entry) {
        if (entry->value(QStringLiteral("label")) == label) {
            return entry.key();
        }
    }
    return -1;
}

void FakeTrayHost::RegisterStatusNotifierItem(const QString& service) {
    registered << service;
    m_item = service;
    if (const auto call = std::exchange(onRegistration, nullptr)) {
        call();
    }
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

void FakeTrayHost::itemsPropertiesUpdated(const QDBusMessage& signal) {
    EXPECT_EQ(signal.signature(), QStringLiteral("a(ia{sv})a(ias)"));
    QMap<int, QStringList> changes;
    const QVariantList arguments = signal.arguments();
    for (const auto& updated : qdbus_cast<QList<MenuProperties>>(arguments.value(0))) {
        changes[updated.id] += updated.properties.keys();
        if (shownMenu.contains(updated.id)) {
            shownMenu[updated.id].insert(updated.properties);
        }
    }
    for (const auto& removed : qdbus_cast<QList<MenuPropertyNames>>(arguments.value(1))) {
        changes[removed.id] += removed.names;
        if (shownMenu.contains(removed.id)) {
            shownMenu[removed.id].removeIf([&removed](const auto& property) {
                return removed.names.contains(property.key());
            });
        }
    }
    propertyChanges << changes;
}

QDBusMessage FakeTrayHost::call(const QString& path,
                                const QString& interface,
                                const QString& method,
                                const QVariantList& arguments) {
    QDBusMessage question = QDBusMessage::createMethodCall(m_item, path, interface, method);
    question.setArguments(arguments);
    const QDBusPendingCallWatcher answer(m_bus.asyncCall(question));
    // The answer is known as soon as it comes, but signals that came before it are delivered only
    // by the event loop. `finished` stands behind them there.
    bool isDelivered = false;
    QObject::connect(
        &answer, &QDBusPendingCallWatcher::finished, &answer, [&] { isDelivered = true; });
    EXPECT_TRUE(spinUntil([&] { return isDelivered; }));
    return answer.reply();
}

}  // namespace quillbar
