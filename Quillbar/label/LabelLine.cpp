// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelLine.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/model/VolumeFormatter.h"

#include <QDateTime>

#include <fmt/format.h>

#include <algorithm>
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
    nlohmann::ordered_json object;
    object["text"] = snapshot.text;
    object["symbol"] = nullptr;
    if (snapshot.coin) {
        object["symbol"] = snapshot.coin->symbol;
    }
    object["price"] = nullptr;
    if (snapshot.ticker) {
        object["price"] = snapshot.ticker->lastPrice;
    }
    object["changePercent"] = orNull(snapshot.changePercent);
    object["basis"] = rawValue(snapshot.basis);
    object["connection"] = rawValue(snapshot.connection);
    object["lastUpdate"] = nullptr;
    if (snapshot.lastUpdate) {
        object["lastUpdate"] =
            dateTime(*snapshot.lastUpdate).toString(Qt::ISODateWithMs).toStdString();
    }
    object["stale"] = snapshot.isStale;
    object["failure"] = orNull(snapshot.failure);
    return dump(object);
}

// One line of output is one line, and commands no terminal, whatever a watchlist file or another
// program says.
std::string onOneLine(std::string text) {
    const auto isControl = [](char c) { return (c >= '\0' && c < ' ') || c == '\x7f'; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::string tooltip(const LabelSnapshot& snapshot) {
    std::string text;
    if (snapshot.coin && snapshot.ticker) {
        const std::string change = snapshot.changePercent
                                       ? PriceFormatter::percent(*snapshot.changePercent)
                                       : PriceFormatter::menuBarChange(std::nullopt);
        text += fmt::format("{} {}\n{}涨跌 {}\n成交额 {}\n",
                            snapshot.coin->symbol,
                            PriceFormatter::price(snapshot.ticker->lastPrice),
                            displayName(snapshot.basis),
                            change,
                            VolumeFormatter::compact(snapshot.ticker->quoteVolume24h));
    }
    if (snapshot.lastUpdate) {
        const QString time =
            dateTime(*snapshot.lastUpdate).toLocalTime().toString(QStringLiteral("HH:mm:ss"));
        text += fmt::format("更新于 {}\n", time.toStdString());
    }
    text += displayName(snapshot.visibleConnection());
    if (snapshot.failure) {
        text += '\n' + onOneLine(*snapshot.failure);
    }
    return text;
}

std::string_view waybarClass(const LabelSnapshot& snapshot) {
    if (snapshot.isStale) {
        return "stale";
    }
    const double change = snapshot.changePercent.value_or(0);
    if (change > 0) {
        return "up";
    }
    return change < 0 ? "down" : "flat";
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
    object["text"] = escapedMarkup(snapshot.text);
    object["tooltip"] = escapedMarkup(tooltip(snapshot));
    object["class"] = waybarClass(snapshot);
    return dump(object);
}

}  // namespace

std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format) {
    switch (format) {
    case LabelFormat::text:
        return onOneLine(snapshot.text);
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
