// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ItemCoins.h"

#include "QuillbarCore/state/AppState.h"

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

/// Whether the coins have to begin anew.
bool differ(const LabelPreferences& one, const LabelPreferences& other) {
    return one.coins != other.coins || one.rotationSeconds != other.rotationSeconds
           || one.isDiscreet != other.isDiscreet;
}

}  // namespace

ItemCoins::ItemCoins(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_scope(m_dependencies.executor) {
    m_observations.push_back(m_dependencies.preferences.observe(
        [this](const Preferences& /*preferences*/) { onPreferences(); }));
    m_observations.push_back(
        m_dependencies.state.watchlist().observe([this](const Watchlist& /*list*/) { onList(); }));
    restart();
}

void ItemCoins::turn(int places) {
    if (m_label.isDiscreet || m_turnPause.isRunning()) {
        return;
    }
    m_turnPause = m_scope.spawn(pauseTurning());
    m_next.cancel();
    step(places);
    m_next = m_scope.spawn(goBack());
}

std::optional<Coin> ItemCoins::coinBeside(const Watchlist& list,
                                          const std::optional<std::string>& symbol,
                                          int places) {
    if (list.coins.empty()) {
        return std::nullopt;
    }
    const auto count = static_cast<std::ptrdiff_t>(list.coins.size());
    const auto place = symbol ? list.indexOf(*symbol) : std::nullopt;
    const std::ptrdiff_t outside = places > 0 ? -1 : 0;
    const auto from = place ? static_cast<std::ptrdiff_t>(*place) : outside;
    const std::ptrdiff_t to = ((from + places) % count + count) % count;
    return list.coins[static_cast<std::size_t>(to)];
}

void ItemCoins::onPreferences() {
    if (differ(m_label, m_dependencies.preferences->label)) {
        restart();
    }
}

void ItemCoins::onList() {
    const Watchlist& list = *m_dependencies.state.watchlist();
    const bool areAllThere = std::ranges::all_of(
        m_coins, [&list](const Coin& coin) { return list.contains(coin.symbol); });
    if (m_pinned != list.pinnedSymbol || !areAllThere || !m_isInstead) {
        restart();
    }
}

void ItemCoins::restart() {
    m_next.cancel();
    m_label = m_dependencies.preferences->label;
    m_pinned = m_dependencies.state.watchlist()->pinnedSymbol;
    m_isInstead = false;
    follow(coinsBesidePinned());
    if (m_label.coins == LabelCoins::rotating && !m_label.isDiscreet) {
        m_next = m_scope.spawn(rotate());
    }
}

Task<void> ItemCoins::rotate() {
    for (;;) {
        co_await m_dependencies.sleeper(Seconds(m_label.rotationSeconds));
        step(1);
    }
}

Task<void> ItemCoins::goBack() {
    co_await m_dependencies.sleeper(kTurnSpan);
    m_isInstead = false;
    follow(coinsBesidePinned());
    if (m_label.coins == LabelCoins::rotating) {
        co_await rotate();
    }
}

Task<void> ItemCoins::pauseTurning() {
    co_await m_dependencies.sleeper(kTurnPause);
}

void ItemCoins::step(int places) {
    const auto shown = m_isInstead ? std::optional(m_coins.front().symbol) : m_pinned;
    const auto coin = coinBeside(*m_dependencies.state.watchlist(), shown, places);
    m_isInstead = coin && coin->symbol != m_pinned;
    follow(m_isInstead ? std::vector<Coin>{*coin} : std::vector<Coin>{});
}

std::vector<Coin> ItemCoins::coinsBesidePinned() const {
    std::vector<Coin> coins;
    const Watchlist& list = *m_dependencies.state.watchlist();
    const bool isPinned = m_pinned && list.contains(*m_pinned);
    if (m_label.coins != LabelCoins::sideBySide || m_label.isDiscreet || !isPinned) {
        return coins;
    }
    for (const Coin& coin : list.coins) {
        if (coins.size() + 1 < kSideBySide && coin.symbol != m_pinned) {
            coins.push_back(coin);
        }
    }
    return coins;
}

void ItemCoins::follow(std::vector<Coin> coins) {
    m_coins = std::move(coins);
    m_hasNews = false;
    m_telling.cancel();
    m_priceObservations.clear();
    if (!m_coins.empty()) {
        const AppState& state = m_dependencies.state;
        const auto note = [this](const std::string& symbol) { noteNews(symbol); };
        m_priceObservations.push_back(state.tickers().observe(note));
        m_priceObservations.push_back(state.todayOpens().observe(note));
    }
    refresh();
}

void ItemCoins::noteNews(const std::string& symbol) {
    m_hasNews = m_hasNews || std::ranges::any_of(m_coins, [&symbol](const Coin& coin) {
                    return coin.symbol == symbol;
                });
    if (m_hasNews && !m_telling.isRunning()) {
        m_telling = m_scope.spawn(tell());
    }
}

Task<void> ItemCoins::tell() {
    while (std::exchange(m_hasNews, false)) {
        refresh();
        co_await m_dependencies.sleeper(kSpacing);
    }
}

void ItemCoins::refresh() {
    Shown shown;
    for (const Coin& coin : m_coins) {
        PinnedQuote quote = m_dependencies.state.quoteOf(coin);
        if (m_isInstead) {
            shown.instead = std::move(quote);
        } else {
            shown.beside.push_back(std::move(quote));
        }
    }
    m_shown.set(std::move(shown));
}

}  // namespace quillbar
