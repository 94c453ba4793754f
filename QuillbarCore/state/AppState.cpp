// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppState.h"

#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/LocalDay.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>
#include <variant>

namespace quillbar {

namespace {

constexpr std::string_view kTextWithoutPin = "Quillbar";
constexpr Seconds kLabelThrottle{1};
constexpr Seconds kTodayOpensRetrySpacing{60};

constexpr std::string_view kNotSaved = "设置未能保存到磁盘";
constexpr std::string_view kAppearanceNotSaved = "外观设置保存失败,重启后会恢复原值";

/// Whether less than `span` has passed since the instant. One that lies ahead, because the clock was
/// set back, has long passed: otherwise what waits for it would wait as long as the clock went back.
bool isWithin(Seconds span, const std::optional<TimePoint>& since, TimePoint now) {
    return since && *since <= now && now - *since < span;
}

/// The whole minutes of UTC up to the instant. No local day begins within one: every zone of our
/// time is whole minutes away from UTC.
std::int64_t minuteOf(TimePoint instant) {
    return static_cast<std::int64_t>(std::floor(instant.time_since_epoch() / Seconds(60)));
}

/// Clears a flag whichever way the task that holds it ends.
class FlagClearer {
public:
    explicit FlagClearer(bool& flag)
        : m_flag(flag) {}
    FlagClearer(const FlagClearer&) = delete;
    FlagClearer& operator=(const FlagClearer&) = delete;
    FlagClearer(FlagClearer&&) = delete;
    FlagClearer& operator=(FlagClearer&&) = delete;
    ~FlagClearer() { m_flag = false; }

private:
    bool& m_flag;
};

}  // namespace

AppState::AppState(AppStateDependencies dependencies)
    : m_api(dependencies.api)
    , m_stream(dependencies.stream)
    , m_store(std::move(dependencies.store))
    , m_settingsStore(std::move(dependencies.settingsStore))
    , m_catalog(dependencies.catalog)
    , m_now(std::move(dependencies.now))
    , m_calendar(std::move(dependencies.calendar))
    , m_sleeper(std::move(dependencies.sleeper))
    , m_watchdogInterval(dependencies.watchdogInterval)
    , m_staleReconnectThreshold(dependencies.staleReconnectThreshold)
    , m_watchlist(m_store.load())
    , m_settings(m_settingsStore.load())
    , m_scope(dependencies.executor) {
    updateMenuBarText();
}

Task<void> AppState::bootstrap() {
    m_scope.spawn(consumeEvents());
    m_scope.spawn(runWatchdog());
    co_await subscribeStream();
    co_await refreshSnapshot();
    co_await refreshTodayOpens();
}

Task<void> AppState::resume() {
    // The prices from before the sleep are old by now, whether or not fresh ones come.
    updateMenuBarText();
    co_await subscribeStream();
    co_await refreshSnapshot();
}

Task<void> AppState::subscribeStream() {
    std::vector<std::string> watched = followedSymbols();
    co_await m_stream.setSymbols(std::move(watched));
}

std::vector<std::string> AppState::followedSymbols() const {
    const std::vector<Coin>& coins = m_watchlist->coins;
    const std::size_t count = std::min(coins.size(), kMaximumFollowed);
    std::vector<std::string> symbols;
    symbols.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        symbols.push_back(coins[index].symbol);
    }
    const auto& pinned = m_watchlist->pinnedSymbol;
    if (count < coins.size() && pinned && m_watchlist->contains(*pinned)
        && std::find(symbols.begin(), symbols.end(), *pinned) == symbols.end()) {
        symbols.back() = *pinned;
    }
    return symbols;
}

// The stream

Task<void> AppState::consumeEvents() {
    while (auto event = co_await m_stream.events().next()) {
        handle(*event);
    }
}

void AppState::handle(const PriceEvent& event) {
    if (const auto* const stateEvent = std::get_if<StateEvent>(&event)) {
        m_connectionState.set(stateEvent->state);
    } else {
        handleTicker(std::get<TickerEvent>(event));
    }
}

void AppState::handleTicker(const TickerEvent& event) {
    const TimePoint now = m_now();
    m_tickers.set(event.symbol, event.ticker);
    m_lastUpdate.set(now);
    if (!isWithin(kLabelThrottle, m_lastLabelStamp, now)) {
        updateMenuBarText();
        m_lastLabelStamp = now;
    }
    checkTodayOpensFreshness(now);
}

Task<void> AppState::runWatchdog() {
    for (;;) {
        co_await m_sleeper(m_watchdogInterval);
        // No event drops the price of a stream that has fallen silent.
        updateMenuBarText();
        co_await checkStaleConnection();
    }
}

