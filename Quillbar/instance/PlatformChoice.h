// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Environment.h"

#include <optional>
#include <string>

namespace quillbar {

/// What to set QT_QPA_PLATFORM to before the QApplication is made; absent to leave the choice to
/// Qt.
///
/// Wayland lets no program place its own window, so on KDE and GNOME the panel comes through
/// XWayland where there is one, to stand beside its item and out of the task bar. Elsewhere, and
/// when the user has chosen, nothing is changed. Pure.
[[nodiscard]] std::optional<std::string> choosePlatform(const EnvironmentVariables& variables);

}  // namespace quillbar
