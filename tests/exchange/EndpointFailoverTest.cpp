// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/EndpointFailover.h"
#include "QuillbarCore/exchange/ErrorText.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>

namespace quillbar {

namespace {

template <class Error>
bool isTriedElsewhere(const Error& error) {
    return EndpointFailover::shouldTryNextEndpoint(std::make_exception_ptr(error));
}

template <class Error>
std::string text(const Error& error) {
    return errorText(std::make_exception_ptr(error));
}

}  // namespace

TEST(EndpointFailoverTest, triesElsewhereForServerErrors) {
    EXPECT_TRUE(isTriedElsewhere(BinanceError(500)));
    EXPECT_TRUE(isTriedElsewhere(BinanceError(503)));
    EXPECT_TRUE(isTriedElsewhere(BinanceError(599)));
}

TEST(EndpointFailoverTest, doesNotTryElsewhereForOtherStatuses) {
    for (const int status : {0, 100, 199, 300, 302, 400, 403, 418, 429, 451, 499, 600, -1}) {
        EXPECT_FALSE(isTriedElsewhere(BinanceError(status))) << status;
    }
}

TEST(EndpointFailoverTest, triesElsewhereForTransportErrorsExceptCancellations) {
    using Code = URLError::Code;
    for (const Code code : {Code::timedOut,
                            Code::cannotFindHost,
                            Code::cannotConnect,
                            Code::connectionLost,
                            Code::secureConnectionFailed,
                            Code::tooLarge,
                            Code::notServedHere,
                            Code::badURL,
                            Code::other}) {
        EXPECT_TRUE(isTriedElsewhere(URLError(code, "")));
    }
    EXPECT_FALSE(isTriedElsewhere(URLError(Code::cancelled, "")));
}

TEST(EndpointFailoverTest, doesNotTryElsewhereForOtherErrors) {
    EXPECT_FALSE(isTriedElsewhere(Cancelled{}));
    EXPECT_FALSE(isTriedElsewhere(BinanceDecodingError("abc")));
    EXPECT_FALSE(isTriedElsewhere(JSONDecodingError("malformed")));
    EXPECT_FALSE(isTriedElsewhere(std::runtime_error("something")));
    EXPECT_FALSE(isTriedElsewhere(42));
}

TEST(BinanceErrorTest, namesItsStatusAndEqualsWithTheSame) {
    EXPECT_STREQ(BinanceError(503).what(), "httpStatus(503)");
    EXPECT_EQ(BinanceError(503).httpStatus(), 503);
    EXPECT_EQ(BinanceError(503), BinanceError(503));
    EXPECT_NE(BinanceError(503), BinanceError(500));
}

TEST(ErrorTextTest, saysWhatWentWrong) {
    EXPECT_EQ(text(BinanceError(503)), "httpStatus(503)");
    EXPECT_EQ(text(Cancelled{}), "cancelled");
    EXPECT_EQ(text(42), "an error of an unknown type");
}

}  // namespace quillbar
