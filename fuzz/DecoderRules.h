// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzTarget.h"
#include "fuzz/StrictJSON.h"
#include "QuillbarCore/exchange/BinanceDecodingError.h"
#include "QuillbarCore/exchange/JSONDecodingError.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillbar {

/// What a decoder makes of a body: a result, a number that it refuses, or neither when the body is
/// not what it should be.
template <class Result>
struct Outcome final {
    std::optional<Result> result = std::nullopt;
    std::optional<std::string> invalidNumber = std::nullopt;

    bool operator==(const Outcome&) const = default;
};

template <class Result>
Outcome<Result> outcomeOf(Result (*decode)(std::string_view), std::string_view bytes) {
    try {
        return {.result = decode(bytes)};
    } catch (const JSONDecodingError&) {
        return {};
    } catch (const BinanceDecodingError& error) {
        return {.invalidNumber = error.invalidNumber()};
    }
}

/// Decodes a body twice and requires the same outcome of both decoders: the same result, or the
/// same kind of error with the same number. The judge is left out where JSON parsers differ (see
/// `JSONVerdict::isBeyondLimits`), and where its library reads what is no JSON (a byte order mark,
/// a zero byte at the end): there the decoder must refuse.
template <class Result>
void requireSameOutcome(Result (*decode)(std::string_view),
                        Result (*judge)(std::string_view),
                        std::string_view bytes) {
    const Outcome<Result> outcome = outcomeOf(decode, bytes);
    const JSONVerdict verdict = judgeJSON(bytes);
    if (verdict.isBeyondLimits) {
        return;
    }
    if (!verdict.isJSON) {
        require(outcome == Outcome<Result>{}, "what is not JSON is refused as such");
        return;
    }
    require(outcome == outcomeOf(judge, bytes), "both decoders agree");
}

}  // namespace quillbar
