// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/BarShade.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

#include <functional>

namespace quillbar {

/// Follows the desktop's preference for dark or light, as the settings portal tells it. Where no
/// portal answers, nothing is told. For the main thread; never blocks it.
class DesktopShade final : public QObject {
    Q_OBJECT

public:
    /// `onChange` is called with each answer, also with one that is the same as before.
    DesktopShade(QDBusConnection bus, std::function<void(BarShade)> onChange);

private:
    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void tell(const QVariant& scheme) const;

    std::function<void(BarShade)> m_onChange;
};

}  // namespace quillbar
