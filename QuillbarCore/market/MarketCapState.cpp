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
    : m_api(api)
    , m_cache(std::move(cache))
    , m_now(std::move(now))
    , m_polling(executor,
                m_now,
                std::move(sleeper),
                {.interval = kPollInterval, .idleTimeout = kIdleTimeout},
                [this] { return refreshOnce(); }) {
    if (auto cached = m_cache.load()) {
        m_snapshot.set(std::move(cached->entries));
        m_lastUpdate.set(cached->fetchedAt);
    }
}

Task<void> MarketCapState::refreshOnce() {
    const std::optional<Seconds> age = dataAge();
    if (!m_snapshot->empty() && age && *age < kMinimumRefreshInterval) {
        co_return;
    }
    const auto shown = m_snapshot->empty() ? LoadStatus::Shown::nothing : LoadStatus::Shown::data;
    co_await m_status.run(shown, load(), "market cap refresh", m_logger);
}

Task<LoadStatus::Outcome> MarketCapState::load() {
    std::vector<MarketCapEntry> entries = co_await m_api.topByMarketCap(kPoolSize);
    if (entries.empty()) {
        m_logger.log("coingecko returned an empty snapshot; keeping the previous one");
        co_return LoadStatus::Outcome::unchanged;
    }
    m_snapshot.set(std::move(entries));
    m_lastUpdate.set(m_now());
    m_cache.save(*m_snapshot);
    co_return LoadStatus::Outcome::succeeded;
}

const std::vector<MarketCapEntry>& MarketCapState::entries() {
    m_polling.recordDemand();
    return *m_snapshot;
}

std::optional<Seconds> MarketCapState::dataAge() const {
    if (!*m_lastUpdate) {
        return std::nullopt;
    }
    return m_now() - **m_lastUpdate;
}

}  // namespace quillbar
