// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/platform/TextLanguage.h"

#include <QVariantMap>

#include <optional>

namespace quillbar {

/// What the running application reports about its label.
struct LabelReport final {
    LabelSnapshot label;
    /// As `LabelSource::isStarted`.
    bool isStarted = false;
    /// The language of its texts, which the label follows.
    TextLanguage language = TextLanguage::chinese;

    [[nodiscard]] bool operator==(const LabelReport&) const = default;
};

/// The report as it goes over the bus. Nothing that is absent has an entry; texts that are not good
/// UTF-8 are mended. Pure.
///
/// | entry | type | |
/// |---|---|---|
/// | text | text | the label |
/// | symbol, baseAsset | text | the pinned coin |
/// | price, openPrice24h, quoteVolume24h | double | its ticker |
/// | changePercent | double | its change on `basis` |
/// | basis | text | rolling24h or today |
/// | connection | text | disconnected, connecting, connected or waitingRetry |
/// | lastUpdate | double | seconds since 1970-01-01T00:00:00Z |
/// | failure | text | why no prices stream, in the language of the texts |
/// | showsPrice | boolean | whether the text shows the price |
/// | stale, started | boolean | |
/// | lastError | text | an edit that was not saved |
/// | language | text | "en" while the texts are English; none while they are Chinese |
[[nodiscard]] QVariantMap labelMessage(const LabelReport& report);

/// Reads such a message, whoever sent it. Absent when it has no text: then it is no label. Entries
/// of another type or with impossible values (numbers that are not finite, times before 1970 or
/// beyond the year 9999) count as missing; a coin needs both of its entries, a ticker a coin and
/// both prices. What is missing is at its default: stale and disconnected. Without `showsPrice` the
/// text shows a price when it is not the base asset alone. Pure.
[[nodiscard]] std::optional<LabelReport> labelReport(const QVariantMap& message);

}  // namespace quillbar
