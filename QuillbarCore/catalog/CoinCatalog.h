// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinNames.h"
#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/SharedLoad.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/Time.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// Every coin that the exchange trades against USDT: in memory for the life of the process, on disk
/// for a day, from the network when neither holds it.
///
/// Belongs to the executor's thread, which it blocks while it reads or writes its small file.
/// Destroying it ends a running load, and every wait for it with `Cancelled`.
class CoinCatalog final {
public:
    /// How long the file is used after its coins were fetched.
    static constexpr Seconds kTimeToLive{86400};
    /// The most coins that a search finds.
    static constexpr std::size_t kMaximumMatches = 20;

    /// The file is "coin-catalog.json" in `cacheDirectory`, which need not exist. The executor and
    /// the exchange outlive the catalog.
    CoinCatalog(Executor& executor,
                BinanceAPI& api,
                const std::filesystem::path& cacheDirectory,
                Clock now = systemClock());

    /// The whole catalog, in the exchange's order. Callers that come while it is being loaded share
    /// the load and its outcome; the load goes on when a caller is cancelled. Once loaded, the
    /// catalog stays the same for the life of this object, however old it gets.
    ///
    /// Throws what `BinanceAPI::exchangeInfo` throws; the next call tries again. A file that is
    /// missing, unreadable or damaged is ignored silently; a file that cannot be written is logged.
    Task<std::vector<Coin>> allCoins();

    /// The coins whose base asset matches the query, at most `kMaximumMatches`: first those that
    /// equal it, then those that begin with it, then those that contain it; each group in the
    /// exchange's order. White space around the query and the case of letters do not matter; an
    /// empty query matches nothing and loads nothing. Throws what `allCoins` throws.
    Task<std::vector<Coin>> search(std::string query);

    /// Looks up the names of coins, as `CoinNames::find` does. Throws what `allCoins` throws.
    Task<CoinNames::Found> find(std::vector<std::string> names);

private:
    using Coins = std::shared_ptr<const std::vector<Coin>>;

    struct CacheEnvelope {
        TimePoint fetchedAt;
        std::vector<Coin> coins;
    };

    Task<Coins> loaded();
    Task<Coins> loadFromNetwork();
    [[nodiscard]] std::optional<CacheEnvelope> readDiskCache() const;
    void saveDiskCache(TimePoint fetchedAt, const std::vector<Coin>& coins) const;

    BinanceAPI& m_api;
    std::filesystem::path m_cacheFile;
    Clock m_now;
    Logger m_logger{"CoinCatalog"};
    Coins m_memory;  // null until the first load that succeeds
    // Last: its load uses `this`.
    SharedLoad<Coins> m_networkLoad;
};

}  // namespace quillbar
