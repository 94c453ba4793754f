// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ApplicationAction.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillbar {

/// What a start without an action shows.
enum class StartManner {
    /// The application shows itself: a second start toggles the panel, and without a tray it opens.
    usual,
    /// As at login: nothing opens by itself, and a second start does nothing.
    background,
};

/// What the application was asked to do at its start.
struct AppOptions final {
    /// What to ask of the application that runs, or to do after the start; absent for a plain
    /// start, which shows the label, or toggles the panel of the application that runs already.
    std::optional<ApplicationAction> action = std::nullopt;
    /// Without an action: what the start may show.
    StartManner manner = StartManner::usual;

    bool operator==(const AppOptions&) const = default;
};

/// The program prints `text` and ends with success: its help or its version.
struct AppInformation final {
    std::string text;

    bool operator==(const AppInformation&) const = default;
};

/// The arguments make no sense; `text` is one line for the user.
struct AppUsageError final {
    std::string text;

    bool operator==(const AppUsageError&) const = default;
};

/// Reads the arguments, without the program's name. Pure.
[[nodiscard]] std::variant<AppOptions, AppInformation, AppUsageError> parseAppOptions(
    const std::vector<std::string>& arguments);

}  // namespace quillbar
