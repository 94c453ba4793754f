// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSnapshot.h"
#include "QuillbarCore/runtime/Time.h"

#include <QString>

namespace quillbar {

/// Which way the change beside the price points.
enum class LabelDirection {
    up,
    down,
    flat,
    /// No price is shown, or the one shown must not be taken for live.
    stale,
};

/// Everything that the status item shows, ready to be drawn or sent. A plain value: two that are
/// equal look the same. Every text is a `OneLineText`, but for the line feeds of `details`.
struct LabelFace final {
    /// The whole label, "BTC 67,234.50 ▲ 1.23%". Never empty; at most 64 characters, of a longer
    /// one the ends.
    QString text = QStringLiteral("Quillbar");
    /// The pinned coin's base asset; empty when none is pinned. As short as the label.
    QString symbol;
    /// The price in at most five characters, "67.2k"; empty when the label shows none.
    QString shortPrice;
    /// The change in at most five characters, "+1.2%"; empty when none is known, or no price shown.
    QString shortChange;
    LabelDirection direction = LabelDirection::stale;
    /// What a tooltip says below the text, as plain lines: how old the data is, what the connection
    /// does and why it is down, and what is wrong beside that.
    QString details;

    [[nodiscard]] bool operator==(const LabelFace&) const = default;

    /// The face of `snapshot` at the instant `now`. Pure, but for the time zone of the update's
    /// time of day.
    ///
    /// The age of the data counts in minutes, then hours, then days: the tooltip does not change
    /// with every second. A face made at each change of the snapshot, and once a minute beside that,
    /// is never wrong for longer than a minute.
    [[nodiscard]] static LabelFace of(const LabelSnapshot& snapshot, TimePoint now);
};

}  // namespace quillbar
