// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DBusArguments.h"
#include "fuzz/FuzzTarget.h"
#include "Quillbar/instance/ApplicationAdaptor.h"
#include "Quillbar/instance/LabelAdaptor.h"
#include "Quillbar/tray/DBusMenu.h"
#include "Quillbar/tray/StatusNotifierItem.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusServer>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace quillbar {

namespace {

const QString kApplicationPath = QStringLiteral("/io/github/quillbar/Quillbar");
constexpr const char* kApplication = "org.freedesktop.Application";
constexpr const char* kItem = "org.kde.StatusNotifierItem";
constexpr const char* kMenu = "com.canonical.dbusmenu";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";

/// A method, and its arguments as `DBusArguments` spells them.
struct Method {
    const QString& path;
    const char* interface;
    const char* name;
    const char* arguments;
};

const std::vector<Method>& methods() {
    static const std::vector<Method> all{
        {DBusMenu::kPath, kMenu, "GetLayout", "iiS"},
        {DBusMenu::kPath, kMenu, "GetGroupProperties", "IS"},
        {DBusMenu::kPath, kMenu, "GetProperty", "is"},
        {DBusMenu::kPath, kMenu, "Event", "isvu"},
        {DBusMenu::kPath, kMenu, "EventGroup", "E"},
        {DBusMenu::kPath, kMenu, "AboutToShow", "i"},
        {DBusMenu::kPath, kMenu, "AboutToShowGroup", "I"},
        {DBusMenu::kPath, kProperties, "Get", "ss"},
        {DBusMenu::kPath, kProperties, "Set", "ssv"},
        {DBusMenu::kPath, kProperties, "GetAll", "s"},
        {StatusNotifierItem::kPath, kItem, "Activate", "ii"},
        {StatusNotifierItem::kPath, kItem, "ContextMenu", "ii"},
        {StatusNotifierItem::kPath, kItem, "SecondaryActivate", "ii"},
        {StatusNotifierItem::kPath, kItem, "Scroll", "is"},
        {StatusNotifierItem::kPath, kItem, "ProvideXdgActivationToken", "s"},
        {StatusNotifierItem::kPath, kItem, "XAyatanaSecondaryActivate", "u"},
        {StatusNotifierItem::kPath, kProperties, "Get", "ss"},
        {StatusNotifierItem::kPath, kProperties, "Set", "ssv"},
        {StatusNotifierItem::kPath, kProperties, "GetAll", "s"},
        {kApplicationPath, kApplication, "Activate", "M"},
        {kApplicationPath, kApplication, "Open", "SM"},
        {kApplicationPath, kApplication, "ActivateAction", "sVM"},
        {kApplicationPath, "io.github.quillbar.Quillbar.Label", "Read", ""},
        {kApplicationPath, kProperties, "GetAll", "s"},
        {kApplicationPath, "org.freedesktop.DBus.Introspectable", "Introspect", ""},
        {kApplicationPath, "org.freedesktop.DBus.Peer", "Ping", ""},
    };
    return all;
}

/// All that the application exports, on a connection without a bus between the two ends.
class Exported {
public:
    Exported()
        : m_menu({.shown = [] {}, .clicked = [](int id) { requireClickable(id); }})
        , m_item(DBusMenu::kPath,
                 {.activate = [](QPoint) {},
                  .secondaryActivate = [](std::optional<QPoint>) {},
                  .contextMenu = [](QPoint) {},
                  .scroll = [](int places) { require(places == 1 || places == -1, "one place"); },
                  .activationToken = [](const QString&) {}}) {
        // Both are owned by the object.
        new ApplicationAdaptor(&m_application, [](ApplicationAction, const ActivationTokens&) {});
        (new LabelAdaptor(&m_application))->setReader([] {
            return QVariantMap{{QStringLiteral("text"), QStringLiteral("BTC")}};
        });
        m_menu.setEntries(entries());
        m_item.setLabel(QStringLiteral("BTC"),
                        QStringLiteral("BTC"),
                        StatusNotifierItem::Announcement::omitted);
        m_item.setPictures([] { return StatusImages{}; });
        QObject::connect(&m_server,
                         &QDBusServer::newConnection,
                         [this](const QDBusConnection& connection) { exportAll(connection); });
        m_client = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToPeer(m_server.address(), QStringLiteral("host")));
        require(m_client->isConnected(), "the two ends are connected");
        require(spinUntil([this] { return m_isExported; }), "everything is exported");
    }

