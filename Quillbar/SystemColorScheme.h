// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/Theme.h"
#include "Quillbar/tray/BarShade.h"
#include "Quillbar/tray/DesktopShade.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QDBusConnection>
#include <QObject>

#include <optional>

namespace quillbar {

/// Whether the desktop is dark or light, as it changes: what its settings portal says, and where it
/// says nothing, what the desktop's palette looks like. Waits for nothing: until the portal has
/// answered, the palette holds. For the main thread of a program with windows.
class SystemColorScheme final : public QObject {
public:
    /// Asks the portal on `bus`; absent without a bus.
    explicit SystemColorScheme(const std::optional<QDBusConnection>& bus);

    [[nodiscard]] const Observed<ColorScheme>& scheme() const noexcept { return m_scheme; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    BarShade m_preference = BarShade::unknown;
    Observed<ColorScheme> m_scheme;
    std::optional<DesktopShade> m_shade;
};

}  // namespace quillbar
