// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/BinanceAPI.h"
#include "QuillbarCore/market/PolledModel.h"
#include "QuillbarCore/market/PollingLoop.h"
#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/market/Ranking.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Ticker.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Time.h"

#include <vector>

namespace quillbar {

/// The whole market: the 24-hour statistics of every pair, refreshed while somebody looks at a
/// board. Belongs to the main thread; destroying it ends what it has started. The exchange and the
/// catalog outlive it.
class MarketState final : public PolledModel {
public:
    static constexpr Seconds kPollInterval{30};
    static constexpr Seconds kIdleTimeout{60};

    MarketState(Executor& executor,
                BinanceAPI& api,
                CoinCatalog& catalog,
                Clock now,
                Sleeper sleeper);
    MarketState(const MarketState&) = delete;
    MarketState& operator=(const MarketState&) = delete;
    MarketState(MarketState&&) = delete;
    MarketState& operator=(MarketState&&) = delete;
    ~MarketState() = default;

    /// The last whole set of statistics; empty before the first.
    [[nodiscard]] const Observed<TickerMap>& tickers() const noexcept { return m_tickers; }
    /// Every tradable coin; loaded once, by the first refresh that finds it empty.
    [[nodiscard]] const Observed<std::vector<Coin>>& universe() const noexcept {
        return m_universe;
    }

    /// One refresh. A failure is logged, sets `loadFailed` and keeps all data. Throws only
    /// `Cancelled`.
    Task<void> refreshOnce();

    /// The first rows of a board as things stand; counts as demand.
    [[nodiscard]] std::vector<RankedCoin> board(Ranking::Board board, int limit);

    struct Snapshot {
        const TickerMap& tickers;
        const std::vector<Coin>& universe;
    };
    /// The data as they stand, valid until the next suspension; counts as demand.
    [[nodiscard]] Snapshot snapshot();

private:
    Task<Outcome> load();

    BinanceAPI& m_api;
    CoinCatalog& m_catalog;
    Logger m_logger{"MarketState"};
    Observed<TickerMap> m_tickers;
    Observed<std::vector<Coin>> m_universe;
    // Last: its refresh uses `this`.
    PollingLoop m_polling;
};

}  // namespace quillbar