    [[nodiscard]] QDBusConnection& client() { return *m_client; }

private:
    static std::vector<MenuEntry> entries() {
        using Kind = MenuEntry::Kind;
        return {{.id = 1, .label = QStringLiteral("quit")},
                {.id = 2, .kind = Kind::separator},
                {.id = 3,
                 .label = QStringLiteral("more"),
                 .kind = Kind::submenu,
                 .children = {{.id = 4, .label = QStringLiteral("on"), .isOn = true}}},
                {.id = 5, .label = QStringLiteral("grey"), .isEnabled = false}};
    }
    static void requireClickable(int id) {
        require(id == 1 || id == 4, "only an action that is enabled is clicked");
    }

    void exportAll(QDBusConnection connection) {
        const auto scriptable = QDBusConnection::ExportAllProperties
                                | QDBusConnection::ExportScriptableSlots
                                | QDBusConnection::ExportScriptableSignals;
        m_isExported = connection.registerObject(DBusMenu::kPath, &m_menu, scriptable)
                       && connection.registerObject(StatusNotifierItem::kPath, &m_item, scriptable)
                       && connection.registerObject(
                           kApplicationPath, &m_application, QDBusConnection::ExportAdaptors);
    }

    DBusMenu m_menu;
    StatusNotifierItem m_item;
    QObject m_application;
    QDBusServer m_server;
    std::unique_ptr<QDBusConnection> m_client;
    bool m_isExported = false;
};

Exported& exported() {
    static int count = 1;
    static std::string name = "fuzzer";
    static std::array<char*, 2> arguments{name.data(), nullptr};
    // Never destroyed: Qt's thread for D-Bus outlives the statics.
    static Exported* only = nullptr;
    if (only == nullptr) {
        new QCoreApplication(count, arguments.data());
        registerMenuMessages();
        qDBusRegisterMetaType<QList<MenuEvent>>();
        only = new Exported;
    }
    return *only;
}

/// The next call: of a method of ours, with the arguments that it has, or with any.
QDBusMessage nextCall(DBusArguments& input) {
    const Method& method = methods()[input.number() % methods().size()];
    QDBusMessage call = QDBusMessage::createMethodCall(QString(),
                                                       method.path,
                                                       QString::fromLatin1(method.interface),
                                                       QString::fromLatin1(method.name));
    constexpr unsigned kOneInFour = 4;
    call.setArguments(input.number() % kOneInFour == 0 ? input.any() : input.of(method.arguments));
    return call;
}

}  // namespace

/// The input is a row of calls.
void fuzz(std::string_view input) {
    constexpr int kMostCalls = 8;
    Exported& application = exported();
    DBusArguments arguments(input);
    std::vector<std::unique_ptr<QDBusPendingCallWatcher>> calls;
    std::size_t answered = 0;
    for (int each = 0; each < kMostCalls && !arguments.isAtEnd(); ++each) {
        calls.push_back(std::make_unique<QDBusPendingCallWatcher>(
            application.client().asyncCall(nextCall(arguments))));
        QObject::connect(
            calls.back().get(), &QDBusPendingCallWatcher::finished, [&answered] { ++answered; });
    }
    require(spinUntil([&] { return answered == calls.size(); }), "every call is answered");
    require(application.client().isConnected(), "nobody is thrown out");
}

}  // namespace quillbar
