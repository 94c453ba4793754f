// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

TEST(ConnectionName, isAWordForTheUserAndOneForPrograms) {
    EXPECT_EQ(displayName(ConnectionState::disconnected), "未连接");
    EXPECT_EQ(displayName(ConnectionState::connecting), "正在连接");
    EXPECT_EQ(displayName(ConnectionState::connected), "已连接");
    EXPECT_EQ(displayName(ConnectionState::waitingRetry), "连接中断，等待重试");
    EXPECT_EQ(rawValue(ConnectionState::disconnected), "disconnected");
    EXPECT_EQ(rawValue(ConnectionState::connecting), "connecting");
    EXPECT_EQ(rawValue(ConnectionState::connected), "connected");
    EXPECT_EQ(rawValue(ConnectionState::waitingRetry), "waitingRetry");
}

TEST(ConnectionName, saysWhyThereIsNoConnection) {
    using Kind = ConnectionFailure::Kind;
    const auto said = [](Kind kind) { return displayName(ConnectionFailure{.kind = kind}); };
    EXPECT_EQ(said(Kind::hostNotFound), "无法解析服务器地址");
    EXPECT_EQ(said(Kind::cannotConnect), "无法连接到服务器");
    EXPECT_EQ(said(Kind::proxyFailed), "代理不可用");
    EXPECT_EQ(said(Kind::timedOut), "连接超时");
    EXPECT_EQ(said(Kind::untrusted), "安全连接失败或证书不可信");
    EXPECT_EQ(said(Kind::closedByServer), "服务器关闭了连接");
    EXPECT_EQ(said(Kind::lost), "连接意外断开");
    EXPECT_EQ(said(Kind::tooLarge), "服务器的数据过大");
    EXPECT_EQ(said(Kind::notServedHere), "当前地区无法访问行情服务");
    EXPECT_EQ(said(Kind::badAddress), "服务器地址无效");
    EXPECT_EQ(said(Kind::noServer), "没有可用的服务器");
    EXPECT_EQ(said(Kind::cancelled), "连接已取消");
    EXPECT_EQ(said(Kind::unknown), "连接出现异常");
    EXPECT_EQ(displayName({.kind = Kind::refused, .httpStatus = 451}), "服务器返回 451");
}

TEST(ConnectionName, isReadFromTheWordForProgramsAlone) {
    EXPECT_EQ(connectionFromRawValue("disconnected"), ConnectionState::disconnected);
    EXPECT_EQ(connectionFromRawValue("connecting"), ConnectionState::connecting);
    EXPECT_EQ(connectionFromRawValue("connected"), ConnectionState::connected);
    EXPECT_EQ(connectionFromRawValue("waitingRetry"), ConnectionState::waitingRetry);
    EXPECT_EQ(connectionFromRawValue("已连接"), std::nullopt);
    EXPECT_EQ(connectionFromRawValue("Connected"), std::nullopt);
    EXPECT_EQ(connectionFromRawValue(""), std::nullopt);
}

}  // namespace
}  // namespace quillbar
