// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppState.h"

#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/UserText.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <variant>

namespace quillbar {

namespace {

constexpr Seconds kLabelThrottle{1};

constexpr std::string_view kNotSaved = userText("core", "设置未能保存到磁盘");
constexpr std::string_view kAppearanceNotSaved =
    userText("core", "外观设置保存失败,重启后会恢复原值");

constexpr Seconds kRegionSpacing{60};
constexpr int kUnavailableForLegalReasons = 451;

bool isOfTheNetwork(const ConnectionFailure& failure) {
    return failure.kind == ConnectionFailure::Kind::hostNotFound
           || failure.kind == ConnectionFailure::Kind::cannotConnect;
}

bool isOfTheRegion(const ConnectionFailure& failure) {
    return failure.kind == ConnectionFailure::Kind::refused
           && failure.httpStatus == kUnavailableForLegalReasons;
}

}  // namespace

AppState::AppState(AppStateDependencies dependencies)
    : m_api(dependencies.api)
    , m_stream(dependencies.stream)
    , m_store(std::move(dependencies.store))
    , m_settingsStore(std::move(dependencies.settingsStore))
    , m_catalog(dependencies.catalog)
    , m_now(std::move(dependencies.now))
    , m_sleeper(std::move(dependencies.sleeper))
    , m_watchdogInterval(dependencies.watchdogInterval)
    , m_staleReconnectThreshold(dependencies.staleReconnectThreshold)
    , m_watchlist(dependencies.watchlist ? *std::move(dependencies.watchlist) : m_store.load())
    , m_priceTimes(m_now, std::move(dependencies.monotonic))
    , m_settings(m_settingsStore.load())
    , m_todayOpens({.executor = dependencies.executor,
                    .api = m_api,
                    .now = m_now,
                    .calendar = std::move(dependencies.calendar),
                    .sleeper = m_sleeper,
                    .watchlist = m_watchlist,
                    .settings = m_settings,
                    .onRefreshed = [this] { updateLabel(); }})
    , m_scope(dependencies.executor) {
    m_streamFailureObservation =
        m_stream.failure().observe([this](const std::optional<ConnectionFailure>& failure) {
            updateConnectionFailure();
            // Other servers may serve this region: ask all of them.
            if (failure && isOfTheRegion(*failure)) {
                askWhetherThisRegionIsServed();
            }
        });
    updateConnectionFailure();
    updateLabel();
}

Task<void> AppState::bootstrap() {
    m_scope.spawn(consumeEvents());
    m_scope.spawn(runWatchdog());
    co_await subscribeStream();
    co_await refreshSnapshot();
    co_await m_todayOpens.refresh();
}

Task<void> AppState::resume() {
    // The prices from before the sleep are old by now, whether or not fresh ones come.
    updateLabel();
    co_await subscribeStream();
    co_await refreshSnapshot();
}

Task<void> AppState::subscribeStream() {
    std::vector<std::string> watched = m_watchlist->followedSymbols();
    co_await m_stream.setSymbols(std::move(watched));
}

// The stream

Task<void> AppState::consumeEvents() {
    while (auto event = co_await m_stream.events().next()) {
        handle(*event);
    }
}

void AppState::handle(const PriceEvent& event) {
    if (const auto* const stateEvent = std::get_if<StateEvent>(&event)) {
        if (stateEvent->state != *m_connectionState) {
            m_connectionState.set(stateEvent->state);
            // Only the freshness changes: the label shows a new price at most once a second.
            m_pinnedQuote.set(pinnedQuoteNow());
        }
    } else {
        handleTicker(std::get<TickerEvent>(event));
    }
}

void AppState::handleTicker(const TickerEvent& event) {
    const TimePoint now = m_now();
    setTicker(event.symbol, event.ticker, now);
    noteUpdate(now);
    showPriceOfStream(now);
    m_todayOpens.check(now);
    m_streamed.tell(&event);
}

Task<void> AppState::runWatchdog() {
    for (;;) {
        co_await m_sleeper(m_watchdogInterval);
        // A silent stream sends no event at which its old price could be dropped.
        updateLabel();
        co_await checkStaleConnection();
    }
}

Task<void> AppState::checkStaleConnection() {
    const bool isSilent = *m_connectionState == ConnectionState::connected
                          && lastUpdate()->has_value()
                          && m_priceTimes.silence() > m_staleReconnectThreshold;
    if (isSilent) {
        co_await subscribeStream();
    }
}

bool AppState::isDataStale() const {
    if (*m_connectionState != ConnectionState::connected) {
        return true;
    }
    return lastUpdate()->has_value() && m_priceTimes.silence() > kStaleDataThreshold;
}

void AppState::noteUpdate(TimePoint now) {
    m_isOutsideRegion = false;
    m_priceTimes.noteUpdate(now);
}

void AppState::setTicker(const std::string& symbol, const Ticker& ticker, TimePoint now) {
    // First, because observers of m_tickers ask how old the price is.
    m_priceTimes.noteTicker(symbol, now);
    m_tickers.set(symbol, ticker);
}

Task<void> AppState::refreshSnapshot() {
    if (m_watchlist->coins.empty()) {
        co_return;
    }
    try {
        std::vector<std::string> watched = m_watchlist->followedSymbols();
        const TickerMap snapshot = co_await m_api.ticker24h(std::move(watched));
        const TimePoint now = m_now();
        for (const Coin& coin : m_watchlist->coins) {
            if (const auto found = snapshot.find(coin.symbol); found != snapshot.end()) {
                setTicker(coin.symbol, found->second, now);
            }
        }
        noteUpdate(now);
        updateLabel();
    } catch (const std::exception& error) {
        m_logger.error("snapshot refresh failed: {}", error.what());
        const ConnectionFailure failure = ConnectionFailure::of(std::current_exception());
        m_isOutsideRegion = failure.kind == ConnectionFailure::Kind::notServedHere;
    }
    updateConnectionFailure();
}

void AppState::updateConnectionFailure() {
    std::optional<ConnectionFailure> failure = *m_stream.failure();
    // Without a failure this region is served, and a missing network is the better reason.
    if (failure && m_isOutsideRegion && !isOfTheNetwork(*failure)) {
        failure = ConnectionFailure{.kind = ConnectionFailure::Kind::notServedHere};
    }
    m_connectionFailure.set(failure);
}

void AppState::askWhetherThisRegionIsServed() {
    const TimePoint now = m_now();
    if (!isYoungerThan(kRegionSpacing, m_lastRegionRequest, now)) {
        m_lastRegionRequest = now;
        m_scope.spawn(refreshSnapshot());
    }
}

// The label

PinnedQuote AppState::computePinnedQuote() const {
    const std::optional<std::string>& symbol = m_watchlist->pinnedSymbol;
    const auto index = symbol ? m_watchlist->indexOf(*symbol) : std::nullopt;
    return quoteOf(index ? std::optional(m_watchlist->coins[*index]) : std::nullopt);
}

PinnedQuote AppState::quoteOf(std::optional<Coin> coin) const {
    PinnedQuote quote{.coin = std::move(coin),
                      .basis = m_settings->changeBasis,
                      .connection = *m_connectionState};
    if (const Ticker* const ticker = quote.coin ? m_tickers.find(quote.coin->symbol) : nullptr) {
        quote.ticker = *ticker;
        quote.changePercent = displayPercent(quote.coin->symbol);
        if (m_priceTimes.silence() <= kStaleDataThreshold) {
            quote.freshness = presentFreshness();
        }
    }
    return quote;
}

PinnedQuote AppState::pinnedQuoteNow() const {
    PinnedQuote quote = *m_pinnedQuote;
    quote.connection = *m_connectionState;
    if (quote.showsPrice()) {
        quote.freshness = presentFreshness();
    }
    return quote;
}

PriceFreshness AppState::presentFreshness() const {
    return isDataStale() ? PriceFreshness::stale : PriceFreshness::live;
}

void AppState::updateLabel() {
    m_pinnedQuote.set(computePinnedQuote());
    m_menuBarText.set(m_pinnedQuote->text());
}

void AppState::showPriceOfStream(TimePoint now) {
    const bool isHeldBack = isYoungerThan(kLabelThrottle, m_lastLabelStamp, now);
    if (!isHeldBack) {
        updateLabel();
        m_lastLabelStamp = now;
        m_labelSecond.cancel();
    }
    // With a wall clock slower than the sleeper, a price can be held back after the second.
    if (!isHeldBack || !m_labelSecond.isRunning()) {
        m_labelSecond = m_scope.spawn(endLabelSecond());
    }
}

Task<void> AppState::endLabelSecond() {
    co_await m_sleeper(kLabelThrottle);
    // A price may have been held back, and in a quiet market no later one would show it.
    updateLabel();
}

std::optional<double> AppState::displayPercent(const std::string& symbol) const {
    const Ticker* const ticker = m_tickers.find(symbol);
    if (ticker == nullptr) {
        return std::nullopt;
    }
    const double* const open = m_todayOpens.opens().find(symbol);
    const std::optional<double> todayOpen =
        open == nullptr ? std::nullopt : std::optional<double>(*open);
    return ChangeCalculator::percent(
        ticker->lastPrice, ticker->openPrice24h, todayOpen, m_settings->changeBasis);
}

// Edits

void AppState::applyWatchlist(Watchlist watchlist) {
    m_watchlist.set(std::move(watchlist));
    try {
        m_store.save(*m_watchlist);
        m_lastError.set(std::nullopt);
    } catch (const std::exception& error) {
        m_logger.error("failed to persist watchlist: {}", error.what());
        m_lastError.set(std::string(kNotSaved));
    }
    updateLabel();
}

Task<void> AppState::addAll(std::vector<Coin> coins) {
    Watchlist edited = m_watchlist->addingAll(coins);
    if (edited == *m_watchlist) {
        co_return;
    }
    applyWatchlist(std::move(edited));
    co_await subscribeStream();
    co_await refreshSnapshot();
    co_await m_todayOpens.refresh();
}

Task<void> AppState::remove(std::string symbol) {
    Watchlist edited = m_watchlist->removing(symbol);
    if (edited == *m_watchlist) {
        co_return;
    }
    applyWatchlist(std::move(edited));
    m_priceTimes.remove(symbol);
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
    m_todayOpens.followBasis();
    updateLabel();
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
        // Do not wait for the disk, which may take half a second: a tab is not worth that.
        m_settingsStore.save(*m_settings, AtomicFile::Durability::process);
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
