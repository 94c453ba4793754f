// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DecoderRules.h"
#include "QuillbarCore/market/CoinGeckoDecoder.h"

#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <vector>

namespace quillbar {

namespace {

using nlohmann::json;

const json* present(const json& row, const char* key) {
    const auto found = row.find(key);
    return found == row.end() || found->is_null() ? nullptr : &*found;
}

std::optional<double> optionalNumber(const json& row, const char* key) {
    const json* const value = present(row, key);
    if (value == nullptr) {
        return std::nullopt;
    }
    if (!value->is_number()) {
        throw JSONDecodingError("not a number");
    }
    return value->get<double>();
}

std::optional<std::int64_t> optionalInteger(const json& row, const char* key) {
    const std::optional<double> value = optionalNumber(row, key);
    if (value && (std::floor(*value) != *value || std::fabs(*value) > std::ldexp(1, 53))) {
        throw JSONDecodingError("not an integer");
    }
    return value ? std::optional(static_cast<std::int64_t>(*value)) : std::nullopt;
}

std::string upperCasedText(const json& row, const char* key) {
    const json* const value = present(row, key);
    std::string text;
    if (value != nullptr) {
        icu::UnicodeString::fromUTF8(value->get<std::string>())
            .toUpper(icu::Locale::getRoot())
            .toUTF8String(text);
    }
    return text;
}

/// The decoder once more, plainly written on another JSON library.
std::vector<MarketCapEntry> naivelyDecoded(std::string_view bytes) {
    try {
        std::vector<MarketCapEntry> entries;
        const json body = json::parse(bytes);
        for (const json& row : body.get_ref<const json::array_t&>()) {
            static_cast<void>(row.get_ref<const json::object_t&>());
            const std::string symbol = upperCasedText(row, "symbol");
            const auto price = optionalNumber(row, "current_price");
            const auto marketCap = optionalNumber(row, "market_cap");
            const auto rank = optionalInteger(row, "market_cap_rank");
            if (!symbol.empty() && rank && price.value_or(0) > 0 && marketCap.value_or(0) > 0) {
                entries.push_back({symbol, *rank, *marketCap, *price});
            }
        }
        return entries;
    } catch (const json::exception& error) {
        throw JSONDecodingError(error.what());
    }
}

}  // namespace

void fuzz(std::string_view input) {
    requireSameOutcome(&CoinGeckoDecoder::decodeMarkets, &naivelyDecoded, input);
}

}  // namespace quillbar
