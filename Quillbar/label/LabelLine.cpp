// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelLine.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/platform/AmountText.h"
#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/runtime/OutsideText.h"

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

nlohmann::ordered_json jsonObject(const LabelSnapshot& snapshot) {
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
    return object;
}

// The price is known but not live, although the stream is connected: nothing comes over the stream.
std::string connectionOf(const LabelSnapshot& snapshot) {
    const ConnectionState connection = snapshot.visibleConnection();
    const PinnedQuote& quote = snapshot.quote;
    const bool isSilent =
        connection == ConnectionState::connected && quote.coin && quote.ticker && quote.isStale();
    return isSilent ? silentConnectionName() : displayName(connection);
}

// Empty without a ticker, otherwise lines.
std::string coinTooltip(const PinnedQuote& quote) {
    if (!quote.coin || !quote.ticker) {
        return {};
    }
    const std::string change = quote.changePercent ? PriceFormatter::percent(*quote.changePercent)
                                                   : PriceFormatter::menuBarChange(std::nullopt);
    return fmt::format("{} {}\n",
                       OutsideText::oneLine(quote.coin->symbol),
                       PriceFormatter::price(quote.ticker->lastPrice))
           + formatted(translated("label", "{}涨跌 {}\n成交额 {}\n"),
                       translatedFromCore(displayName(quote.basis)).toStdString(),
                       change,
                       AmountText::volume(quote.ticker->quoteVolume24h));
}

std::string connectionTooltip(const LabelSnapshot& snapshot) {
    std::string text;
    if (snapshot.lastUpdate) {
        const QString time =
            dateTime(*snapshot.lastUpdate).toLocalTime().toString(QStringLiteral("HH:mm:ss"));
        text += formatted(translated("label", "更新于 {}\n"), time.toStdString());
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

std::string waybarLine(std::string_view text, std::string_view tooltip, std::string_view kind) {
    nlohmann::ordered_json object;
    object["text"] = escapedMarkup(text);
    object["tooltip"] = escapedMarkup(tooltip);
    object["class"] = kind;
    return dump(object);
}

std::string joinedText(const std::vector<LabelSnapshot>& labels) {
    std::string text;
    for (const LabelSnapshot& label : labels) {
        text += (text.empty() ? "" : "  ") + OutsideText::oneLine(label.text);
    }
    return text;
}

bool isStale(const LabelSnapshot& label) {
    return label.quote.isStale();
}

std::string joinedJSON(const std::vector<LabelSnapshot>& labels) {
    nlohmann::ordered_json object;
    object["text"] = joinedText(labels);
    object["stale"] = std::ranges::any_of(labels, isStale);
    object["coins"] = nlohmann::ordered_json::array();
    for (const LabelSnapshot& label : labels) {
        object["coins"].push_back(jsonObject(label));
    }
    return dump(object);
}

std::string_view joinedClass(const std::vector<LabelSnapshot>& labels) {
    const LabelDirection first = labels.front().quote.direction();
    const bool isShared = std::ranges::all_of(
        labels, [first](const LabelSnapshot& label) { return label.quote.direction() == first; });
    if (isShared) {
        return waybarClass(first);
    }
    return std::ranges::any_of(labels, isStale) ? waybarClass(LabelDirection::stale) : "mixed";
}

std::string joinedWaybar(const std::vector<LabelSnapshot>& labels) {
    std::string tooltip;
    // The connection is that of all; a coin with a price tells whether it is silent.
    const LabelSnapshot* telling = &labels.front();
    for (const LabelSnapshot& label : labels) {
        const std::string coin = coinTooltip(label.quote);
        tooltip += coin.empty() ? coin : coin + '\n';
        telling = telling->quote.ticker ? telling : &label;
    }
    return waybarLine(
        joinedText(labels), tooltip + connectionTooltip(*telling), joinedClass(labels));
}

}  // namespace

std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format) {
    std::string text = OutsideText::oneLine(snapshot.text);
    switch (format) {
    case LabelFormat::text:
        break;
    case LabelFormat::json:
        return dump(jsonObject(snapshot));
    case LabelFormat::waybar:
        return waybarLine(text,
                          coinTooltip(snapshot.quote) + connectionTooltip(snapshot),
                          waybarClass(snapshot.quote.direction()));
    }
    return text;
}

std::string labelLines(const std::vector<LabelSnapshot>& labels, LabelFormat format) {
    if (labels.size() > 1 && format != LabelFormat::text) {
        return format == LabelFormat::json ? joinedJSON(labels) : joinedWaybar(labels);
    }
    std::string lines;
    for (const LabelSnapshot& label : labels) {
        lines += (lines.empty() ? "" : "\n") + labelLine(label, format);
    }
    return lines;
}

bool differsVisibly(const LabelSnapshot& previous,
                    const LabelSnapshot& current,
                    LabelFormat format) {
    return format == LabelFormat::text ? previous.text != current.text
                                       : differsVisibly(previous, current);
}

}  // namespace quillbar
