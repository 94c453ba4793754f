// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// What an alert watches, and from which side its line is crossed.
enum class AlertKind : std::uint8_t {
    priceAtLeast,
    priceAtMost,
    /// The change over the rolling 24 hours, whatever basis the user's settings have.
    changeAtLeast,
    changeAtMost,
};

inline constexpr std::array kAllAlertKinds{AlertKind::priceAtLeast,
                                           AlertKind::priceAtMost,
                                           AlertKind::changeAtLeast,
                                           AlertKind::changeAtMost};

/// The text that stands for the kind in the file. Stable for ever.
[[nodiscard]] std::string_view rawValue(AlertKind kind);
/// The kind of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<AlertKind> alertKindFromRawValue(std::string_view rawText);

/// Whether the line is crossed upwards.
[[nodiscard]] bool isRising(AlertKind kind);
/// Whether the kind watches the price, and not the change.
[[nodiscard]] bool watchesPrice(AlertKind kind);

/// A line of the user's, and what becomes of it when it is crossed. A plain value.
struct Alert final {
    /// Greater than 0, and unique among all alerts there ever were.
    std::int64_t id = 0;
    /// The pair, as the watchlist has it.
    std::string symbol = {};
    /// The pair's base asset, for texts.
    std::string baseAsset = {};
    AlertKind kind = AlertKind::priceAtLeast;
    /// In the quote asset, or in percent.
    double threshold = 0;
    /// How far the value must go back behind the line before the alert can fire again, in the unit
    /// of the threshold. Absent for an alert that fires once.
    std::optional<double> margin = std::nullopt;
    /// The user's own words; may be empty.
    std::string note = {};
    /// Whether a known value stood on the near side of the line since the alert fired last. Only
    /// then does it fire.
    bool isArmed = false;
    /// Whether the user has it switched on. While it is off, no price fires it or arms it.
    bool isOn = true;

    /// Whether that value is on the line or beyond it.
    [[nodiscard]] bool isReachedBy(double value) const;
    /// The value at which an alert that is not armed becomes armed, or which it must pass.
    [[nodiscard]] double rearmLevel() const;
    /// Whether every number is finite, a price is above 0, and the margin leads to a level on the
    /// near side of the line that a value can have. An alert that is not sound could fire without
    /// end.
    [[nodiscard]] bool isSound() const;

    [[nodiscard]] bool operator==(const Alert&) const = default;
};

/// An alert that fired. A plain value.
struct FiredAlert final {
    /// Greater than 0, and unique among everything that ever fired.
    std::int64_t serial = 0;
    /// The alert as it was before it fired.
    Alert alert;
    /// The price at which it fired, and the change over the rolling 24 hours in percent.
    double price = 0;
    double changePercent = 0;
    /// When, in whole seconds since 1970-01-01T00:00:00Z, by the wall clock.
    std::int64_t time = 0;
    /// Whether the line was crossed at some moment between two prices with a gap between them: the
    /// program did not run, the machine slept, or the connection was lost.
    bool isMeanwhile = false;

    [[nodiscard]] bool operator==(const FiredAlert&) const = default;
};

/// The stored document of the alerts. A plain value.
struct Alerts final {
    /// The version of the stored document that this program writes and understands.
    static constexpr std::int64_t kCurrentSchemaVersion = 1;
    /// The greatest number that a file may hold, far from where counting on would overflow.
    static constexpr std::int64_t kMaximumNumber = 1'000'000'000'000'000;

    std::int64_t schemaVersion = kCurrentSchemaVersion;
    /// The next id or serial; greater than all that were given.
    std::int64_t nextNumber = 1;
    /// By id.
    std::vector<Alert> alerts = {};
    /// What fired and has not been shown, the oldest first; at most one of each alert.
    std::vector<FiredAlert> fired = {};

    [[nodiscard]] bool operator==(const Alerts&) const = default;
};

}  // namespace quillbar
