// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/AlertStore.h"
#include "QuillbarCore/state/PreferencesStore.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <string>

namespace quillbar {

/// What a test of all stores knows of each.
template <class Store>
struct StoredDocument;

template <>
struct StoredDocument<WatchlistStore> {
    static constexpr const char* kName = "watchlist.json";
    static constexpr const char* kUnreadable = "WatchlistStore|default|load watchlist failed (";
    static constexpr const char* kLaterVersionLine =
        "WatchlistStore|error|unknown schema version 2, falling back to default";

    static Watchlist some() { return {1, {{"ETHUSDT", "ETH"}, {"XUSDT", "X"}}, "XUSDT"}; }
    static std::string someText() {
        return R"({"schemaVersion":1,"coins":[{"symbol":"ETHUSDT","baseAsset":"ETH"},)"
               R"({"symbol":"XUSDT","baseAsset":"X"}],"pinnedSymbol":"XUSDT"})";
    }
    static Watchlist other() { return {1, {{"SOLUSDT", "SOL"}}}; }
    static std::string otherText() {
        return R"({"schemaVersion":1,"coins":[{"symbol":"SOLUSDT","baseAsset":"SOL"}]})";
    }
    static std::string laterVersionText() { return R"({"schemaVersion":2,"coins":[]})"; }
    static const Watchlist& defaultDocument() { return Watchlist::defaultWatchlist(); }
};

template <>
struct StoredDocument<SettingsStore> {
    static constexpr const char* kName = "settings.json";
    static constexpr const char* kUnreadable = "SettingsStore|default|load settings failed (";
    static constexpr const char* kLaterVersionLine =
        "SettingsStore|error|unknown settings schema version 2, using default";

    static AppSettings some() {
        return {1, ChangeBasis::today, AppearanceMode::system, RankingBoard::marketCap};
    }
    static std::string someText() {
        return R"({"schemaVersion":1,"changeBasis":"today","appearance":"system",)"
               R"("lastBoard":"marketCap"})";
    }
    static AppSettings other() { return {1, ChangeBasis::today, AppearanceMode::light}; }
    static std::string otherText() {
        return R"({"schemaVersion":1,"changeBasis":"today","appearance":"light"})";
    }
    static std::string laterVersionText() {
        return R"({"schemaVersion":2,"changeBasis":"today","appearance":"light"})";
    }
    static const AppSettings& defaultDocument() { return AppSettings::defaultSettings(); }
};

template <>
struct StoredDocument<PreferencesStore> {
    static constexpr const char* kName = "preferences.json";
    static constexpr const char* kUnreadable = "PreferencesStore|default|load preferences failed (";
    static constexpr const char* kLaterVersionLine =
        "PreferencesStore|error|unknown preferences schema version 2, using default";

    static Preferences some() { return {1, ChangeColors::redUp}; }
    static std::string someText() { return R"({"schemaVersion":1,"changeColors":"redUp"})"; }
    static Preferences other() { return {1, ChangeColors::blueUp}; }
    static std::string otherText() { return R"({"schemaVersion":1,"changeColors":"blueUp"})"; }
    static std::string laterVersionText() {
        return R"({"schemaVersion":2,"changeColors":"redUp"})";
    }
    static const Preferences& defaultDocument() { return Preferences::defaultPreferences(); }
};

template <>
struct StoredDocument<AlertStore> {
    static constexpr const char* kName = "alerts.json";
    static constexpr const char* kUnreadable = "AlertStore|default|load alerts failed (";
    static constexpr const char* kLaterVersionLine =
        "AlertStore|error|unknown alerts schema version 2, using default";

    static Alert alert() {
        return {.id = 2,
                .symbol = "ETHUSDT",
                .baseAsset = "ETH",
                .kind = AlertKind::changeAtMost,
                .threshold = -5,
                .margin = 1.5,
                .note = "买",
                .isArmed = true};
    }
    static Alerts some() {
        return {.nextNumber = 8,
                .alerts = {alert()},
                .fired = {{.serial = 7,
                           .alert = alert(),
                           .price = 3000.5,
                           .changePercent = -5.25,
                           .time = 1794657600,
                           .isMeanwhile = true}}};
    }
    static std::string alertText() {
        return R"({"id":2,"symbol":"ETHUSDT","baseAsset":"ETH","kind":"changeAtMost",)"
               R"("threshold":-5.0,"margin":1.5,"note":"买","armed":true})";
    }
    static std::string someText() {
        return R"({"schemaVersion":1,"nextNumber":8,"alerts":[)" + alertText()
               + R"(],"fired":[{"serial":7,"alert":)" + alertText()
               + R"(,"price":3000.5,"change":-5.25,"time":1794657600,"meanwhile":true}]})";
    }
    static Alerts other() {
        return {.nextNumber = 3,
                .alerts = {{.id = 1, .symbol = "XUSDT", .baseAsset = "X", .threshold = 2}}};
    }
    static std::string otherText() {
        return R"({"schemaVersion":1,"nextNumber":3,"alerts":[{"id":1,"symbol":"XUSDT",)"
               R"("baseAsset":"X","kind":"priceAtLeast","threshold":2.0,"armed":false}],"fired":[]})";
    }
    static std::string laterVersionText() { return R"({"schemaVersion":2,"alerts":7})"; }
    static const Alerts& defaultDocument() { return AlertsDocument::defaultDocument(); }
};

}  // namespace quillbar
