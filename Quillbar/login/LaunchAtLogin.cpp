// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/LaunchAtLogin.h"

#include <string_view>

namespace quillbar {

bool LaunchAtLogin::set(bool enabled) {
    const std::string_view action = enabled ? "register" : "unregister";
    try {
        if (enabled) {
            m_service.registerItem();
        } else {
            m_service.unregisterItem();
        }
    } catch (const LoginItemError& error) {
        m_logger.error("failed to {} launch at login: {}", action, error.what());
        return isEnabled() == enabled;
    }
    const LoginItemStatus status = m_service.status();
    if ((status == LoginItemStatus::enabled) == enabled) {
        return true;
    }
    m_logger.error(
        "launch at login {} did not throw, but resulting status ({}) does not match "
        "requested enabled={}",
        action,
        description(status),
        enabled);
    return false;
}

bool LaunchAtLogin::isEnabled() const {
    return m_service.status() == LoginItemStatus::enabled;
}

}  // namespace quillbar
