// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/model/Ticker.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillbar {

/// Holds the alerts and finds which of them a price fires. It knows neither time nor files: its
/// owner reports where prices were missing, and passes on only prices that are fresh and live.
///
/// The lines of each pair are sorted, so a price is compared with the nearest lines alone, however
/// many alerts there are. Not safe to share between threads.
class AlertBook final {
public:
    /// One alert that a price fired.
    struct Firing final {
        /// As it was before.
        Alert alert;
        double price = 0;
        double changePercent = 0;
        /// As `FiredAlert::isMeanwhile`.
        bool isMeanwhile = false;
    };
    struct Outcome final {
        std::vector<Firing> fired = {};
        /// Whether the alerts differ from those before the price.
        bool hasChanged = false;
    };
    /// Whether the latest price of an alert's pair is live.
    enum class Latest { live, old };

    /// Adds an alert that is sound and has a new id. If it fires at the next price of its pair and
    /// `latest` is old, it does so with `isMeanwhile`.
    void add(const Alert& alert, Latest latest = Latest::old);
    /// Does nothing for an id that is not there.
    void remove(std::int64_t id);
    /// Removes the alerts of a pair and returns them, by id.
    std::vector<Alert> removeAllOf(const std::string& symbol);

    /// Notes that prices may have been missed until now. If the next price of a pair shows that an
    /// alert's line was crossed meanwhile, the alert fires with `isMeanwhile`.
    void markGap() noexcept { ++m_gap; }

    /// A live price. An alert fires when it is armed and the price, or its change over 24 hours, is
    /// on its line or beyond. One that fires once is gone then; another is armed again by a price
    /// that has gone back by its margin. Each alert does one of these at most; one that is switched
    /// off does neither. A price that is not finite or not above 0 changes nothing, nor does the
    /// change when the open is no such number.
    Outcome take(const std::string& symbol, const Ticker& ticker);

    [[nodiscard]] bool isEmpty() const noexcept { return m_alerts.empty(); }
    /// Whether any alert is switched on, so that prices matter.
    [[nodiscard]] bool waitsForPrices() const;
    /// The alert of that id; null for none. Valid until the book changes.
    [[nodiscard]] const Alert* find(std::int64_t id) const;
    /// Every alert, by id.
    [[nodiscard]] std::vector<Alert> alerts() const;

private:
    using Level = std::pair<double, std::int64_t>;
    /// The levels of one value: those that are reached from below, the lowest first, and those that
    /// are reached from above, the highest first.
    struct Lines {
        std::set<Level> rising;
        std::set<Level, std::greater<>> falling;

        [[nodiscard]] bool isEmpty() const noexcept { return rising.empty() && falling.empty(); }
    };
    struct Pair {
        Lines price;
        Lines change;
        /// The gap after which its latest live price came, while there are lines.
        std::uint64_t gap = 0;
        /// The alerts that were added with an old price since then.
        std::set<std::int64_t> unsure;
    };

    static Lines& linesOf(Pair& pair, const Alert& alert);
    static void enter(Pair& pair, const Alert& alert);
    static void withdraw(Pair& pair, const Alert& alert);
    static void collect(Lines& lines, double value, std::vector<std::int64_t>& reached);

    std::map<std::int64_t, Alert> m_alerts;
    // The pairs that have alerts, or had some.
    std::unordered_map<std::string, Pair> m_pairs;
    // How many gaps there were. Nothing is known before the first price.
    std::uint64_t m_gap = 1;
};

}  // namespace quillbar
