// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/services/AppServices.h"

#include "QuillbarCore/exchange/GatedFetcher.h"
#include "QuillbarCore/exchange/ReconnectPolicy.h"
#include "QuillbarCore/exchange/RegionalFetcher.h"
#include "QuillbarCore/exchange/ServiceGate.h"
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "QuillbarCore/market/CoinGeckoRESTClient.h"
#include "QuillbarCore/market/MarketCapCache.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <string>
#include <utility>

namespace quillbar {

namespace {

constexpr Seconds kReconnectBaseDelay{1};
constexpr Seconds kReconnectMaximumDelay{60};
constexpr Seconds kStabilityThreshold{30};
// Less than the watchdog's interval: the watchdog would begin anew with the same endpoint.
constexpr Seconds kFirstPriceLimit{25};
constexpr Seconds kWatchdogInterval{30};
constexpr Seconds kStaleReconnectThreshold{90};

constexpr const char* kExchange = "exchange";

// The one session of the process.
std::shared_ptr<HTTPDataFetching> session() {
    return std::make_shared<URLSessionFetcher>();
}

}  // namespace

/// The models of the boards.
struct AppServices::Market final {
    explicit Market(AppServices& services)
        : state(services.m_platform.executor,
                services.m_rest,
                services.m_catalog,
                services.m_platform.clock,
                services.m_platform.sleeper)
        , coinGecko(services.gated(session(), "market-cap"), services.m_endpoints.marketCap)
        , capState(services.m_platform.executor,
                   coinGecko,
                   MarketCapCache(services.m_folder, services.m_platform.clock),
                   services.m_platform.clock,
                   services.m_platform.sleeper) {}

    MarketState state;
    CoinGeckoRESTClient coinGecko;
    MarketCapState capState;
};

AppServices::AppServices(ServicePlatform platform,
                         const ServiceEndpoints& endpoints,
                         const std::filesystem::path& folder,
                         std::optional<Watchlist> watchlist)
    : m_platform(platform)
    , m_endpoints(endpoints)
    , m_folder(folder)
    , m_restEndpoints(endpoints.rest, platform.clock)
    , m_streamEndpoints(endpoints.stream, platform.clock)
    , m_rest(gated(std::make_shared<RegionalFetcher>(session()), kExchange),
             m_restEndpoints.makeSelector(),
             platform.worker)
    , m_pairs(m_rest)
    , m_catalog(platform.executor, m_rest, folder, platform.clock)
    , m_stream(
          platform.executor,
          [] { return std::make_shared<URLSessionWebSocket>(); },
          ReconnectPolicy{.baseDelay = kReconnectBaseDelay, .maxDelay = kReconnectMaximumDelay},
          platform.sleeper,
          kStabilityThreshold,
          platform.clock,
          m_streamEndpoints.makeSelector(),
          kFirstPriceLimit)
    , m_appState({.executor = platform.executor,
                  .api = m_pairs,
                  .stream = m_stream,
                  .store = WatchlistStore(folder),
                  .watchlist = std::move(watchlist),
                  .settingsStore = SettingsStore(folder),
                  .catalog = m_catalog,
                  .now = platform.clock,
                  .monotonic = platform.monotonic,
                  .calendar = platform.calendar,
                  .sleeper = platform.sleeper,
                  .watchdogInterval = kWatchdogInterval,
                  .staleReconnectThreshold = kStaleReconnectThreshold})
    , m_scope(platform.executor) {
    m_restEndpoints.whenRenewed([this](std::shared_ptr<EndpointSelector> endpoints) {
        m_rest.useEndpoints(std::move(endpoints));
        m_gates.front()->forgetFailures();
    });
    m_streamEndpoints.whenRenewed([this](std::shared_ptr<EndpointSelector> endpoints) {
        m_stream.useEndpoints(std::move(endpoints));
    });
}

AppServices::~AppServices() = default;

void AppServices::start() {
    m_scope.spawn(bootstrap());
}

void AppServices::resume() {
    // A connection that was idle may be dead without the system knowing it. A request over it would
    // run into its timeout, and count as a failure of a host that works.
    URLSessionFetcher::forgetConnections();
    // A host that failed on the old network may be the best one on this network.
    for (const auto& gate : m_gates) {
        gate->forgetFailures();
    }
    // A coin that was new to the exchange may be listed by now.
    m_pairs.forget();
    if (m_iconStore) {
        m_iconStore->forgetMissing();
    }
    m_restEndpoints.renew();
    m_streamEndpoints.renew();
    // Hints come in a row (the machine wakes, then its network). The last one counts: whatever the
    // one before has begun may hang on a network that was not there yet.
    m_resuming.cancel();
    m_resuming = m_scope.spawn(m_appState.resume());
}

MarketState& AppServices::marketState() {
    return market().state;
}

MarketCapState& AppServices::marketCapState() {
    return market().capState;
}

std::shared_ptr<GatedFetcher> AppServices::gated(std::shared_ptr<HTTPDataFetching> fetcher,
                                                 const std::string& service) {
    auto gate = std::make_shared<ServiceGate>(service, m_folder, m_platform.clock);
    m_gates.push_back(std::make_shared<GatedFetcher>(
        std::move(fetcher), std::move(gate), HostBreakers(m_platform.clock)));
    return m_gates.back();
}

AppServices::Market& AppServices::market() {
    if (!m_market) {
        m_market = std::make_unique<Market>(*this);
    }
    return *m_market;
}

IconStore& AppServices::iconStore() {
    if (!m_iconStore) {
        m_iconStore.emplace(m_platform.executor,
                            m_folder / "Icons",
                            gated(session(), "icons"),
                            m_endpoints.icon,
                            FileOperations::system(),
                            m_platform.clock);
    }
    return *m_iconStore;
}

Task<void> AppServices::bootstrap() {
    co_await m_appState.bootstrap();
    m_isStarted.set(true);
}

}  // namespace quillbar
