// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/Desktop.h"

#include "tests/desktop/Waiting.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QTcpSocket>

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

const QString kConnection = QStringLiteral("desktop-test");
const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

constexpr const char* kSettingsService = "/usr/share/dbus-1/services/org.xfce.Xfconf.service";

const QString kLeftMonitor = QStringLiteral("left");
const QString kRightMonitor = QStringLiteral("right");

/// One bar across the top: a list of windows, nothing in the middle, the status area.
constexpr const char* kBarSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="span-monitors" type="bool" value="true"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist"/>
    <property name="plugin-2" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-3" type="string" value="systray">
      <property name="square-icons" type="bool" value="false"/>
    </property>
  </property>
</channel>
)";

void write(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

// The test's own environment, with what a session of its own has instead of it.
QProcessEnvironment sessionEnvironment(const QString& home) {
    QProcessEnvironment session = QProcessEnvironment::systemEnvironment();
    for (const QString& name : session.keys()) {
        if (name == QStringLiteral("QT_QPA_PLATFORM") || name == QStringLiteral("LC_ALL")
            || (name.startsWith(QStringLiteral("XDG_"))
                && name.endsWith(QStringLiteral("_HOME")))) {
            session.remove(name);
        }
    }
    session.insert(QStringLiteral("HOME"), home);
    session.insert(QStringLiteral("XDG_RUNTIME_DIR"), home);
    session.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("XFCE"));
    // Where the programs of the desktop keep their files.
    session.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/share"));
    session.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    session.insert(QStringLiteral("LANG"), QStringLiteral("zh_CN.UTF-8"));
    session.insert(QStringLiteral("TZ"), QStringLiteral("Asia/Shanghai"));
    session.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    // libxkbcommon 1.5 copies a text of known length that no zero ends, as it may; the strict check
    // takes that for an overflow.
    const QString options = QStringLiteral("ASAN_OPTIONS");
    if (session.contains(options)) {
        session.insert(options, session.value(options) + QStringLiteral(":strict_string_checks=0"));
    }
    return session;
}

}  // namespace

Desktop::Desktop()
    : m_environment(sessionEnvironment(QString::fromStdString(m_folder.path().string()))) {
    write(m_folder.path() / ".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
          kBarSettings);
    startServer();
    startBus();
    startWindowManager();
    startBar();
    startExchange();
}

Desktop::~Desktop() {
    QDBusConnection::disconnectFromBus(kConnection);
}

QProcessEnvironment Desktop::environment() const {
    return m_environment;
}

void Desktop::startServer() {
    // The server picks a number that nobody uses and tells it.
    m_server.emplace(QStringLiteral("Xvfb"),
                     QStringList{QStringLiteral("-displayfd"),
                                 QStringLiteral("1"),
                                 QStringLiteral("-screen"),
                                 QStringLiteral("0"),
                                 QStringLiteral("1280x900x24"),
                                 QStringLiteral("-dpi"),
                                 QStringLiteral("96"),
                                 QStringLiteral("-nolisten"),
                                 QStringLiteral("tcp"),
                                 QStringLiteral("-noreset")},
                     m_environment);
    const QString number = m_server->readLine();
    if (number.isEmpty()) {
        throw std::runtime_error("Xvfb does not start");
    }
    const QString display = QStringLiteral(":") + number;
    m_environment.insert(QStringLiteral("DISPLAY"), display);
    m_screen.emplace(display);
}

void Desktop::startBus() {
    // This bus starts the bar's settings and no other of the installed services.
    const std::filesystem::path services = m_folder.path() / "services";
    std::filesystem::create_directory(services);
    std::filesystem::copy(kSettingsService, services);
    const std::filesystem::path configuration = m_folder.path() / "bus.conf";
    write(configuration,
          fmt::format("<busconfig><include>{}</include><servicedir>{}</servicedir></busconfig>",
                      QUILLBAR_TEST_BUS_FILE,
                      services.string()));
    m_busDaemon.emplace(QStringLiteral("dbus-daemon"),
                        QStringList{QStringLiteral("--config-file=")
                                        + QString::fromStdString(configuration.string()),
                                    QStringLiteral("--nofork"),
                                    QStringLiteral("--print-address")},
                        m_environment);
    const QString address = m_busDaemon->readLine();
    m_bus = QDBusConnection::connectToBus(address, kConnection);
    if (!m_bus.isConnected()) {
        throw std::runtime_error("dbus-daemon does not start");
    }
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
}

void Desktop::startWindowManager() {
    m_windowManager.emplace(
        QStringLiteral("xfwm4"), QStringList{QStringLiteral("--compositor=off")}, m_environment);
    if (!eventually([this] { return m_screen->hasWindowManager(); })) {
        throw std::runtime_error("xfwm4 does not start");
    }
}

void Desktop::startBar() {
    m_bar.emplace(QStringLiteral("xfce4-panel"),
                  QStringList{QStringLiteral("--disable-wm-check")},
                  m_environment);
}

void Desktop::killBar() {
    m_bar.reset();
}

