// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/TrayHost.h"

#include "benchmarks/desktop/Moments.h"
#include "benchmarks/desktop/Roles.h"

#include <QCoreApplication>
#include <QDBusMessage>

namespace quillbar::benchmarks {

namespace {

const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
// Near the right end of a bar at the bottom of a screen of 1280 by 900.
constexpr int kClickX = 1200;
constexpr int kClickY = 890;

}  // namespace

TrayHost::TrayHost()
    : m_bus(QDBusConnection::sessionBus()) {
    m_bus.registerObject(
        QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportScriptableSlots);
    m_bus.connect(QString(),
                  kItemPath,
                  kItem,
                  QStringLiteral("XAyatanaNewLabel"),
                  this,
                  SLOT(newLabel(QString, QString)));
    m_isWatcher = m_bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

void TrayHost::click() {
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_item, kItemPath, kItem, QStringLiteral("Activate"));
    message.setArguments({kClickX, kClickY});
    sayMoment("clicked");
    m_bus.send(message);
}

void TrayHost::RegisterStatusNotifierItem(const QString& /*service*/) {
    m_item = message().service();
    sayMoment("registered");
}

void TrayHost::newLabel(const QString& label, const QString& /*guide*/) {
    sayMoment("label", label.toStdString());
}

int runTrayHost(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    TrayHost host;
    if (!host.isWatcher()) {
        return 1;
    }
    onLines([&host](std::string_view line) {
        if (line == "click") {
            host.click();
        }
    });
    sayMoment("ready");
    return QCoreApplication::exec();
}

}  // namespace quillbar::benchmarks
