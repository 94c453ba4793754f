// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ConnectionBanner.h"

#include "Quillbar/Spinner.h"
#include "Quillbar/text/LocalTimeText.h"

#include <QDateTime>

#include <chrono>
#include <utility>

namespace quillbar {

namespace {

constexpr int kSpacing = 6;
/// A small spinner of 16 points at 0.7 of its size.
constexpr int kSpinnerSize = 11;

}  // namespace

ConnectionBanner::ConnectionBanner(const AppState& state,
                                   QWidget* parent,
                                   std::function<QTimeZone()> zone,
                                   const QLocale& locale)
    : BannerRow(parent)
    , m_state(state)
    , m_zone(std::move(zone))
    , m_locale(locale) {
    auto* const spinner = new Spinner(kSpinnerSize, this);
    spinner->move(kPadding, (kHeight - spinner->height()) / 2);
    setTextIndent(kSpinnerSize + kSpacing);
    m_observations.push_back(
        state.connectionState().observe([this](ConnectionState /*state*/) { refresh(); }));
    m_observations.push_back(state.lastUpdate().observe(
        [this](const std::optional<TimePoint>& /*time*/) { refresh(); }));
    refresh();
}

QString ConnectionBanner::bannerText(std::optional<TimePoint> lastUpdate,
                                     const QTimeZone& zone,
                                     const QLocale& locale) {
    QString text = QStringLiteral("连接中…");
    if (lastUpdate) {
        const auto elapsed =
            std::chrono::floor<std::chrono::milliseconds>(lastUpdate->time_since_epoch());
        const QDateTime moment = QDateTime::fromMSecsSinceEpoch(elapsed.count(), zone);
        text +=
            QStringLiteral(" 最后更新 ") + LocalTimeText::hoursAndMinutes(moment.time(), locale);
    }
    return text;
}

void ConnectionBanner::refresh() {
    const bool isConnected = *m_state.connectionState() == ConnectionState::connected;
    // While prices come in, this is called at each of them.
    if (!isConnected) {
        setText(bannerText(*m_state.lastUpdate(), m_zone(), m_locale));
    }
    if (isConnected == !isHidden()) {
        setVisible(!isConnected);
    }
}

}  // namespace quillbar
