// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"

#include "QuillbarCore/model/RawValue.h"

#include <array>

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
        return "连接中断，等待重试";
    }
    return "";
}

std::string_view rawValue(ConnectionState connection) {
    switch (connection) {
    case ConnectionState::disconnected:
        return "disconnected";
    case ConnectionState::connecting:
        return "connecting";
    case ConnectionState::connected:
        return "connected";
    case ConnectionState::waitingRetry:
        return "waitingRetry";
    }
    return "";
}

std::optional<ConnectionState> connectionFromRawValue(std::string_view rawText) {
    constexpr std::array kAll{ConnectionState::disconnected,
                              ConnectionState::connecting,
                              ConnectionState::connected,
                              ConnectionState::waitingRetry};
    return valueWithRawText(rawText, kAll);
}

}  // namespace quillbar
