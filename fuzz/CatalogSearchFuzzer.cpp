// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/Completed.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/Lines.h"
#include "QuillbarCore/catalog/CoinCatalog.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"

#include <fmt/format.h>

#include <string>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <vector>

namespace quillbar {

namespace {

icu::UnicodeString upperCased(const std::string& text) {
    return icu::UnicodeString::fromUTF8(text).toUpper(icu::Locale::getRoot());
}

icu::UnicodeString trimmed(icu::UnicodeString text) {
    while (!text.isEmpty() && u_isUWhiteSpace(text.char32At(0)) != 0) {
        text.remove(0, 1);
    }
    while (!text.isEmpty() && u_isUWhiteSpace(text.char32At(text.length() - 1)) != 0) {
        text.truncate(text.length() - 1);
    }
    return text;
}

/// The search once more, in as many passes as there are ranks.
std::vector<Coin> naiveSearch(const std::vector<Coin>& coins, const std::string& query) {
    const icu::UnicodeString wanted = trimmed(upperCased(query));
    std::vector<Coin> found;
    if (wanted.isEmpty()) {
        return found;
    }
    enum class Rank { exact, prefix, substring };
    for (const Rank rank : {Rank::exact, Rank::prefix, Rank::substring}) {
        for (const Coin& coin : coins) {
            const icu::UnicodeString asset = upperCased(coin.baseAsset);
            const bool begins = asset.startsWith(wanted) != 0;
            const bool isFound = rank == Rank::exact    ? asset == wanted
                                 : rank == Rank::prefix ? begins && asset != wanted
                                                        : !begins && asset.indexOf(wanted) >= 0;
            if (isFound && found.size() < CoinCatalog::kMaximumMatches) {
                found.push_back(coin);
            }
        }
    }
    return found;
}

}  // namespace

/// The first line is the query, each of the others a base asset.
void fuzz(std::string_view input) {
    const std::vector<std::string> lines = linesOf(input);
    std::vector<Coin> coins;
    for (std::size_t index = 1; index < lines.size(); ++index) {
        coins.push_back({fmt::format("{}USDT", index), lines[index]});
    }
    const CapturedLog log;
    ManualExecutor executor;
    FakeBinanceAPI exchange;
    exchange.exchangeInfoAnswers.otherwise(coins);
    // Nothing can be stored below a device.
    CoinCatalog catalog(executor, exchange, "/dev/null/quillbar");
    const auto found = completed(executor, catalog.search(lines.front()));
    require(found == naiveSearch(coins, lines.front()), "both searches agree");
}

}  // namespace quillbar
