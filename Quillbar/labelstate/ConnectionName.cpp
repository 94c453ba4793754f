// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"

namespace quillbar {

std::string_view displayName(ConnectionState connection) {
    switch (connection) {
    case ConnectionState::disconnected:
        return "未连接";
    case ConnectionState::connecting:
        return "正在连接";
    case ConnectionState::connected:
        return "已连接";
    case ConnectionState::waitingRetry:
        return "连接中断,等待重试";
    }
    return "";
}

}  // namespace quillbar
