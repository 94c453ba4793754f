// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/ConnectionFailure.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <string>

namespace quillbar {

namespace {

using Code = URLError::Code;
using Kind = ConnectionFailure::Kind;

template <class Error>
ConnectionFailure failureOf(const Error& error) {
    return ConnectionFailure::of(std::make_exception_ptr(error));
}

template <class Error>
std::string said(const Error& error) {
    return displayName(failureOf(error));
}

std::string said(Code code) {
    return said(URLError(code, "for the log"));
}

TEST(ConnectionFailureTest, saysWhatEveryTransportErrorMeans) {
    EXPECT_EQ(said(Code::cannotFindHost), "无法解析服务器地址");
    EXPECT_EQ(said(Code::cannotConnect), "无法连接到服务器");
    EXPECT_EQ(said(Code::proxyFailed), "代理不可用");
    EXPECT_EQ(said(Code::timedOut), "连接超时");
    EXPECT_EQ(said(Code::secureConnectionFailed), "安全连接失败或证书不可信");
    EXPECT_EQ(said(Code::connectionLost), "连接意外断开");
    EXPECT_EQ(said(Code::tooLarge), "服务器的数据过大");
    EXPECT_EQ(said(Code::notServedHere), "当前地区无法访问行情服务");
    EXPECT_EQ(said(Code::other), "连接出现异常");
    EXPECT_EQ(said(Code::badURL), "服务器地址无效");
    EXPECT_EQ(said(Code::cancelled), "连接已取消");
}

TEST(ConnectionFailureTest, namesTheStatusOfAServerThatRefuses) {
    EXPECT_EQ(said(URLError(Code::cannotConnect, "for the log", 451)), "服务器返回 451");
    EXPECT_EQ(said(BinanceError(429)), "服务器返回 429");
}

TEST(ConnectionFailureTest, saysThatNoServerIsLeftForAnAnswerWithoutAStatus) {
    EXPECT_EQ(said(BinanceError(0)), "没有可用的服务器");
}

TEST(ConnectionFailureTest, saysThatTheServerClosedForACloseFrame) {
    EXPECT_EQ(displayName({.kind = Kind::closedByServer}), "服务器关闭了连接");
}

TEST(ConnectionFailureTest, tellsCancellationsFromUnknownErrors) {
    EXPECT_EQ(said(Cancelled()), "连接已取消");
    EXPECT_EQ(said(std::runtime_error("broken")), "连接出现异常");
    EXPECT_EQ(said(5), "连接出现异常");
}

TEST(ConnectionFailureTest, differsByKindAndStatus) {
    EXPECT_EQ(failureOf(URLError(Code::timedOut, "a")), failureOf(URLError(Code::timedOut, "b")));
    EXPECT_NE(failureOf(URLError(Code::timedOut, "a")),
              failureOf(URLError(Code::connectionLost, "a")));
    EXPECT_NE(failureOf(BinanceError(403)), failureOf(BinanceError(451)));
}

}  // namespace

}  // namespace quillbar
