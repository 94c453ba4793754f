// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/CoinName.h"

#include "QuillbarCore/model/AsciiCase.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quillbar {

namespace {

constexpr std::string_view kQuoteAsset = "USDT";
constexpr std::string_view kQuoteAssetInPair = "/USDT";

// Beyond ASCII are the codes of a few coins.
bool mayBeInName(char byte) {
    const bool isAscii = static_cast<unsigned char>(byte) < 0x80U;
    return !isAscii || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
}

}  // namespace

std::optional<Coin> coinNamed(std::string_view name) {
    std::string base = AsciiCase::upperCased(std::string(name));
    if (base.ends_with(kQuoteAssetInPair)) {
        base.resize(base.size() - kQuoteAssetInPair.size());
    } else if (base.ends_with(kQuoteAsset) && base.size() > kQuoteAsset.size()) {
        base.resize(base.size() - kQuoteAsset.size());
    }
    if (base.empty() || !std::ranges::all_of(base, mayBeInName)) {
        return std::nullopt;
    }
    std::string symbol = base + std::string(kQuoteAsset);
    return Coin{std::move(symbol), std::move(base)};
}

}  // namespace quillbar
