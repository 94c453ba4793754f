// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertKeeper.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

std::int64_t wholeSeconds(TimePoint instant) {
    return std::max<std::int64_t>(0, std::llround(instant.time_since_epoch().count()));
}

/// A missing file is not logged, because most users have no alerts.
Alerts storedIn(AlertStore& store) {
    std::error_code error;
    const auto status = std::filesystem::symlink_status(store.path(), error);
    return status.type() == std::filesystem::file_type::not_found
               ? AlertsDocument::defaultDocument()
               : store.load();
}

}  // namespace

AlertKeeper::AlertKeeper(AlertKeeperDependencies dependencies)
    : m_appState(dependencies.appState)
    , m_store(std::move(dependencies.store))
    , m_now(std::move(dependencies.now))
    , m_monotonic(std::move(dependencies.monotonic))
    , m_sleeper(std::move(dependencies.sleeper))
    , m_watchlist(*m_appState.watchlist())
    , m_scope(dependencies.executor) {
    const Alerts stored = storedIn(m_store);
    m_nextNumber = stored.nextNumber;
    for (const Alert& alert : stored.alerts) {
        m_book.add(alert);
    }
    m_fired.set(stored.fired);
    m_alerts.set(m_book.alerts());
    m_connection = m_appState.connectionState().observe([this](ConnectionState state) {
        if (state != ConnectionState::connected) {
            m_book.markGap();
        }
    });
    m_list = m_appState.watchlist().observe([this](const Watchlist& list) { onWatchlist(list); });
    follow();
}

// The alerts

std::vector<Alert> AlertKeeper::alertsOf(std::string_view symbol) const {
    std::vector<Alert> result;
    std::copy_if(m_alerts->begin(),
                 m_alerts->end(),
                 std::back_inserter(result),
                 [symbol](const Alert& alert) { return alert.symbol == symbol; });
    return result;
}

bool AlertKeeper::has(std::string_view symbol) const {
    return std::any_of(m_alerts->begin(), m_alerts->end(), [symbol](const Alert& alert) {
        return alert.isOn && alert.symbol == symbol;
    });
}

bool AlertKeeper::isOnNearSide(const Alert& alert) const {
    const Ticker* const ticker = m_appState.tickers().find(alert.symbol);
    return ticker != nullptr
           && !alert.isReachedBy(watchesPrice(alert.kind) ? ticker->lastPrice
                                                          : ticker->changePercent24h());
}

AlertBook::Latest AlertKeeper::latest() const {
    return m_appState.isDataStale() ? AlertBook::Latest::old : AlertBook::Latest::live;
}

std::optional<std::int64_t> AlertKeeper::add(Alert alert, std::optional<double> seen) {
    if (!alert.isSound()) {
        return std::nullopt;
    }
    alert.id = takeNumber();
    alert.isArmed = isOnNearSide(alert) || (seen && !alert.isReachedBy(*seen));
    m_book.add(alert, latest());
    save(*m_fired);
    tell();
    return alert.id;
}

void AlertKeeper::remove(std::int64_t id) {
    if (m_book.find(id) != nullptr) {
        m_book.remove(id);
        save(*m_fired);
        tell();
    }
}

void AlertKeeper::putBack(const Alert& alert) {
    const bool wasGiven = alert.id > 0 && alert.id < m_nextNumber;
    if (wasGiven && alert.isSound() && m_book.find(alert.id) == nullptr) {
        m_book.add(alert);
        save(*m_fired);
        tell();
    }
}

void AlertKeeper::switchOff(std::int64_t id) {
    const Alert* const found = m_book.find(id);
    if (found != nullptr && found->isOn) {
        Alert alert = *found;
        alert.isOn = false;
        alert.isArmed = false;
        replace(alert);
    }
}

void AlertKeeper::switchOn(std::int64_t id) {
    const Alert* const found = m_book.find(id);
    if (found != nullptr && !found->isOn) {
        Alert alert = *found;
        alert.isOn = true;
        alert.isArmed = isOnNearSide(alert);
        replace(alert);
    }
}

void AlertKeeper::replace(const Alert& alert) {
    m_book.remove(alert.id);
    m_book.add(alert, latest());
    save(*m_fired);
    tell();
}

void AlertKeeper::onWatchlist(const Watchlist& watchlist) {
    const Watchlist before = std::exchange(m_watchlist, watchlist);
    std::vector<Alert> removed;
    bool isRemoval = false;
    for (const Coin& coin : before.coins) {
        if (!watchlist.contains(coin.symbol)) {
            isRemoval = true;
            std::vector<Alert> alerts = m_book.removeAllOf(coin.symbol);
            removed.insert(removed.end(), alerts.begin(), alerts.end());
        }
    }
    if (!isRemoval) {
        return;
    }
    m_removed = std::move(removed);
    if (!m_removed.empty()) {
        save(*m_fired);
        tell();
    }
}

