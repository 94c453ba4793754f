// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/TrayHost.h"

#include "benchmarks/desktop/Moments.h"
#include "benchmarks/desktop/Pointer.h"
#include "benchmarks/desktop/Roles.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QTimer>

#include <charconv>
#include <chrono>
#include <string>
#include <string_view>

namespace quillbar::benchmarks {

namespace {

const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
// Near the right end of a bar at the bottom of a screen of 1280 by 900.
constexpr int kClickX = 1200;
constexpr int kClickY = 890;

constexpr qint64 kTurnsASecond = 60;
constexpr qint64 kWheelSeconds = 5;
// Fewer than lead to the end of the longest board; the last way leads back to its beginning.
constexpr int kTurnsOneWay = 25;
constexpr std::chrono::milliseconds kWheelSpacing{1};

/// Turns the pointer's wheel evenly, down and up again.
class Wheel final {
public:
    explicit Wheel(Pointer& pointer)
        : m_pointer(pointer) {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(kWheelSpacing);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { catchUp(); });
    }

    void begin() {
        m_turns = 0;
        m_elapsed.start();
        m_timer.start();
        sayMoment("turning");
    }

private:
    void catchUp() {
        for (const qint64 due = m_elapsed.elapsed() * kTurnsASecond / 1000; m_turns < due;
             ++m_turns) {
            const bool isDownwards = m_turns / kTurnsOneWay % 2 == 0;
            m_pointer.turn(isDownwards ? Pointer::Turn::down : Pointer::Turn::up);
        }
        if (m_turns >= kTurnsASecond * kWheelSeconds) {
            m_timer.stop();
            sayMoment("turned", std::to_string(m_turns));
        }
    }

    Pointer& m_pointer;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    qint64 m_turns = 0;
};

/// "X Y" of a line.
void moveTo(Pointer& pointer, std::string_view place) {
    int x = 0;
    int y = 0;
    const char* const end = place.data() + place.size();
    const char* const between = std::from_chars(place.data(), end, x).ptr;
    if (between != end) {
        std::from_chars(between + 1, end, y);
    }
    pointer.moveTo(x, y);
}

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
    Pointer pointer;
    Wheel wheel(pointer);
    onLines([&](std::string_view line) {
        constexpr std::string_view kPoint = "point ";
        if (line == "click") {
            host.click();
        } else if (line == "press") {
            sayMoment("pressed");
            pointer.click();
        } else if (line == "wheel") {
            wheel.begin();
        } else if (line.starts_with(kPoint)) {
            moveTo(pointer, line.substr(kPoint.size()));
        }
    });
    sayMoment("ready");
    return QCoreApplication::exec();
}

}  // namespace quillbar::benchmarks
