// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace quillbar {

/// Whether the desktop starts the application at login.
enum class LoginItemStatus : std::uint8_t {
    /// Nothing starts it.
    notRegistered,
    /// The next login starts it.
    enabled,
    /// It is registered, but switched off in the settings of the desktop. It can be switched on
    /// again only there.
    requiresApproval,
    /// It is registered, but the program that would be started is gone.
    notFound,
};

/// The status in words, for the log: "not registered", "enabled", "requires approval", "not found".
[[nodiscard]] std::string_view description(LoginItemStatus status);

/// Registering or unregistering failed; `what()` says why, for the log.
class LoginItemError final : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The desktop's means of starting the application at login. For the main thread; blocks for as
/// long as a small file takes.
class LoginItemService {
public:
    LoginItemService() = default;
    LoginItemService(const LoginItemService&) = delete;
    LoginItemService& operator=(const LoginItemService&) = delete;
    LoginItemService(LoginItemService&&) = delete;
    LoginItemService& operator=(LoginItemService&&) = delete;
    virtual ~LoginItemService() = default;

    /// Asks for a start at login. Returning does not mean that there will be one: see `status`.
    /// Throws `LoginItemError`.
    virtual void registerItem() = 0;
    /// Takes that back. Throws `LoginItemError`.
    virtual void unregisterItem() = 0;
    /// As it stands at this moment, whoever has changed it. Throws nothing.
    [[nodiscard]] virtual LoginItemStatus status() const = 0;
};

}  // namespace quillbar
