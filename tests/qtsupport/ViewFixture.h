// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/FakeCoinGeckoAPI.h"
#include "tests/support/FakeFetcher.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace quillbar {

/// What views are built on: a real AppState over fakes, as its own tests have it, a real IconStore
/// over a fake fetcher, and the real models of the boards over fakes. Build the state first.
struct ViewFixture : AppStateFixture {
    /// The environment, which lives as long as the fixture. The first call wires it to the state
    /// that is built then.
    const ViewEnvironment& environment() {
        if (!m_environment) {
            m_environment = std::make_unique<ViewEnvironment>(ViewEnvironment{
                .executor = executor,
                .now = time.clock(),
                .calendar = Calendar::utc(),
                .appState = *state,
                .edits = scope,
                .iconStore = &iconStore,
                .marketModels =
                    [this] { return MarketModels{.market = market(), .marketCaps = marketCaps()}; },
                .sleeper = time.sleeper(),
                .alerts = m_alerts.get(),
                .unshownAlerts = &unshownAlerts,
            });
        }
        return *m_environment;
    }

    /// The price alerts, which views have from then on. To be asked for before the environment.
    AlertKeeper& alerts() {
        if (!m_alerts) {
            m_alerts = std::make_unique<AlertKeeper>(
                AlertKeeperDependencies{.executor = executor,
                                        .appState = *state,
                                        .store = AlertStore(folder.path(), files),
                                        .now = time.clock(),
                                        .monotonic = time.monotonicClock(),
                                        .sleeper = time.sleeper()});
        }
        return *m_alerts;
    }

    /// The models behind the boards, built when they are first asked for.
    MarketState& market() {
        if (!m_market) {
            m_market =
                std::make_unique<MarketState>(executor, api, catalog, time.clock(), time.sleeper());
        }
        return *m_market;
    }
    MarketCapState& marketCaps() {
        if (!m_marketCaps) {
            m_marketCaps =
                std::make_unique<MarketCapState>(executor,
                                                 coinGecko,
                                                 MarketCapCache(folder.path(), time.clock()),
                                                 time.clock(),
                                                 time.sleeper());
        }
        return *m_marketCaps;
    }

    FakeCoinGeckoAPI coinGecko;
    Observed<std::vector<FiredAlert>> unshownAlerts;
    std::shared_ptr<FakeFetcher> iconFetcher = std::make_shared<FakeFetcher>();
    IconStore iconStore{executor,
                        folder.path() / "Icons",
                        iconFetcher,
                        "https://icons.test/logos",
                        FileOperations::system(),
                        time.clock()};

private:
    std::unique_ptr<AlertKeeper> m_alerts;
    std::unique_ptr<MarketState> m_market;
    std::unique_ptr<MarketCapState> m_marketCaps;
    std::unique_ptr<ViewEnvironment> m_environment;
};

}  // namespace quillbar
