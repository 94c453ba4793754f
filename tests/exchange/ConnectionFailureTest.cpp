// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/ConnectionFailure.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>

namespace quillbar {

namespace {

using Code = URLError::Code;
using Kind = ConnectionFailure::Kind;

template <class Error>
ConnectionFailure failureOf(const Error& error) {
    return ConnectionFailure::of(std::make_exception_ptr(error));
}

ConnectionFailure failureOf(Code code) {
    return failureOf(URLError(code, "for the log"));
}

TEST(ConnectionFailureTest, isOfTheKindOfEveryTransportError) {
    EXPECT_EQ(failureOf(Code::cannotFindHost).kind, Kind::hostNotFound);
    EXPECT_EQ(failureOf(Code::cannotConnect).kind, Kind::cannotConnect);
    EXPECT_EQ(failureOf(Code::proxyFailed).kind, Kind::proxyFailed);
    EXPECT_EQ(failureOf(Code::timedOut).kind, Kind::timedOut);
    EXPECT_EQ(failureOf(Code::secureConnectionFailed).kind, Kind::untrusted);
    EXPECT_EQ(failureOf(Code::connectionLost).kind, Kind::lost);
    EXPECT_EQ(failureOf(Code::tooLarge).kind, Kind::tooLarge);
    EXPECT_EQ(failureOf(Code::notServedHere).kind, Kind::notServedHere);
    EXPECT_EQ(failureOf(Code::other).kind, Kind::unknown);
    EXPECT_EQ(failureOf(Code::badURL).kind, Kind::badAddress);
    EXPECT_EQ(failureOf(Code::cancelled).kind, Kind::cancelled);
}

TEST(ConnectionFailureTest, hasTheStatusOfAServerThatRefuses) {
    EXPECT_EQ(failureOf(URLError(Code::cannotConnect, "for the log", 451)),
              (ConnectionFailure{Kind::refused, 451}));
    EXPECT_EQ(failureOf(BinanceError(429)), (ConnectionFailure{Kind::refused, 429}));
}

TEST(ConnectionFailureTest, findsNoServerLeftForAnAnswerWithoutAStatus) {
    EXPECT_EQ(failureOf(BinanceError(0)), ConnectionFailure{Kind::noServer});
}

TEST(ConnectionFailureTest, tellsCancellationsFromUnknownErrors) {
    EXPECT_EQ(failureOf(Cancelled()), ConnectionFailure{Kind::cancelled});
    EXPECT_EQ(failureOf(std::runtime_error("broken")), ConnectionFailure{Kind::unknown});
    EXPECT_EQ(failureOf(5), ConnectionFailure{Kind::unknown});
}

TEST(ConnectionFailureTest, differsByKindAndStatus) {
    EXPECT_EQ(failureOf(URLError(Code::timedOut, "a")), failureOf(URLError(Code::timedOut, "b")));
    EXPECT_NE(failureOf(URLError(Code::timedOut, "a")),
              failureOf(URLError(Code::connectionLost, "a")));
    EXPECT_NE(failureOf(BinanceError(403)), failureOf(BinanceError(451)));
}

}  // namespace

}  // namespace quillbar
