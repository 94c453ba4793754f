// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/ConnectionBanner.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/LocalTimeText.h"
#include "Quillbar/widgets/Spinner.h"
#include "Quillbar/widgets/TextScale.h"

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
    constexpr int kSpinnerTop = (kHeight - kSpinnerSize) / 2;
    TextScale::follow(*this, [this, spinner] {
        spinner->move(TextScale::length(*this, kPadding), TextScale::length(*this, kSpinnerTop));
    });
    setTextIndent(kSpinnerSize + kSpacing);
    m_observations.push_back(
        state.connectionState().observe([this](ConnectionState /*state*/) { refresh(); }));
    m_observations.push_back(state.connectionFailure().observe(
        [this](const std::optional<ConnectionFailure>& /*failure*/) { refresh(); }));
    m_observations.push_back(state.lastUpdate().observe(
        [this](const std::optional<TimePoint>& /*time*/) { refresh(); }));
    refresh();
}

QString ConnectionBanner::bannerText(std::optional<TimePoint> lastUpdate,
                                     const QTimeZone& zone,
                                     const QLocale& locale) {
    if (!lastUpdate) {
        return translated("panel", "连接中…");
    }
    const auto elapsed =
        std::chrono::floor<std::chrono::milliseconds>(lastUpdate->time_since_epoch());
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(elapsed.count(), zone);
    return translated("panel", "连接中… 最后更新 %1")
        .arg(LocalTimeText::hoursAndMinutes(moment.time(), locale));
}

QString ConnectionBanner::advice(const std::optional<ConnectionFailure>& failure) {
    if (!failure) {
        return {};
    }
    QString reason = QString::fromStdString(displayName(*failure));
    switch (failure->kind) {
    case ConnectionFailure::Kind::proxyFailed:
        return translated("panel",
                          "连不上代理。请检查 https_proxy、all_proxy 或桌面网络设置里的代理。\n"
                          "改了变量后，按 Ctrl+Q 退出后重新启动");
    case ConnectionFailure::Kind::hostNotFound:
    case ConnectionFailure::Kind::cannotConnect:
    case ConnectionFailure::Kind::timedOut:
    case ConnectionFailure::Kind::lost:
        return translated("panel",
                          "%1。请检查网络。\n"
                          "需要代理时，在桌面的网络设置里填写；\n"
                          "或设置 https_proxy、all_proxy，按 Ctrl+Q 退出后重新启动。\n"
                          "也可以改用自己的镜像：\n"
                          "QUILLBAR_REST_ENDPOINTS、QUILLBAR_STREAM_ENDPOINTS")
            .arg(reason);
    default:
        return reason;
    }
}

void ConnectionBanner::refresh() {
    const bool isConnected = *m_state.connectionState() == ConnectionState::connected;
    // This is called for each price that comes in.
    if (!isConnected) {
        setText(bannerText(*m_state.lastUpdate(), m_zone(), m_locale));
        setToolTip(advice(*m_state.connectionFailure()));
        setAccessibleDescription(toolTip());
    }
    if (isConnected == !isHidden()) {
        setVisible(!isConnected);
    }
}

}  // namespace quillbar
