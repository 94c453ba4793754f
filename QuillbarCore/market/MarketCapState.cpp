// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapState.h"

#include <utility>

namespace quillbar {

MarketCapState::MarketCapState(Executor& executor,
                               CoinGeckoAPI& api,
                               MarketCapCache cache,
                               Clock now,
                               Sleeper sleeper)
    : PolledModel(now, m_polling)
    , m_api(api)
    , m_cache(std::move(cache))
    , m_polling(executor,
                std::move(now),
                std::move(sleeper),
                {.interval = kPollInterval, .idleTimeout = kIdleTimeout},
                [this] { return refreshOnce(); }) {
    if (auto cached = m_cache.load()) {
        m_snapshot.set(std::move(cached->entries));
        setLastUpdate(cached->fetchedAt);
    }
}

Task<void> MarketCapState::refreshOnce() {
    const TimePoint fetchedAt = lastUpdate()->value_or(kDistantPast);
    if (!m_snapshot->empty() && isYoungerThan(kMinimumRefreshInterval, fetchedAt, now())) {
        co_return;
    }
    const auto shown = m_snapshot->empty() ? Shown::nothing : Shown::data;
    co_await run(shown, load(), "market cap refresh", m_logger);
}

Task<MarketCapState::Outcome> MarketCapState::load() {
    std::vector<MarketCapEntry> entries = co_await m_api.topByMarketCap(kPoolSize);
    if (entries.empty()) {
        m_logger.log("coingecko returned an empty snapshot; keeping the previous one");
        co_return Outcome::unchanged;
    }
    m_snapshot.set(std::move(entries));
    setLastUpdate(now());
    m_cache.save(*m_snapshot);
    co_return Outcome::succeeded;
}

const std::vector<MarketCapEntry>& MarketCapState::entries() {
    recordDemand();
    return *m_snapshot;
}

}  // namespace quillbar
