// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/state/DocumentStore.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillbar {

/// What is peculiar to the stored alerts, "alerts.json":
///
///     {"schemaVersion":1,"nextNumber":4,"alerts":[{"id":1,"symbol":"BTCUSDT","baseAsset":"BTC",
///      "kind":"priceAtLeast","threshold":70000,"margin":700,"note":"卖","armed":true}],
///      "fired":[{"serial":3,"alert":{…},"price":70001,"change":2.5,"time":1794657600,
///      "meanwhile":false}]}
///
/// An alert that is switched off has `"on":false`. Only margin, note and on may be absent. Anything
/// else that is missing or unsound, a number that is given twice and one that is not below
/// `nextNumber` fail the whole document.
struct AlertsDocument final {
    using Document = Alerts;
    static constexpr std::string_view kFileName = "alerts.json";
    static constexpr std::string_view kLogCategory = "AlertStore";

    [[nodiscard]] static const Alerts& defaultDocument();
    [[nodiscard]] static Alerts decode(std::string_view text);
    [[nodiscard]] static std::string encode(const Alerts& alerts);
    static void logUnreadable(const Logger& logger, std::string_view reason);
    static void logUnknownVersion(const Logger& logger, std::int64_t version);
};

/// Keeps the user's alerts.
using AlertStore = DocumentStore<AlertsDocument>;

}  // namespace quillbar
