// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ServiceEndpoints.h"
#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "QuillbarCore/exchange/BinanceRESTClient.h"
#include "QuillbarCore/exchange/EndpointRenewal.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/model/Calendar.h"
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

namespace quillbar {

/// What the services are built on: the event loop's thread, a thread for heavy decoding, time.
/// Everything in it outlives the services.
struct ServicePlatform final {
    Executor& executor;
    Worker& worker;
    Clock clock;
    Sleeper sleeper;
    Calendar calendar;
};

/// Every long-lived object behind the label and the boards, wired together. The one place that knows
/// the production constants.
///
/// Lives on the main thread. Destroying it ends everything it started, silently.
class AppServices final {
public:
    /// Builds what the label needs; loads the user's watchlist and settings from `folder` and
    /// connects to nothing. Never fails: an unreadable document is logged and replaced by the
    /// default.
    AppServices(ServicePlatform platform,
                const ServiceEndpoints& endpoints,
                const std::filesystem::path& folder);
    AppServices(const AppServices&) = delete;
    AppServices& operator=(const AppServices&) = delete;
    AppServices(AppServices&&) = delete;
    AppServices& operator=(AppServices&&) = delete;
    ~AppServices();

    /// Starts the stream, the watchdog and the first requests. Once.
    void start();

    /// Whether the first requests have all been answered, or have failed.
    [[nodiscard]] const Observed<bool>& isStarted() const noexcept { return m_isStarted; }

    /// Begins anew over fresh connections, at once: the machine woke up, or the network came back.
    /// Each call ends what the one before has begun.
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

    ServicePlatform m_platform;
    ServiceEndpoints m_endpoints;
    std::filesystem::path m_folder;
    EndpointRenewal m_restEndpoints;
    EndpointRenewal m_streamEndpoints;
    BinanceRESTClient m_rest;
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
