// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceEndpoints.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quillbar {

namespace {

constexpr std::array<std::string_view, 6> kRest{
    "https://api.binance.com/api/v3",
    "https://data-api.binance.vision/api/v3",
    "https://api1.binance.com/api/v3",
    "https://api2.binance.com/api/v3",
    "https://api3.binance.com/api/v3",
    "https://api4.binance.com/api/v3",
};

constexpr std::array<std::string_view, 3> kStream{
    "wss://stream.binance.com:9443",
    "wss://data-stream.binance.vision:443",
    "wss://stream.binance.com:443",
};

// Whether a base has the form SCHEME://AUTHORITYPATH, with an authority of a host and a port.
constexpr bool isWellFormed(std::string_view url, std::string_view scheme, std::string_view path) {
    if (!url.starts_with(scheme) || !url.ends_with(path)) {
        return false;
    }
    url.remove_prefix(scheme.size());
    url.remove_suffix(path.size());
    return !url.empty() && std::all_of(url.begin(), url.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9')
               || character == '.' || character == '-' || character == ':';
    });
}

static_assert(std::all_of(kRest.begin(), kRest.end(), [](std::string_view url) {
    return isWellFormed(url, "https://", "/api/v3");
}));
static_assert(std::all_of(kStream.begin(), kStream.end(), [](std::string_view url) {
    return isWellFormed(url, "wss://", "");
}));

}  // namespace

const std::vector<std::string>& BinanceEndpoints::rest() {
    static const std::vector<std::string> urls(kRest.begin(), kRest.end());
    return urls;
}

const std::vector<std::string>& BinanceEndpoints::stream() {
    static const std::vector<std::string> urls(kStream.begin(), kStream.end());
    return urls;
}

}  // namespace quillbar
