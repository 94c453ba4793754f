// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/state/DocumentStore.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillbar {

/// Describes the stored watchlist, "watchlist.json".
struct WatchlistDocument final {
    using Document = Watchlist;
    static constexpr std::string_view kFileName = "watchlist.json";
    static constexpr std::string_view kLogCategory = "WatchlistStore";

    [[nodiscard]] static const Watchlist& defaultDocument();
    [[nodiscard]] static Watchlist decode(std::string_view text);
    [[nodiscard]] static std::string encode(const Watchlist& watchlist);
    static void logUnreadable(const Logger& logger, std::string_view reason);
    static void logUnknownVersion(const Logger& logger, std::int64_t version);
};

/// Keeps the user's watchlist.
using WatchlistStore = DocumentStore<WatchlistDocument>;

}  // namespace quillbar
