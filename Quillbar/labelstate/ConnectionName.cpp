// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"

#include "Quillbar/platform/Formatted.h"
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

namespace {

QString nameOf(ConnectionFailure::Kind kind) {
    using Kind = ConnectionFailure::Kind;
    switch (kind) {
    case Kind::hostNotFound:
        return translated("labelstate", "无法解析服务器地址");
    case Kind::cannotConnect:
        return translated("labelstate", "无法连接到服务器");
    case Kind::proxyFailed:
        return translated("labelstate", "代理不可用");
    case Kind::timedOut:
        return translated("labelstate", "连接超时");
    case Kind::untrusted:
        return translated("labelstate", "安全连接失败或证书不可信");
    case Kind::closedByServer:
        return translated("labelstate", "服务器关闭了连接");
    case Kind::lost:
        return translated("labelstate", "连接意外断开");
    case Kind::tooLarge:
        return translated("labelstate", "服务器的数据过大");
    case Kind::notServedHere:
        return translated("labelstate", "当前地区无法访问行情服务");
    case Kind::badAddress:
        return translated("labelstate", "服务器地址无效");
    case Kind::noServer:
        return translated("labelstate", "没有可用的服务器");
    case Kind::cancelled:
        return translated("labelstate", "连接已取消");
    case Kind::unknown:
        return translated("labelstate", "连接出现异常");
    case Kind::refused:
        return translated("labelstate", "服务器返回 {}");
    }
    return {};
}

}  // namespace

std::string displayName(const ConnectionFailure& failure) {
    return formatted(nameOf(failure.kind), failure.httpStatus);
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
