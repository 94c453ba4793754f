// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/DesktopShade.h"
#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QDBusConnection>
#include <QObject>

#include <optional>

namespace quillbar {

/// Observes whether the desktop is dark or light. The settings portal decides; until it has
/// answered, or if it does not, the colours of the desktop's palette do. Nothing waits for the
/// portal. For the main thread of a program with windows.
class SystemColorScheme final : public QObject {
public:
    /// Asks the portal on `bus`, which is absent if there is no bus.
    explicit SystemColorScheme(const std::optional<QDBusConnection>& bus);

    [[nodiscard]] const Observed<ColorScheme>& scheme() const noexcept { return m_scheme; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    ShadePreference m_preference = ShadePreference::unknown;
    Observed<ColorScheme> m_scheme;
    std::optional<DesktopShade> m_shade;
};

}  // namespace quillbar
