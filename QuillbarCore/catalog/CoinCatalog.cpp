// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/CoinCatalog.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/model/JSONDocument.h"
#include "QuillbarCore/model/ModelJSON.h"
#include "QuillbarCore/model/ReferenceDate.h"
#include "QuillbarCore/runtime/AtomicFile.h"

#include <algorithm>
#include <array>
#include <exception>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr const char* kFileName = "coin-catalog.json";
constexpr const char* kFetchedAt = "fetchedAt";
constexpr const char* kCoins = "coins";

/// How well a coin matches; the best first.
enum Match : std::size_t { exact, prefix, substring, matchCount };

std::vector<Coin> matches(const std::vector<Coin>& coins, std::string_view wanted) {
    std::array<std::vector<const Coin*>, matchCount> groups;
    for (const Coin& coin : coins) {
        const std::string baseAsset = SearchText::upperCased(coin.baseAsset);
        if (baseAsset == wanted) {
            groups[exact].push_back(&coin);
        } else if (baseAsset.starts_with(wanted)) {
            groups[prefix].push_back(&coin);
        } else if (baseAsset.find(wanted) != std::string::npos) {
            groups[substring].push_back(&coin);
        }
    }
    std::vector<Coin> best;
    for (const auto& group : groups) {
        const std::size_t room = CoinCatalog::kMaximumMatches - best.size();
        const std::size_t count = std::min(room, group.size());
        for (std::size_t index = 0; index < count; ++index) {
            best.push_back(*group[index]);
        }
    }
    return best;
}

}  // namespace

CoinCatalog::CoinCatalog(Executor& executor,
                         BinanceAPI& api,
                         const std::filesystem::path& cacheDirectory,
                         Clock now)
    : m_api(api)
    , m_cacheFile(cacheDirectory / kFileName)
    , m_now(std::move(now))
    , m_networkLoad(executor, [this] { return loadFromNetwork(); }) {}

Task<std::vector<Coin>> CoinCatalog::allCoins() {
    const Coins coins = co_await loaded();
    co_return *coins;
}

Task<std::vector<Coin>> CoinCatalog::search(std::string query) {
    const std::string wanted = SearchText::upperCased(SearchText::trimmed(query));
    if (wanted.empty()) {
        co_return std::vector<Coin>();
    }
    const Coins coins = co_await loaded();
    co_return matches(*coins, wanted);
}

Task<CoinNames::Found> CoinCatalog::find(std::vector<std::string> names) {
    const Coins coins = co_await loaded();
    co_return CoinNames::find(names, *coins);
}

Task<CoinCatalog::Coins> CoinCatalog::loaded() {
    if (m_memory) {
        co_return m_memory;
    }
    if (std::optional<CacheEnvelope> envelope = readDiskCache()) {
        if (m_now() - envelope->fetchedAt < kTimeToLive) {
            m_memory = std::make_shared<const std::vector<Coin>>(std::move(envelope->coins));
            co_return m_memory;
        }
    }
    // Do not use this object after the wait: it may be destroyed by then.
    Coins coins = co_await m_networkLoad.get();
    co_return coins;
}

Task<CoinCatalog::Coins> CoinCatalog::loadFromNetwork() {
    std::vector<Coin> coins = co_await m_api.exchangeInfo();
    m_memory = std::make_shared<const std::vector<Coin>>(std::move(coins));
    saveDiskCache(m_now(), *m_memory);
    co_return m_memory;
}

std::optional<CoinCatalog::CacheEnvelope> CoinCatalog::readDiskCache() const {
    try {
        const auto json = JSONDocument::parse(AtomicFile::read(m_cacheFile));
        CacheEnvelope envelope;
        envelope.fetchedAt =
            kReferenceDate + Seconds(JSONDocument::requiredNumber(json, kFetchedAt));
        envelope.coins = ModelJSON::coinsFromJSON(JSONDocument::requiredMember(json, kCoins));
        return envelope;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void CoinCatalog::saveDiskCache(TimePoint fetchedAt, const std::vector<Coin>& coins) const {
    try {
        nlohmann::ordered_json json;
        json[kFetchedAt] = (fetchedAt - kReferenceDate).count();
        json[kCoins] = ModelJSON::toJSON(coins);
        AtomicFile::write(m_cacheFile, JSONDocument::compactText(json));
    } catch (const std::exception& error) {
        m_logger.error("failed to save coin catalog cache: {}", error.what());
    }
}

}  // namespace quillbar
