// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/LabelMessage.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace quillbar {

/// Watches the running application and its label, as it comes, changes and goes. Never blocks, and
/// never starts the application. Main thread; destroying it ends the watch.
class LabelWatch final : public QObject {
    Q_OBJECT

public:
    struct Timing {
        /// How long the bus and the application may take for an answer.
        std::chrono::milliseconds patience{2000};
        /// How often a silent application is asked whether it still answers. If it hangs, its old
        /// price must not stay.
        std::chrono::milliseconds interval{20000};
    };

    /// `onChange` is called from the event loop after each change of what follows; it does not
    /// destroy this object.
    LabelWatch(QDBusConnection bus, std::function<void()> onChange, Timing timing);
    LabelWatch(QDBusConnection bus, std::function<void()> onChange);

    /// Whether it is known if there is a label to read. It is known after twice the patience at the
    /// latest, and from then on.
    [[nodiscard]] bool isResolved() const noexcept { return m_isResolved; }

    /// The last report of the application; absent while none runs, if it has not reported yet, or
    /// if it does not answer.
    [[nodiscard]] const std::optional<LabelReport>& report() const noexcept { return m_report; }

private:
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    // The bus names the sender, so it can be trusted, unlike the message.
    Q_SLOT void labelChanged(const QVariantMap& label, const QDBusMessage& message);

    void findOwner();
    void setOwner(const QString& owner);
    void read();
    void resolve(std::optional<LabelReport> report);

    QDBusConnection m_bus;
    std::function<void()> m_onChange;
    Timing m_timing;
    QTimer m_silence;
    /// The application's unique name; empty while none runs.
    QString m_owner;
    bool m_isResolved = false;
    std::optional<LabelReport> m_report;
};

}  // namespace quillbar
