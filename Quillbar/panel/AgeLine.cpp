// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AgeLine.h"

#include "Quillbar/platform/Translated.h"

#include <QEvent>
#include <QString>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

constexpr Seconds kMinute{60};

// A coin that has just been added has no price yet.
bool hasPrices(const AppState& state) {
    const std::vector<Coin>& coins = state.watchlist()->coins;
    return std::any_of(coins.begin(), coins.end(), [&state](const Coin& coin) {
        return state.tickers().find(coin.symbol) != nullptr;
    });
}

}  // namespace

AgeLine::AgeLine(const AppState& state, Clock now, QWidget& prices, QWidget* parent)
    : BannerRow(parent)
    , m_state(state)
    , m_now(std::move(now))
    , m_prices(prices)
    , m_timer(this) {
    m_timer.setObjectName(QStringLiteral("age"));
    m_timer.setInterval(kInterval);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { refresh(); });
    const auto changed = [this](const auto& /*value*/) { refresh(); };
    m_observations.push_back(state.connectionState().observe(changed));
    m_observations.push_back(state.lastUpdate().observe(changed));
    m_observations.push_back(state.watchlist().observe(changed));
    prices.installEventFilter(this);
    hide();
    follow();
}

std::optional<QString> AgeLine::textAt(const AppState& state, TimePoint now) {
    const std::optional<TimePoint> update = state.lastUpdateByPresentClock();
    if (*state.connectionState() != ConnectionState::connected || !state.isDataStale() || !update
        || !hasPrices(state)) {
        return std::nullopt;
    }
    // The wall clock may be a little behind the monotonic one, and still be within the first
    // minute.
    const int minutes = std::max(1, static_cast<int>((now - *update) / kMinute));
    return translated("panel", "行情已 %n 分钟没有更新", nullptr, minutes);
}

bool AgeLine::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        follow();
        break;
    case QEvent::Show:
        // The computer may have slept since the timer fired.
        refresh();
        break;
    default:
        break;
    }
    return BannerRow::eventFilter(watched, event);
}

void AgeLine::follow() {
    if (m_prices.isHidden()) {
        m_timer.stop();
    } else {
        m_timer.start();
    }
    refresh();
}

void AgeLine::refresh() {
    const auto text = m_prices.isHidden() ? std::nullopt : textAt(m_state, m_now());
    if (text) {
        setText(*text);
    }
    // This is called for each price that comes in.
    if (text.has_value() == isHidden()) {
        setVisible(text.has_value());
    }
}

}  // namespace quillbar
