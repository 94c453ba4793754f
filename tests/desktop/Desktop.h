// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/ChildProcess.h"
#include "tests/desktop/Screen.h"
#include "tests/support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QPoint>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <QVariantList>

#include <functional>
#include <optional>

namespace quillbar {

/// A whole desktop of the test's own: an X server without a monitor, a session bus, a window
/// manager, a bar with a status area on top, and an exchange that no network is needed for. All of
/// it ends with this object. Needs a QCoreApplication; one at a time.
class Desktop final {
public:
    /// Throws std::runtime_error naming what does not start. The bar is not waited for.
    Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    Desktop(Desktop&&) = delete;
    Desktop& operator=(Desktop&&) = delete;
    ~Desktop();

    [[nodiscard]] Screen& screen() { return *m_screen; }
    [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }
    /// What a program of the session finds, the exchange's addresses included.
    [[nodiscard]] QProcessEnvironment environment() const;

    void startBar();
    /// Its status area goes with it.
    void killBar();
    /// The bus names of the items in the status area; empty while there is none.
    [[nodiscard]] QStringList items() const;
    /// Where the status area is, which a single item fills.
    [[nodiscard]] std::optional<QRect> statusArea() const;

    /// Makes the screen two monitors, its left half and its right one; the bar lies along both.
    void splitIntoMonitors();
    /// Leaves the left half alone.
    void unplugRightMonitor();
    /// Makes the screen one monitor again.
    void joinMonitors();

    void startExchange();
    /// Comes back at the same address.
    void killExchange();

    /// Lets so many seconds of the market pass at once; every price of them is sent.
    void moveMarket(int steps) const;

    /// Says as the settings portal does that the desktop has become dark or light.
    enum class Shade : unsigned { dark = 1, light = 2 };
    void become(Shade shade) const;

    /// The answer of a method; a null variant when there is none.
    [[nodiscard]] QVariant call(const QString& service,
                                const QString& path,
                                const QString& interface,
                                const QString& method,
                                const QVariantList& arguments = {}) const;
    [[nodiscard]] QVariant property(const QString& service,
                                    const QString& path,
                                    const QString& interface,
                                    const QString& name) const;
    /// The process that owns a bus name; 0 for none.
    [[nodiscard]] qint64 processOf(const QString& service) const;

private:
    void startServer();
    void startBus();
    void startWindowManager();
    void configureMonitors(const QStringList& arguments) const;

    TemporaryFolder m_folder;
    QProcessEnvironment m_environment;
    std::optional<ChildProcess> m_server;
    std::optional<ChildProcess> m_busDaemon;
    std::optional<Screen> m_screen;
    QDBusConnection m_bus{QString()};
    std::optional<ChildProcess> m_windowManager;
    std::optional<ChildProcess> m_bar;
    std::optional<ChildProcess> m_exchange;
    QString m_exchangePort = QStringLiteral("0");
    // Where the exchange is told what to do.
    QUrl m_control;
};

}  // namespace quillbar