Task<void> AppState::checkStaleConnection() {
    const bool isSilent = *m_connectionState == ConnectionState::connected
                          && m_lastUpdate->has_value() && silence() > m_staleReconnectThreshold;
    if (isSilent) {
        co_await subscribeStream();
    }
}

bool AppState::isDataStale() const {
    if (*m_connectionState != ConnectionState::connected) {
        return true;
    }
    return m_lastUpdate->has_value() && silence() > kStaleDataThreshold;
}

Seconds AppState::silence() const {
    return m_now() - m_lastUpdate->value_or(kDistantPast);
}

Task<void> AppState::refreshSnapshot() {
    if (m_watchlist->coins.empty()) {
        co_return;
    }
    try {
        std::vector<std::string> watched = followedSymbols();
        const TickerMap snapshot = co_await m_api.ticker24h(std::move(watched));
        for (const Coin& coin : m_watchlist->coins) {
            if (const auto found = snapshot.find(coin.symbol); found != snapshot.end()) {
                m_tickers.set(coin.symbol, found->second);
            }
        }
        m_lastUpdate.set(m_now());
        updateMenuBarText();
    } catch (const std::exception& error) {
        m_logger.error("snapshot refresh failed: {}", error.what());
    }
}

// The label

std::string AppState::computeMenuBarText() const {
    const Watchlist& watchlist = *m_watchlist;
    if (!watchlist.pinnedSymbol) {
        return std::string(kTextWithoutPin);
    }
    const std::string& symbol = *watchlist.pinnedSymbol;
    const auto coin = std::find_if(watchlist.coins.begin(),
                                   watchlist.coins.end(),
                                   [&](const Coin& each) { return each.symbol == symbol; });
    if (coin == watchlist.coins.end()) {
        return std::string(kTextWithoutPin);
    }
    const Ticker* const ticker = m_tickers.find(symbol);
    if (ticker == nullptr || silence() > kStaleDataThreshold) {
        return coin->baseAsset;
    }
    return fmt::format("{} {} {}",
                       coin->baseAsset,
                       PriceFormatter::price(ticker->lastPrice),
                       PriceFormatter::menuBarChange(displayPercent(symbol)));
}

void AppState::updateMenuBarText() {
    m_menuBarText.set(computeMenuBarText());
}

std::optional<double> AppState::displayPercent(const std::string& symbol) const {
    const Ticker* const ticker = m_tickers.find(symbol);
    if (ticker == nullptr) {
        return std::nullopt;
    }
    const double* const open = m_todayOpens.find(symbol);
    const std::optional<double> todayOpen =
        open == nullptr ? std::nullopt : std::optional<double>(*open);
    return ChangeCalculator::percent(
        ticker->lastPrice, ticker->openPrice24h, todayOpen, m_settings->changeBasis);
}

// Today's opens

void AppState::invalidateTodayOpensIfDayChanged(TimePoint now) {
    const std::int64_t today = LocalDay::key(now, m_calendar);
    if (m_todayOpensDayKey != today) {
        m_todayOpensDayKey = today;
        m_freshOpensMinute.reset();
        m_todayOpens.clear();
    }
}

void AppState::checkTodayOpensFreshness(TimePoint now) {
    if (m_settings->changeBasis != ChangeBasis::today || m_isRefreshingTodayOpens) {
        return;
    }
    // Neither the day nor what is there changes within a minute, but for the edits that reset it.
    const std::int64_t minute = minuteOf(now);
    if (m_freshOpensMinute == minute) {
        return;
    }
    const auto& coins = m_watchlist->coins;
    const bool areFresh = m_todayOpensDayKey == LocalDay::key(now, m_calendar)
                          && std::all_of(coins.begin(), coins.end(), [this](const Coin& coin) {
                                 return m_todayOpens.find(coin.symbol) != nullptr;
                             });
    if (areFresh) {
        m_freshOpensMinute = minute;
    } else {
        startTodayOpensRefresh();
    }
}

void AppState::startTodayOpensRefresh() {
    m_isRefreshingTodayOpens = true;
    m_scope.spawn(refreshTodayOpensInBackground());
}

Task<void> AppState::refreshTodayOpensInBackground() {
    const FlagClearer clearer(m_isRefreshingTodayOpens);
    co_await refreshTodayOpens();
}

