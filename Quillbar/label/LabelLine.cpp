// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelLine.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/model/VolumeFormatter.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <QDateTime>

#include <fmt/format.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <string_view>

namespace quillbar {

namespace {

QDateTime dateTime(TimePoint instant) {
    const auto sinceEpoch =
        std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toUTC();
}

std::string dump(const nlohmann::ordered_json& object) {
    // A symbol read from a file the user may edit need not be good UTF-8.
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

template <class T>
nlohmann::ordered_json orNull(const std::optional<T>& value) {
    return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json(nullptr);
}

std::string jsonLine(const LabelSnapshot& snapshot) {
    const PinnedQuote& quote = snapshot.quote;
    nlohmann::ordered_json object;
    object["text"] = OutsideText::oneLine(snapshot.text);
    object["symbol"] = nullptr;
    if (quote.coin) {
        object["symbol"] = OutsideText::oneLine(quote.coin->symbol);
    }
    object["price"] = nullptr;
    if (quote.ticker) {
        object["price"] = quote.ticker->lastPrice;
    }
    object["changePercent"] = orNull(quote.changePercent);
    object["basis"] = rawValue(quote.basis);
    object["connection"] = rawValue(quote.connection);
    object["lastUpdate"] = nullptr;
    if (snapshot.lastUpdate) {
        object["lastUpdate"] =
            dateTime(*snapshot.lastUpdate).toString(Qt::ISODateWithMs).toStdString();
    }
    object["stale"] = quote.isStale();
    object["failure"] = nullptr;
    if (snapshot.failure) {
        object["failure"] = OutsideText::oneLine(*snapshot.failure);
    }
    return dump(object);
}

// The price is known but not live, although the stream is connected: nothing comes over the stream.
std::string_view connectionOf(const LabelSnapshot& snapshot) {
    const ConnectionState connection = snapshot.visibleConnection();
    const PinnedQuote& quote = snapshot.quote;
    const bool isSilent =
        connection == ConnectionState::connected && quote.coin && quote.ticker && quote.isStale();
    return isSilent ? kSilentConnectionName : displayName(connection);
}

std::string tooltip(const LabelSnapshot& snapshot) {
    const PinnedQuote& quote = snapshot.quote;
    std::string text;
    if (quote.coin && quote.ticker) {
        const std::string change = quote.changePercent
                                       ? PriceFormatter::percent(*quote.changePercent)
                                       : PriceFormatter::menuBarChange(std::nullopt);
        text += fmt::format("{} {}\n{}涨跌 {}\n成交额 {}\n",
                            OutsideText::oneLine(quote.coin->symbol),
                            PriceFormatter::price(quote.ticker->lastPrice),
                            displayName(quote.basis),
                            change,
                            VolumeFormatter::compact(quote.ticker->quoteVolume24h));
    }
    if (snapshot.lastUpdate) {
        const QString time =
            dateTime(*snapshot.lastUpdate).toLocalTime().toString(QStringLiteral("HH:mm:ss"));
        text += fmt::format("更新于 {}\n", time.toStdString());
    }
    text += connectionOf(snapshot);
    if (snapshot.failure) {
        text += '\n' + OutsideText::oneLine(*snapshot.failure);
    }
    return text;
}

std::string_view waybarClass(LabelDirection direction) {
    switch (direction) {
    case LabelDirection::up:
        return "up";
    case LabelDirection::down:
        return "down";
    case LabelDirection::flat:
        return "flat";
    case LabelDirection::stale:
        return "stale";
    }
    return {};
}

// Waybar reads text and tooltip as Pango markup.
std::string escapedMarkup(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

std::string waybarLine(const LabelSnapshot& snapshot) {
    nlohmann::ordered_json object;
    object["text"] = escapedMarkup(OutsideText::oneLine(snapshot.text));
    object["tooltip"] = escapedMarkup(tooltip(snapshot));
    object["class"] = waybarClass(snapshot.quote.direction());
    return dump(object);
}

}  // namespace

std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format) {
    switch (format) {
    case LabelFormat::text:
        return OutsideText::oneLine(snapshot.text);
    case LabelFormat::json:
        return jsonLine(snapshot);
    case LabelFormat::waybar:
        return waybarLine(snapshot);
    }
    return {};
}

bool differsVisibly(const LabelSnapshot& previous,
                    const LabelSnapshot& current,
                    LabelFormat format) {
    return format == LabelFormat::text ? previous.text != current.text
                                       : differsVisibly(previous, current);
}

}  // namespace quillbar