void AlertKeeper::restore(const std::string& symbol) {
    const std::vector<Alert> removed = std::exchange(m_removed, {});
    bool isRestored = false;
    for (const Alert& alert : removed) {
        if (alert.symbol == symbol) {
            m_book.add(alert);
            isRestored = true;
        }
    }
    if (isRestored) {
        save(*m_fired);
        tell();
    }
}

// Prices

void AlertKeeper::follow() {
    const bool isFollowing = m_prices.connected();
    if (m_book.waitsForPrices() == isFollowing) {
        return;
    }
    if (isFollowing) {
        m_prices.disconnect();
        m_beating.cancel();
        m_settling.cancel();
        m_held.clear();
        return;
    }
    m_prices = m_appState.observeStream([this](const TickerEvent& event) { onPrice(event); });
    m_seenRunning = m_monotonic();
    m_heardAt = m_seenRunning;
    m_beating = m_scope.spawn(beat());
}

Task<void> AlertKeeper::beat() {
    for (;;) {
        co_await m_sleeper(kBeat);
        static_cast<void>(isTrusted());
        m_seenRunning = m_monotonic();
    }
}

bool AlertKeeper::isTrusted() {
    const Seconds now = m_monotonic();
    if (now - m_seenRunning > kMaximumAge) {
        m_book.markGap();
        m_settling.cancel();
        m_held.clear();
        m_seenRunning = now;
        m_heardAt = now;
        m_trustedFrom = now + kSettling;
    }
    return now >= m_trustedFrom;
}

void AlertKeeper::onPrice(const TickerEvent& event) {
    const bool isTrustedNow = isTrusted();
    const Seconds now = m_monotonic();
    const bool wasSilent = now - std::exchange(m_heardAt, now) > kMaximumAge;
    if (!isTrustedNow) {
        return;
    }
    if (wasSilent || m_settling.isRunning()) {
        m_held.insert_or_assign(event.symbol, event.ticker);
        if (!m_settling.isRunning()) {
            m_settling = m_scope.spawn(takeHeld());
        }
        return;
    }
    take(event.symbol, event.ticker);
}

Task<void> AlertKeeper::takeHeld() {
    co_await m_sleeper(kSettling);
    if (!isTrusted()) {
        co_return;
    }
    for (const auto& [symbol, ticker] : std::exchange(m_held, {})) {
        take(symbol, ticker);
    }
}

void AlertKeeper::take(const std::string& symbol, const Ticker& ticker) {
    const AlertBook::Outcome outcome = m_book.take(symbol, ticker);
    if (!outcome.fired.empty()) {
        fire(outcome.fired);
    } else if (outcome.hasChanged) {
        save(*m_fired);
        tell();
    }
}

void AlertKeeper::fire(const std::vector<AlertBook::Firing>& firings) {
    std::vector<FiredAlert> fired = *m_fired;
    const std::int64_t time = wholeSeconds(m_now());
    for (const AlertBook::Firing& firing : firings) {
        std::erase_if(fired, [&firing](const FiredAlert& earlier) {
            return earlier.alert.id == firing.alert.id;
        });
        fired.push_back({.serial = takeNumber(),
                         .alert = firing.alert,
                         .price = firing.price,
                         .changePercent = firing.changePercent,
                         .time = time,
                         .isMeanwhile = firing.isMeanwhile});
        m_logger.log("alert {} of {} fired", firing.alert.id, firing.alert.symbol);
    }
    // Save first: the process may be killed while observers are called.
    save(fired);
    tell();
    m_fired.set(std::move(fired));
}

void AlertKeeper::markShown(std::int64_t serial) {
    std::vector<FiredAlert> fired = *m_fired;
    if (std::erase_if(fired, [serial](const FiredAlert& each) { return each.serial == serial; })
        > 0) {
        save(fired);
        m_fired.set(std::move(fired));
    }
}

// The file

std::int64_t AlertKeeper::takeNumber() {
    return m_nextNumber++;
}

void AlertKeeper::save(const std::vector<FiredAlert>& fired) {
    bool isSaved = false;
    try {
        m_store.save({.nextNumber = m_nextNumber, .alerts = m_book.alerts(), .fired = fired});
        isSaved = true;
    } catch (const std::exception& error) {
        m_logger.error("failed to persist alerts: {}", error.what());
    }
    if (isSaved != *m_isSaved) {
        m_isSaved.set(isSaved);
    }
}

void AlertKeeper::tell() {
    follow();
    m_alerts.set(m_book.alerts());
}

}  // namespace quillbar