Task<void> AppState::refreshTodayOpens() {
    if (m_settings->changeBasis != ChangeBasis::today) {
        co_return;
    }
    const TimePoint now = m_now();
    invalidateTodayOpensIfDayChanged(now);
    if (isWithin(kTodayOpensRetrySpacing, m_lastTodayOpensAttempt, now)) {
        co_return;
    }
    m_lastTodayOpensAttempt = now;
    std::vector<std::string> missing = followedSymbols();
    std::erase_if(missing, [this](const std::string& symbol) {
        return m_todayOpens.find(symbol) != nullptr;
    });
    const LocalMidnight midnight{LocalDay::key(now, m_calendar),
                                 LocalDay::midnightEpochMs(now, m_calendar)};
    for (const std::string& symbol : missing) {
        co_await fetchTodayOpen(symbol, midnight);
    }
    updateMenuBarText();
}

Task<void> AppState::fetchTodayOpen(std::string symbol, LocalMidnight midnight) {
    try {
        const std::vector<Candle> candles =
            co_await m_api.klines(symbol, "1m", 1, midnight.epochMs);
        if (candles.empty()) {
            m_logger.log("today open fetch returned an empty candle list for {}", symbol);
        } else if (m_todayOpensDayKey == midnight.dayKey) {
            // Otherwise the opens of the next day are being collected by now.
            m_todayOpens.set(symbol, candles.front().open);
        }
    } catch (const std::exception& error) {
        m_logger.error("today open refresh failed for {}: {}", symbol, error.what());
    }
}

// Edits

void AppState::applyWatchlist(Watchlist watchlist) {
    m_freshOpensMinute.reset();
    m_watchlist.set(std::move(watchlist));
    try {
        m_store.save(*m_watchlist);
        m_lastError.set(std::nullopt);
    } catch (const std::exception& error) {
        m_logger.error("failed to persist watchlist: {}", error.what());
        m_lastError.set(std::string(kNotSaved));
    }
    updateMenuBarText();
}

Task<void> AppState::add(Coin coin) {
    Watchlist edited = m_watchlist->adding(coin);
    if (edited == *m_watchlist) {
        co_return;
    }
    applyWatchlist(std::move(edited));
    co_await subscribeStream();
    co_await refreshSnapshot();
    co_await refreshTodayOpens();
}

Task<void> AppState::remove(std::string symbol) {
    Watchlist edited = m_watchlist->removing(symbol);
    if (edited == *m_watchlist) {
        co_return;
    }
    applyWatchlist(std::move(edited));
    m_tickers.remove(symbol);
    m_todayOpens.remove(symbol);
    co_await subscribeStream();
}

Task<void> AppState::move(std::set<std::size_t> fromOffsets, std::size_t toOffset) {
    Watchlist edited = m_watchlist->moving(fromOffsets, toOffset);
    if (edited != *m_watchlist) {
        applyWatchlist(std::move(edited));
    }
    co_return;
}

void AppState::pin(std::string_view symbol) {
    applyWatchlist(m_watchlist->pinning(symbol));
}

void AppState::saveSettings(std::string_view textOnFailure) {
    try {
        m_settingsStore.save(*m_settings);
        m_lastError.set(std::nullopt);
    } catch (const std::exception& error) {
        m_logger.error("failed to persist settings: {}", error.what());
        m_lastError.set(std::string(textOnFailure));
    }
}

void AppState::setChangeBasis(ChangeBasis basis) {
    if (basis == m_settings->changeBasis) {
        return;
    }
    m_settings.set(m_settings->settingBasis(basis));
    saveSettings(kNotSaved);
    invalidateTodayOpensIfDayChanged(m_now());
    updateMenuBarText();
    if (basis == ChangeBasis::today && !m_isRefreshingTodayOpens) {
        startTodayOpensRefresh();
    }
}

void AppState::setAppearance(AppearanceMode mode) {
    if (mode == m_settings->appearance) {
        return;
    }
    m_settings.set(m_settings->settingAppearance(mode));
    saveSettings(kAppearanceNotSaved);
}

void AppState::setLastBoard(std::optional<RankingBoard> board) {
    if (board == m_settings->lastBoard) {
        return;
    }
    m_settings.set(m_settings->settingLastBoard(board));
    try {
        m_settingsStore.save(*m_settings);
    } catch (const std::exception& error) {
        m_logger.log("save last board failed: {}", error.what());
    }
}

// Charts

Task<std::vector<Candle>> AppState::chart(std::string symbol, ChartRange range) {
    if (std::optional<std::vector<Candle>> cached = m_chartCache.value(symbol, range, m_now())) {
        co_return *std::move(cached);
    }
    std::string candleInterval(interval(range));
    std::vector<Candle> candles =
        co_await m_api.klines(symbol, std::move(candleInterval), limit(range), std::nullopt);
    m_chartCache = m_chartCache.inserting(candles, symbol, range, m_now());
    co_return candles;
}

}  // namespace quillbar
