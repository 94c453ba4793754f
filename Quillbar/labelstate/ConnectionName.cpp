// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"

#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/model/RawValue.h"

#include <array>

namespace quillbar {

std::string displayName(ConnectionState connection) {
    switch (connection) {
    case ConnectionState::disconnected:
        return translated("labelstate", "未连接").toStdString();
    case ConnectionState::connecting:
        return translated("labelstate", "正在连接").toStdString();
    case ConnectionState::connected:
        return translated("labelstate", "已连接").toStdString();
    case ConnectionState::waitingRetry:
        return translated("labelstate", "连接中断，等待重试").toStdString();
    }
    return {};
}

std::string silentConnectionName() {
    return translated("labelstate", "连接没有数据").toStdString();
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
