// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/CoinGeckoAPI.h"
#include "QuillbarCore/market/MarketCapCache.h"
#include "QuillbarCore/market/MarketCapEntry.h"
#include "QuillbarCore/market/PolledModel.h"
#include "QuillbarCore/market/PollingLoop.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Time.h"

#include <vector>

namespace quillbar {

/// The coins with the largest market capitalisations, refreshed while somebody looks at them, and
/// kept over restarts. Belongs to the main thread; destroying it ends what it has started. The
/// service outlives it.
class MarketCapState final : public PolledModel {
public:
    static constexpr Seconds kPollInterval{1800};
    static constexpr Seconds kIdleTimeout{3600};
    /// How many entries a refresh asks for.
    static constexpr int kPoolSize = 250;
    /// A refresh requests nothing while the data are younger than this. Data from the future (the
    /// clock was set back) are old.
    static constexpr Seconds kMinimumRefreshInterval{300};

    /// Begins with what the cache holds, however old.
    MarketCapState(Executor& executor,
                   CoinGeckoAPI& api,
                   MarketCapCache cache,
                   Clock now,
                   Sleeper sleeper);
    MarketCapState(const MarketCapState&) = delete;
    MarketCapState& operator=(const MarketCapState&) = delete;
    MarketCapState(MarketCapState&&) = delete;
    MarketCapState& operator=(MarketCapState&&) = delete;
    ~MarketCapState() = default;

    /// The last good list; empty before the first.
    [[nodiscard]] const Observed<std::vector<MarketCapEntry>>& snapshot() const noexcept {
        return m_snapshot;
    }

    /// One refresh, unless the data are young. A failure is logged, sets `loadFailed` and keeps the
    /// data; an empty answer is logged and changes nothing. Throws only `Cancelled`.
    Task<void> refreshOnce();

    /// The list as it stands, valid until the next suspension; counts as demand.
    [[nodiscard]] const std::vector<MarketCapEntry>& entries();

private:
    Task<Outcome> load();

    CoinGeckoAPI& m_api;
    MarketCapCache m_cache;
    Logger m_logger{"MarketCapState"};
    Observed<std::vector<MarketCapEntry>> m_snapshot;
    // Last: its refresh uses `this`.
    PollingLoop m_polling;
};

}  // namespace quillbar
