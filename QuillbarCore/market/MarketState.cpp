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
    : m_api(api)
    , m_catalog(catalog)
    , m_now(std::move(now))
    , m_polling(executor,
                m_now,
                std::move(sleeper),
                {.interval = kPollInterval, .idleTimeout = kIdleTimeout},
                [this] { return refreshOnce(); }) {}

Task<void> MarketState::refreshOnce() {
    const auto shown = m_tickers->empty() ? LoadStatus::Shown::nothing : LoadStatus::Shown::data;
    co_await m_status.run(shown, load(), "market refresh", m_logger);
}

Task<LoadStatus::Outcome> MarketState::load() {
    if (m_universe->empty()) {
        std::vector<Coin> coins = co_await m_catalog.allCoins();
        m_universe.set(std::move(coins));
    }
    TickerMap tickers = co_await m_api.ticker24hAll();
    m_tickers.set(std::move(tickers));
    m_lastUpdate.set(m_now());
    co_return LoadStatus::Outcome::succeeded;
}

std::vector<RankedCoin> MarketState::board(Ranking::Board board, int limit) {
    m_polling.recordDemand();
    return Ranking::rank(board, *m_tickers, *m_universe, limit);
}

MarketState::Snapshot MarketState::snapshot() {
    m_polling.recordDemand();
    return {*m_tickers, *m_universe};
}

std::optional<Seconds> MarketState::dataAge() const {
    if (!*m_lastUpdate) {
        return std::nullopt;
    }
    return m_now() - **m_lastUpdate;
}

}  // namespace quillbar
