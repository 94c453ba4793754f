// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelMessage.h"

#include "Quillbar/labelstate/ConnectionName.h"

#include <QString>

#include <chrono>
#include <cmath>

namespace quillbar {

namespace {

// The first second of the year 10000.
constexpr double kEndOfTime = 253402300800.0;

const QString kText = QStringLiteral("text");
const QString kSymbol = QStringLiteral("symbol");
const QString kBaseAsset = QStringLiteral("baseAsset");
const QString kPrice = QStringLiteral("price");
const QString kOpenPrice = QStringLiteral("openPrice24h");
const QString kQuoteVolume = QStringLiteral("quoteVolume24h");
const QString kChangePercent = QStringLiteral("changePercent");
const QString kBasis = QStringLiteral("basis");
const QString kConnection = QStringLiteral("connection");
const QString kLastUpdate = QStringLiteral("lastUpdate");
const QString kFailure = QStringLiteral("failure");
const QString kStale = QStringLiteral("stale");
const QString kShowsPrice = QStringLiteral("showsPrice");
const QString kLastError = QStringLiteral("lastError");
const QString kDiscreet = QStringLiteral("discreet");
const QString kLanguage = QStringLiteral("language");
const QString kStarted = QStringLiteral("started");

std::optional<std::string> textAt(const QVariantMap& message, const QString& key) {
    const QVariant value = message.value(key);
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return value.toString().toStdString();
}

std::optional<double> numberAt(const QVariantMap& message, const QString& key) {
    const QVariant value = message.value(key);
    if (value.typeId() != QMetaType::Double || !std::isfinite(value.toDouble())) {
        return std::nullopt;
    }
    return value.toDouble();
}

bool flagAt(const QVariantMap& message, const QString& key, bool valueWhenMissing) {
    const QVariant value = message.value(key);
    return value.typeId() == QMetaType::Bool ? value.toBool() : valueWhenMissing;
}

std::optional<Coin> coinIn(const QVariantMap& message) {
    auto symbol = textAt(message, kSymbol);
    auto baseAsset = textAt(message, kBaseAsset);
    if (!symbol || !baseAsset) {
        return std::nullopt;
    }
    return Coin{*std::move(symbol), *std::move(baseAsset)};
}

std::optional<Ticker> tickerIn(const QVariantMap& message) {
    const auto price = numberAt(message, kPrice);
    const auto open = numberAt(message, kOpenPrice);
    if (!price || !open) {
        return std::nullopt;
    }
    return Ticker{*price, *open, numberAt(message, kQuoteVolume)};
}

PriceFreshness freshnessIn(const QVariantMap& message, const LabelSnapshot& label) {
    if (!flagAt(message, kStale, true)) {
        return PriceFreshness::live;
    }
    // An older version of the application does not send the entry. Its text without a price is only
    // the coin's name.
    const bool isPriceInText = label.quote.coin && label.text != label.quote.coin->baseAsset;
    return flagAt(message, kShowsPrice, isPriceInText) ? PriceFreshness::stale
                                                       : PriceFreshness::none;
}

std::optional<TimePoint> lastUpdateIn(const QVariantMap& message) {
    const auto seconds = numberAt(message, kLastUpdate);
    if (!seconds || *seconds < 0 || *seconds >= kEndOfTime) {
        return std::nullopt;
    }
    return TimePoint(Seconds(*seconds));
}

void insertTicker(QVariantMap& message, const Ticker& ticker) {
    message.insert(kPrice, ticker.lastPrice);
    message.insert(kOpenPrice, ticker.openPrice24h);
    if (ticker.quoteVolume24h) {
        message.insert(kQuoteVolume, *ticker.quoteVolume24h);
    }
}

}  // namespace

QVariantMap labelMessage(const LabelReport& report) {
    const LabelSnapshot& label = report.label;
    const PinnedQuote& quote = label.quote;
    QVariantMap message{{kText, QString::fromUtf8(label.text)},
                        {kBasis, QString::fromUtf8(rawValue(quote.basis))},
                        {kConnection, QString::fromUtf8(rawValue(quote.connection))},
                        {kStale, quote.isStale()},
                        {kShowsPrice, quote.showsPrice()},
                        {kStarted, report.isStarted}};
    if (quote.coin) {
        message.insert(kSymbol, QString::fromUtf8(quote.coin->symbol));
        message.insert(kBaseAsset, QString::fromUtf8(quote.coin->baseAsset));
    }
    if (quote.ticker) {
        insertTicker(message, *quote.ticker);
    }
    if (quote.changePercent) {
        message.insert(kChangePercent, *quote.changePercent);
    }
    if (label.lastUpdate) {
        message.insert(kLastUpdate, label.lastUpdate->time_since_epoch().count());
    }
    if (label.failure) {
        message.insert(kFailure, QString::fromUtf8(*label.failure));
    }
    if (label.isDiscreet) {
        message.insert(kDiscreet, true);
    }
    if (label.lastError) {
        message.insert(kLastError, QString::fromUtf8(*label.lastError));
    }
    if (report.language == TextLanguage::english) {
        message.insert(kLanguage, QString::fromUtf8(rawValue(Language::english)));
    }
    return message;
}

std::optional<LabelReport> labelReport(const QVariantMap& message) {
    auto text = textAt(message, kText);
    if (!text) {
        return std::nullopt;
    }
    LabelReport report;
    LabelSnapshot& label = report.label;
    label.text = *std::move(text);
    PinnedQuote& quote = label.quote;
    quote.coin = coinIn(message);
    if (quote.coin) {
        quote.ticker = tickerIn(message);
        quote.changePercent = numberAt(message, kChangePercent);
    }
    quote.basis =
        changeBasisFromRawValue(textAt(message, kBasis).value_or("")).value_or(quote.basis);
    quote.freshness = freshnessIn(message, label);
    quote.connection = connectionFromRawValue(textAt(message, kConnection).value_or(""))
                           .value_or(quote.connection);
    label.lastUpdate = lastUpdateIn(message);
    label.failure = textAt(message, kFailure);
    label.lastError = textAt(message, kLastError);
    label.isDiscreet = flagAt(message, kDiscreet, label.isDiscreet);
    report.isStarted = flagAt(message, kStarted, report.isStarted);
    if (textAt(message, kLanguage) == rawValue(Language::english)) {
        report.language = TextLanguage::english;
    }
    return report;
}

}  // namespace quillbar
