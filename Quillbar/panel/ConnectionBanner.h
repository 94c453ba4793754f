// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/BannerRow.h"
#include "QuillbarCore/exchange/ConnectionFailure.h"
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

/// The row that says that no prices are coming in, and when the last ones came. It is hidden while
/// the stream is connected. Its tooltip says why, and what to do; screen readers read it as the
/// description.
class ConnectionBanner final : public BannerRow {
public:
    /// The state outlives the banner. Times are written in `zone`, in the form of `locale`.
    explicit ConnectionBanner(const AppState& state,
                              QWidget* parent = nullptr,
                              std::function<QTimeZone()> zone = QTimeZone::systemTimeZone,
                              const QLocale& locale = QLocale());

    /// What the banner says when the last price came at `lastUpdate`. Pure.
    [[nodiscard]] static QString bannerText(std::optional<TimePoint> lastUpdate,
                                            const QTimeZone& zone,
                                            const QLocale& locale);
    /// What went wrong and what the user can do about it, in short lines of plain text; empty
    /// without a failure. Pure.
    [[nodiscard]] static QString advice(const std::optional<ConnectionFailure>& failure);

private:
    void refresh();

    const AppState& m_state;
    std::function<QTimeZone()> m_zone;
    QLocale m_locale;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
