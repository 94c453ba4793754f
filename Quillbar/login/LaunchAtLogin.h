// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LoginItemService.h"
#include "QuillbarCore/runtime/Logger.h"

namespace quillbar {

/// Makes the application start at login, or not. It is given its service, so that only the
/// application's root knows where login items are kept, and a test can use its own. For the main
/// thread.
class LaunchAtLogin final {
public:
    /// The service outlives this.
    explicit LaunchAtLogin(LoginItemService& service)
        : m_service(service) {}

    /// Registers the application as a login item, or takes it out. Returns whether the item is then
    /// as requested, by whatever way: one that could not be taken out because it is gone already
    /// is. Throws nothing: what went wrong is in the log, once.
    [[nodiscard]] bool set(bool enabled);

    /// Whether the application is started at login, as the service says at this moment.
    [[nodiscard]] bool isEnabled() const;

private:
    LoginItemService& m_service;
    Logger m_logger{"LaunchAtLogin"};
};

}  // namespace quillbar
