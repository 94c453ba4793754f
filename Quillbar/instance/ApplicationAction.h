// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace quillbar {

/// What one start of the application asks of the one that runs.
enum class ApplicationAction { togglePanel, showPanel, showPreferences, toggleDiscreet, quit };

/// The action's name on the bus and in the desktop file: "toggle-panel", "show-panel",
/// "show-preferences", "toggle-discreet", "quit". Ends with a null character.
[[nodiscard]] std::string_view actionName(ApplicationAction action);

/// The action of exactly this name; absent for any other.
[[nodiscard]] std::optional<ApplicationAction> actionNamed(std::string_view name);

}  // namespace quillbar
