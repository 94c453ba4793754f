// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/WatchlistStore.h"

#include "QuillbarCore/model/JSONDocument.h"
#include "QuillbarCore/model/ModelJSON.h"

#include <nlohmann/json.hpp>

namespace quillbar {

const Watchlist& WatchlistDocument::defaultDocument() {
    return Watchlist::defaultWatchlist();
}

Watchlist WatchlistDocument::decode(std::string_view text) {
    return ModelJSON::watchlistFromJSON(JSONDocument::parse(text));
}

std::string WatchlistDocument::encode(const Watchlist& watchlist) {
    return JSONDocument::compactText(ModelJSON::toJSON(watchlist));
}

void WatchlistDocument::logUnreadable(const Logger& logger, std::string_view reason) {
    logger.log("load watchlist failed ({}), using default", reason);
}

void WatchlistDocument::logUnknownVersion(const Logger& logger, std::int64_t version) {
    logger.error("unknown schema version {}, falling back to default", version);
}

}  // namespace quillbar
