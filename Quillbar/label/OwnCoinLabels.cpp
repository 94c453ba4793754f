// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/OwnCoinLabels.h"

#include "QuillbarCore/model/Watchlist.h"

namespace quillbar {

namespace {

Watchlist listOf(std::vector<Coin> coins) {
    Watchlist list{.coins = std::move(coins)};
    list.pinnedSymbol = list.coins.front().symbol;
    return list;
}

}  // namespace

OwnCoinLabels::OwnCoinLabels(const ServicePlatform& platform,
                             const ServiceEndpoints& endpoints,
                             const std::filesystem::path& folder,
                             LabelMode mode,
                             std::vector<Coin> coins)
    : m_services(platform, endpoints, folder, listOf(std::move(coins)))
    , m_labels(
          {.state = m_services.appState(),
           .isStarted = m_services.isStarted(),
           .isUnknown = [this](const std::string& symbol) { return m_services.isUnknown(symbol); },
           .executor = platform.executor,
           .sleeper = platform.sleeper}) {
    m_services.start();
    if (mode == LabelMode::follow) {
        m_systemEvents.emplace(m_services, platform.executor, platform.sleeper);
    }
}

}  // namespace quillbar
