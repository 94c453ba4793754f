// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertBook.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbar {

namespace {

bool isPrice(double value) {
    return std::isfinite(value) && value > 0;
}

// An armed alert waits for its line. Another one waits for the level that arms it, which is reached
// from the other side.
bool waitsForRise(const Alert& alert) {
    return isRising(alert.kind) == alert.isArmed;
}

double awaitedLevel(const Alert& alert) {
    return alert.isArmed ? alert.threshold : alert.rearmLevel();
}

}  // namespace

AlertBook::Lines& AlertBook::linesOf(Pair& pair, const Alert& alert) {
    return watchesPrice(alert.kind) ? pair.price : pair.change;
}

void AlertBook::enter(Pair& pair, const Alert& alert) {
    Lines& lines = linesOf(pair, alert);
    const Level level{awaitedLevel(alert), alert.id};
    if (waitsForRise(alert)) {
        lines.rising.insert(level);
    } else {
        lines.falling.insert(level);
    }
}

void AlertBook::withdraw(Pair& pair, const Alert& alert) {
    Lines& lines = linesOf(pair, alert);
    const Level level{awaitedLevel(alert), alert.id};
    if (waitsForRise(alert)) {
        lines.rising.erase(level);
    } else {
        lines.falling.erase(level);
    }
}

void AlertBook::collect(Lines& lines, double value, std::vector<std::int64_t>& reached) {
    while (!lines.rising.empty() && lines.rising.begin()->first <= value) {
        reached.push_back(lines.rising.begin()->second);
        lines.rising.erase(lines.rising.begin());
    }
    while (!lines.falling.empty() && lines.falling.begin()->first >= value) {
        reached.push_back(lines.falling.begin()->second);
        lines.falling.erase(lines.falling.begin());
    }
}

void AlertBook::add(const Alert& alert, Latest latest) {
    if (!m_alerts.emplace(alert.id, alert).second) {
        return;
    }
    Pair& pair = m_pairs[alert.symbol];
    if (!alert.isOn) {
        return;
    }
    // Without lines nobody may have offered the prices of the pair, so its gap means nothing.
    if (pair.price.isEmpty() && pair.change.isEmpty()) {
        pair.gap = m_gap;
    }
    if (latest == Latest::old) {
        pair.unsure.insert(alert.id);
    }
    enter(pair, alert);
}

void AlertBook::remove(std::int64_t id) {
    const auto found = m_alerts.find(id);
    if (found == m_alerts.end()) {
        return;
    }
    Pair& pair = m_pairs[found->second.symbol];
    withdraw(pair, found->second);
    pair.unsure.erase(id);
    m_alerts.erase(found);
}

std::vector<Alert> AlertBook::removeAllOf(const std::string& symbol) {
    std::vector<Alert> removed;
    if (m_pairs.erase(symbol) == 0) {
        return removed;
    }
    for (auto each = m_alerts.begin(); each != m_alerts.end();) {
        if (each->second.symbol == symbol) {
            removed.push_back(each->second);
            each = m_alerts.erase(each);
        } else {
            ++each;
        }
    }
    return removed;
}

AlertBook::Outcome AlertBook::take(const std::string& symbol, const Ticker& ticker) {
    Outcome outcome;
    const auto found = m_pairs.find(symbol);
    if (found == m_pairs.end() || !isPrice(ticker.lastPrice)) {
        return outcome;
    }
    Pair& pair = found->second;
    const bool isAfterGap = std::exchange(pair.gap, m_gap) != m_gap;
    const std::set<std::int64_t> unsure = std::exchange(pair.unsure, {});
    const double change = isPrice(ticker.openPrice24h) ? ticker.changePercent24h() : 0;
    std::vector<std::int64_t> reached;
    collect(pair.price, ticker.lastPrice, reached);
    if (isPrice(ticker.openPrice24h) && std::isfinite(change)) {
        collect(pair.change, change, reached);
    }
    // All are collected first, because the same price may reach what is entered again.
    for (const std::int64_t id : reached) {
        outcome.hasChanged = true;
        Alert& alert = m_alerts.at(id);
        if (!alert.isArmed) {
            alert.isArmed = true;
            enter(pair, alert);
            continue;
        }
        outcome.fired.push_back({.alert = alert,
                                 .price = ticker.lastPrice,
                                 .changePercent = change,
                                 .isMeanwhile = isAfterGap || unsure.contains(id)});
        if (alert.margin) {
            alert.isArmed = false;
            enter(pair, alert);
        } else {
            m_alerts.erase(id);
        }
    }
    return outcome;
}

bool AlertBook::waitsForPrices() const {
    return std::any_of(
        m_alerts.begin(), m_alerts.end(), [](const auto& entry) { return entry.second.isOn; });
}

const Alert* AlertBook::find(std::int64_t id) const {
    const auto found = m_alerts.find(id);
    return found == m_alerts.end() ? nullptr : &found->second;
}

std::vector<Alert> AlertBook::alerts() const {
    std::vector<Alert> result;
    result.reserve(m_alerts.size());
    for (const auto& [id, alert] : m_alerts) {
        result.push_back(alert);
    }
    return result;
}

}  // namespace quillbar
