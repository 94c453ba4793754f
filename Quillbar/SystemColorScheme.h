// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/Theme.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

#include <optional>

namespace quillbar {

/// Whether the desktop is dark or light, as it changes: what its settings portal says, and where it
/// says nothing, what the desktop's palette looks like. Waits for nothing: until the portal has
/// answered, the palette holds. For the main thread of a program with windows.
class SystemColorScheme final : public QObject {
    Q_OBJECT

public:
    /// Asks the portal on `bus`, which need not be connected.
    explicit SystemColorScheme(QDBusConnection bus);

    [[nodiscard]] const Observed<ColorScheme>& scheme() const noexcept { return m_scheme; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void apply(const QVariant& answer);
    void refresh();

    std::optional<ColorScheme> m_preference;
    Observed<ColorScheme> m_scheme;
};

}  // namespace quillbar
