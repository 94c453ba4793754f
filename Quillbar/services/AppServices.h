// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/services/ServiceEndpoints.h"
#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "QuillbarCore/exchange/BinanceRESTClient.h"
#include "QuillbarCore/exchange/EndpointRenewal.h"
#include "QuillbarCore/exchange/GatedFetcher.h"
#include "QuillbarCore/exchange/KnownPairs.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/runtime/Worker.h"
#include "QuillbarCore/state/AppState.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// What the services need: the thread of the event loop, a thread for heavy decoding, and time.
/// Everything in it outlives the services.
struct ServicePlatform final {
    Executor& executor;
    Worker& worker;
    Clock clock;
    MonotonicClock monotonic = bootClock();
    Sleeper sleeper;
    Calendar calendar;
};

/// All long-lived objects behind the label and the boards, connected with each other. Only this
/// class knows the production constants.
///
/// Lives on the main thread. Destroying it ends everything it started, silently.
class AppServices final {
public:
    /// Builds what the label needs; loads the user's watchlist and settings from `folder` and
    /// connects to nothing. Never fails: an unreadable document is logged and replaced by the
    /// default. A list that is given stands in for the user's, which is then neither read nor to be
    /// edited.
    AppServices(ServicePlatform platform,
                const ServiceEndpoints& endpoints,
                const std::filesystem::path& folder,
                std::optional<Watchlist> watchlist = std::nullopt);
    AppServices(const AppServices&) = delete;
    AppServices& operator=(const AppServices&) = delete;
    AppServices(AppServices&&) = delete;
    AppServices& operator=(AppServices&&) = delete;
    ~AppServices();

    /// Starts the stream, the watchdog and the first requests. Call it once.
    void start();

    /// Whether the first requests have all been answered, or have failed.
    [[nodiscard]] const Observed<bool>& isStarted() const noexcept { return m_isStarted; }

    /// Whether the exchange was asked for the price of this pair and does not know it.
    [[nodiscard]] bool isUnknown(const std::string& symbol) const {
        return m_pairs.isUnknown(symbol);
    }

    /// Begins again at once, over new connections: the machine woke up, or the network came back.
    /// Each call ends what the call before has begun.
    void resume();

    [[nodiscard]] AppState& appState() noexcept { return m_appState; }
    [[nodiscard]] const AppState& appState() const noexcept { return m_appState; }

    // What a label alone never needs: each is built, over what `folder` holds, when it is first
    // asked for, and lives as long as the services.

    /// These two poll only while somebody reads them; they need no `start`.
    [[nodiscard]] MarketState& marketState();
    [[nodiscard]] MarketCapState& marketCapState();
    [[nodiscard]] IconStore& iconStore();

private:
    struct Market;

    Task<void> bootstrap();
    Market& market();
    // A fetcher behind the gate of one service.
    std::shared_ptr<GatedFetcher> gated(std::shared_ptr<HTTPDataFetching> fetcher,
                                        const std::string& service);

    ServicePlatform m_platform;
    ServiceEndpoints m_endpoints;
    std::filesystem::path m_folder;
    // The gates of the services that are built so far; the exchange's is the first.
    std::vector<std::shared_ptr<GatedFetcher>> m_gates;
    EndpointRenewal m_restEndpoints;
    EndpointRenewal m_streamEndpoints;
    BinanceRESTClient m_rest;
    // The same, for a list of the user's.
    KnownPairs m_pairs;
    CoinCatalog m_catalog;
    PriceStreamClient m_stream;
    AppState m_appState;
    std::unique_ptr<Market> m_market;
    std::optional<IconStore> m_iconStore;
    Observed<bool> m_isStarted;
    TaskScope::Handle m_resuming;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
