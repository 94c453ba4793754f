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
