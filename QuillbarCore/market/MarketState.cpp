// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketState.h"

#include <utility>

namespace quillbar {

MarketState::MarketState(Executor& executor,
                         BinanceAPI& api,
                         CoinCatalog& catalog,
                         Clock now,
                         Sleeper sleeper)
    : PolledModel(now, m_polling)
    , m_api(api)
    , m_catalog(catalog)
    , m_polling(executor,
                std::move(now),
                std::move(sleeper),
                {.interval = kPollInterval, .idleTimeout = kIdleTimeout},
                [this] { return refreshOnce(); }) {}

Task<void> MarketState::refreshOnce() {
    const auto shown = m_tickers->empty() ? Shown::nothing : Shown::data;
    co_await run(shown, load(), "market refresh", m_logger);
}

Task<MarketState::Outcome> MarketState::load() {
    if (m_universe->empty()) {
        std::vector<Coin> coins = co_await m_catalog.allCoins();
        m_universe.set(std::move(coins));
    }
    TickerMap tickers = co_await m_api.ticker24hAll();
    m_tickers.set(std::move(tickers));
    setLastUpdate(now());
    co_return Outcome::succeeded;
}

std::vector<RankedCoin> MarketState::board(Ranking::Board board, int limit) {
    recordDemand();
    return Ranking::rank(board, *m_tickers, *m_universe, limit);
}

MarketState::Snapshot MarketState::snapshot() {
    recordDemand();
    return {*m_tickers, *m_universe};
}

}  // namespace quillbar
