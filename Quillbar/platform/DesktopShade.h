// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

#include <functional>

namespace quillbar {

/// Whether the desktop wants its applications dark or light. Its bars may look different.
enum class ShadePreference { dark, light, unknown };

/// Follows the desktop's preference for dark or light, which the settings portal tells. The portal
/// may start later. If none answers, nothing is told. For the main thread, which it never blocks.
class DesktopShade final : public QObject {
    Q_OBJECT

public:
    /// `onChange` is called with each answer, also with one that is the same as before.
    DesktopShade(QDBusConnection bus, std::function<void(ShadePreference)> onChange);

private:
    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void ask();
    void tell(const QVariant& scheme) const;

    QDBusConnection m_bus;
    std::function<void(ShadePreference)> m_onChange;
};

}  // namespace quillbar
