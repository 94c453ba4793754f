// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/RegionalFetcher.h"

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/model/AsciiCase.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr int kForbidden = 403;
constexpr int kUnavailableForLegalReasons = 451;

// The texts of the exchange itself, and of the delivery network in front of its hosts.
constexpr std::array<std::string_view, 2> kRegionTexts{
    "restricted location",
    "block access from your country",
};
// Both texts stand near the beginning of the body.
constexpr std::size_t kLongestLook = 4096;

bool blamesTheRegion(std::string_view body) {
    const std::string text = AsciiCase::lowerCased(std::string(body.substr(0, kLongestLook)));
    return std::any_of(kRegionTexts.begin(), kRegionTexts.end(), [&](std::string_view sign) {
        return text.find(sign) != std::string::npos;
    });
}

bool isNotServedHere(const HTTPResponse& response) {
    return response.status == kUnavailableForLegalReasons
           || (response.status == kForbidden && blamesTheRegion(response.body));
}

}  // namespace

RegionalFetcher::RegionalFetcher(std::shared_ptr<HTTPDataFetching> fetcher)
    : m_fetcher(std::move(fetcher)) {}

Task<HTTPResponse> RegionalFetcher::fetch(std::string url) {
    HTTPResponse response = co_await m_fetcher->fetch(std::move(url));
    if (isNotServedHere(response)) {
        throw URLError(
            URLError::Code::notServedHere,
            fmt::format("the host does not serve this region (HTTP {})", response.status));
    }
    co_return response;
}

}  // namespace quillbar