void Desktop::splitIntoMonitors() {
    // The server has a single output, which only one of the two can name.
    configureMonitors({QStringLiteral("--setmonitor"),
                       kLeftMonitor,
                       QStringLiteral("640/169x900/238+0+0"),
                       QStringLiteral("screen")});
    configureMonitors({QStringLiteral("--setmonitor"),
                       kRightMonitor,
                       QStringLiteral("640/169x900/238+640+0"),
                       QStringLiteral("none")});
}

void Desktop::unplugRightMonitor() {
    configureMonitors({QStringLiteral("--delmonitor"), kRightMonitor});
}

void Desktop::joinMonitors() {
    configureMonitors({QStringLiteral("--delmonitor"), kLeftMonitor});
}

void Desktop::configureMonitors(const QStringList& arguments) const {
    ChildProcess tool(QStringLiteral("xrandr"), arguments, m_environment);
    if (tool.waitForEnd() != 0) {
        throw std::runtime_error("xrandr cannot change the monitors");
    }
}

QStringList Desktop::items() const {
    const QStringList registered =
        property(kWatcher, kWatcherPath, kWatcher, QStringLiteral("RegisteredStatusNotifierItems"))
            .toStringList();
    QStringList services;
    for (const QString& item : registered) {
        services.append(item.left(item.indexOf(u'/')));
    }
    return services;
}

std::optional<QRect> Desktop::statusArea() const {
    for (const Screen::Window& window : m_screen->windowsOf(processOf(kWatcher))) {
        // It is there, one pixel wide, without an item too.
        if (window.geometry.width() > 1) {
            return window.geometry;
        }
    }
    return std::nullopt;
}

void Desktop::startExchange() {
    const QString authority = QString::fromStdString((m_folder.path() / "authority.pem").string());
    m_exchange.emplace(
        QStringLiteral(QUILLBAR_SIMULATOR_PROGRAM),
        QStringList{
            QStringLiteral("--ca-file"), authority, QStringLiteral("--port"), m_exchangePort},
        m_environment,
        ChildProcess::Complaints::shown);
    const std::vector<std::pair<QString, QString>> services{
        {QStringLiteral("rest "), QStringLiteral("QUILLBAR_REST_ENDPOINTS")},
        {QStringLiteral("stream "), QStringLiteral("QUILLBAR_STREAM_ENDPOINTS")},
        {QStringLiteral("market-caps "), QStringLiteral("QUILLBAR_MARKETCAP_ENDPOINT")},
        {QStringLiteral("icons "), QStringLiteral("QUILLBAR_ICON_ENDPOINT")},
        {QStringLiteral("ca-file "), QStringLiteral("QUILLBAR_CA_FILE")},
    };
    for (QString line; line != QStringLiteral("ready");) {
        line = m_exchange->readLine();
        if (line.isEmpty()) {
            throw std::runtime_error("the simulator does not start");
        }
        const QString control = QStringLiteral("control ");
        if (line.startsWith(control)) {
            m_control = QUrl(line.mid(control.size()));
        }
        for (const auto& [word, variable] : services) {
            if (line.startsWith(word)) {
                m_environment.insert(variable, line.mid(word.size()));
            }
        }
    }
    const QUrl rest(m_environment.value(QStringLiteral("QUILLBAR_REST_ENDPOINTS")));
    m_exchangePort = QString::number(rest.port());
}

void Desktop::killExchange() {
    m_exchange.reset();
}

void Desktop::moveMarket(int steps) const {
    QTcpSocket socket;
    socket.connectToHost(m_control.host(), static_cast<quint16>(m_control.port()));
    socket.write(QStringLiteral("GET /tick?steps=%1 HTTP/1.1\r\nHost: control\r\n"
                                "Connection: close\r\n\r\n")
                     .arg(steps)
                     .toUtf8());
    if (!eventually([&socket] { return socket.state() == QAbstractSocket::UnconnectedState; })) {
        throw std::runtime_error("the simulator does not answer");
    }
}

void Desktop::become(Shade shade) const {
    QDBusMessage news =
        QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                   QStringLiteral("org.freedesktop.portal.Settings"),
                                   QStringLiteral("SettingChanged"));
    news << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
         << QVariant::fromValue(QDBusVariant(static_cast<uint>(shade)));
    m_bus.send(news);
}

QVariant Desktop::call(const QString& service,
                       const QString& path,
                       const QString& interface,
                       const QString& method,
                       const QVariantList& arguments) const {
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, method);
    question.setArguments(arguments);
    const QDBusMessage answer = m_bus.call(question);
    return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()
               ? answer.arguments().constFirst()
               : QVariant();
}

QVariant Desktop::property(const QString& service,
                           const QString& path,
                           const QString& interface,
                           const QString& name) const {
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments({interface, name});
    const QDBusReply<QDBusVariant> answer = m_bus.call(question);
    return answer.isValid() ? answer.value().variant() : QVariant();
}

qint64 Desktop::processOf(const QString& service) const {
    const QDBusReply<uint> process = m_bus.interface()->servicePid(service);
    return process.isValid() ? process.value() : 0;
}

}  // namespace quillbar
