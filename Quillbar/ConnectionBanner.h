// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/BannerRow.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppState.h"

#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <functional>
#include <optional>
#include <vector>

namespace quillbar {

/// The row that says that prices are not coming in, and from when the last ones
/// are; hidden while the stream is connected.
class ConnectionBanner final : public BannerRow {
public:
    /// The state outlives the banner. Times are told in `zone`, as `locale`
    /// writes them.
    explicit ConnectionBanner(const AppState& state,
                              QWidget* parent = nullptr,
                              std::function<QTimeZone()> zone = QTimeZone::systemTimeZone,
                              const QLocale& locale = QLocale());

    /// What the banner says when the last price came at `lastUpdate`. Pure.
    [[nodiscard]] static QString bannerText(std::optional<TimePoint> lastUpdate,
                                            const QTimeZone& zone,
                                            const QLocale& locale);

private:
    void refresh();

    const AppState& m_state;
    std::function<QTimeZone()> m_zone;
    QLocale m_locale;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
