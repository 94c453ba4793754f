// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapCache.h"

#include "QuillbarCore/model/DocumentError.h"
#include "QuillbarCore/model/JSONDocument.h"
#include "QuillbarCore/model/ReferenceDate.h"
#include "QuillbarCore/runtime/AtomicFile.h"

#include <exception>
#include <nlohmann/json.hpp>
#include <utility>

namespace quillbar {

namespace {

constexpr const char* kFileName = "market-cap.json";
constexpr const char* kFetchedAt = "fetchedAt";
constexpr const char* kEntries = "entries";
constexpr const char* kSymbol = "symbol";
constexpr const char* kRank = "rank";
constexpr const char* kMarketCap = "marketCap";
constexpr const char* kReferencePrice = "referencePrice";

nlohmann::ordered_json toJSON(const MarketCapEntry& entry) {
    nlohmann::ordered_json json;
    json[kSymbol] = entry.symbol;
    json[kRank] = entry.rank;
    json[kMarketCap] = entry.marketCap;
    json[kReferencePrice] = entry.referencePrice;
    return json;
}

MarketCapEntry entryFromJSON(const nlohmann::ordered_json& json) {
    return {.symbol = JSONDocument::requiredString(json, kSymbol),
            .rank = JSONDocument::requiredInteger(json, kRank),
            .marketCap = JSONDocument::requiredNumber(json, kMarketCap),
            .referencePrice = JSONDocument::requiredNumber(json, kReferencePrice)};
}

}  // namespace

MarketCapCache::MarketCapCache(const std::filesystem::path& directory, Clock now)
    : m_file(directory / kFileName)
    , m_now(std::move(now)) {}

std::optional<MarketCapCache::Snapshot> MarketCapCache::load() const {
    try {
        const auto json = JSONDocument::parse(AtomicFile::read(m_file));
        Snapshot snapshot;
        snapshot.fetchedAt =
            kReferenceDate + Seconds(JSONDocument::requiredNumber(json, kFetchedAt));
        const auto& entries = JSONDocument::requiredMember(json, kEntries);
        if (!entries.is_array()) {
            throw DocumentError("entries is not an array");
        }
        for (const auto& entry : entries) {
            snapshot.entries.push_back(entryFromJSON(entry));
        }
        return snapshot;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void MarketCapCache::save(const std::vector<MarketCapEntry>& entries) const {
    if (entries.empty()) {
        return;
    }
    try {
        nlohmann::ordered_json json;
        json[kFetchedAt] = (m_now() - kReferenceDate).count();
        json[kEntries] = nlohmann::ordered_json::array();
        for (const MarketCapEntry& entry : entries) {
            json[kEntries].push_back(toJSON(entry));
        }
        AtomicFile::write(m_file, JSONDocument::compactText(json));
    } catch (const std::exception& error) {
        m_logger.error("failed to save market cap cache: {}", error.what());
    }
}

}  // namespace quillbar
