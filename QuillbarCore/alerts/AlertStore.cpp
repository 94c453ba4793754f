// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertStore.h"

#include "QuillbarCore/model/JSONDocument.h"

#include <fmt/format.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

namespace quillbar {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSchemaVersion = "schemaVersion";
constexpr const char* kNextNumber = "nextNumber";
constexpr const char* kAlerts = "alerts";
constexpr const char* kFired = "fired";
constexpr const char* kId = "id";
constexpr const char* kSymbol = "symbol";
constexpr const char* kBaseAsset = "baseAsset";
constexpr const char* kKind = "kind";
constexpr const char* kThreshold = "threshold";
constexpr const char* kMargin = "margin";
constexpr const char* kNote = "note";
constexpr const char* kArmed = "armed";
constexpr const char* kOn = "on";
constexpr const char* kSerial = "serial";
constexpr const char* kAlert = "alert";
constexpr const char* kPrice = "price";
constexpr const char* kChange = "change";
constexpr const char* kTime = "time";
constexpr const char* kMeanwhile = "meanwhile";

// The last second of the year 9999.
constexpr std::int64_t kLatestTime = 253'402'300'799;

const ordered_json& requiredList(const ordered_json& object, const char* key) {
    const ordered_json& member = JSONDocument::requiredMember(object, key);
    if (!member.is_array()) {
        throw DocumentError(fmt::format("\"{}\" is not a list", key));
    }
    return member;
}

double requiredFinite(const ordered_json& object, const char* key) {
    const double number = JSONDocument::requiredNumber(object, key);
    if (!std::isfinite(number)) {
        throw DocumentError(fmt::format("\"{}\" is not finite", key));
    }
    return number;
}

std::int64_t requiredWithin(const ordered_json& object,
                            const char* key,
                            std::int64_t least,
                            std::int64_t greatest) {
    const std::int64_t number = JSONDocument::requiredInteger(object, key);
    if (number < least || number > greatest) {
        throw DocumentError(fmt::format("\"{}\" cannot be {}", key, number));
    }
    return number;
}

AlertKind requiredKind(const ordered_json& object) {
    const std::string rawText = JSONDocument::requiredString(object, kKind);
    const std::optional<AlertKind> kind = alertKindFromRawValue(rawText);
    if (!kind) {
        throw DocumentError(fmt::format(R"("{}" cannot be "{}")", kKind, rawText));
    }
    return *kind;
}

Alert alertFromJSON(const ordered_json& value, std::int64_t greatestNumber) {
    Alert alert;
    alert.id = requiredWithin(value, kId, 1, greatestNumber);
    alert.symbol = JSONDocument::requiredString(value, kSymbol);
    alert.baseAsset = JSONDocument::requiredString(value, kBaseAsset);
    alert.kind = requiredKind(value);
    alert.threshold = JSONDocument::requiredNumber(value, kThreshold);
    if (JSONDocument::optionalMember(value, kMargin) != nullptr) {
        alert.margin = JSONDocument::requiredNumber(value, kMargin);
    }
    if (JSONDocument::optionalMember(value, kNote) != nullptr) {
        alert.note = JSONDocument::requiredString(value, kNote);
    }
    alert.isArmed = JSONDocument::requiredTruth(value, kArmed);
    if (JSONDocument::optionalMember(value, kOn) != nullptr) {
        alert.isOn = JSONDocument::requiredTruth(value, kOn);
    }
    if (!alert.isSound()) {
        throw DocumentError(fmt::format("alert {} is not sound", alert.id));
    }
    return alert;
}

FiredAlert firedFromJSON(const ordered_json& value, std::int64_t greatestNumber) {
    FiredAlert fired;
    fired.serial = requiredWithin(value, kSerial, 1, greatestNumber);
    fired.alert = alertFromJSON(JSONDocument::requiredMember(value, kAlert), greatestNumber);
    fired.price = requiredFinite(value, kPrice);
    fired.changePercent = requiredFinite(value, kChange);
    fired.time = requiredWithin(value, kTime, 0, kLatestTime);
    fired.isMeanwhile = JSONDocument::requiredTruth(value, kMeanwhile);
    return fired;
}

ordered_json toJSON(const Alert& alert) {
    ordered_json value;
    value[kId] = alert.id;
    value[kSymbol] = alert.symbol;
    value[kBaseAsset] = alert.baseAsset;
    value[kKind] = rawValue(alert.kind);
    value[kThreshold] = alert.threshold;
    if (alert.margin) {
        value[kMargin] = *alert.margin;
    }
    if (!alert.note.empty()) {
        value[kNote] = alert.note;
    }
    value[kArmed] = alert.isArmed;
    if (!alert.isOn) {
        value[kOn] = false;
    }
    return value;
}

ordered_json toJSON(const FiredAlert& fired) {
    ordered_json value;
    value[kSerial] = fired.serial;
    value[kAlert] = toJSON(fired.alert);
    value[kPrice] = fired.price;
    value[kChange] = fired.changePercent;
    value[kTime] = fired.time;
    value[kMeanwhile] = fired.isMeanwhile;
    return value;
}

void requireNew(std::set<std::int64_t>& numbers, std::int64_t number) {
    if (!numbers.insert(number).second) {
        throw DocumentError(fmt::format("{} is given twice", number));
    }
}

}  // namespace

const Alerts& AlertsDocument::defaultDocument() {
    static const Alerts kNone;
    return kNone;
}

Alerts AlertsDocument::decode(std::string_view text) {
    const ordered_json value = JSONDocument::parse(text);
    Alerts result;
    result.schemaVersion = JSONDocument::requiredInteger(value, kSchemaVersion);
    if (result.schemaVersion != Alerts::kCurrentSchemaVersion) {
        // The rest of a later version is unknown, and the store reads nothing else of it.
        return result;
    }
    result.nextNumber = requiredWithin(value, kNextNumber, 1, Alerts::kMaximumNumber);
    const std::int64_t greatestNumber = result.nextNumber - 1;
    std::set<std::int64_t> ids;
    for (const ordered_json& each : requiredList(value, kAlerts)) {
        result.alerts.push_back(alertFromJSON(each, greatestNumber));
        requireNew(ids, result.alerts.back().id);
    }
    std::set<std::int64_t> serials;
    std::set<std::int64_t> firedIds;
    for (const ordered_json& each : requiredList(value, kFired)) {
        result.fired.push_back(firedFromJSON(each, greatestNumber));
        requireNew(serials, result.fired.back().serial);
        requireNew(firedIds, result.fired.back().alert.id);
    }
    return result;
}

std::string AlertsDocument::encode(const Alerts& alerts) {
    ordered_json value;
    value[kSchemaVersion] = alerts.schemaVersion;
    value[kNextNumber] = alerts.nextNumber;
    value[kAlerts] = ordered_json::array();
    for (const Alert& alert : alerts.alerts) {
        value[kAlerts].push_back(toJSON(alert));
    }
    value[kFired] = ordered_json::array();
    for (const FiredAlert& fired : alerts.fired) {
        value[kFired].push_back(toJSON(fired));
    }
    return JSONDocument::compactText(value);
}

void AlertsDocument::logUnreadable(const Logger& logger, std::string_view reason) {
    logger.log("load alerts failed ({}), using default", reason);
}

void AlertsDocument::logUnknownVersion(const Logger& logger, std::int64_t version) {
    logger.error("unknown alerts schema version {}, using default", version);
}

}  // namespace quillbar
