// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/QtDecoder.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1String>
#include <QString>

#include <stdexcept>

namespace quillbar::benchmarks::QtDecoder {

namespace {

QJsonDocument parsed(const std::string& bytes) {
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        throw std::runtime_error("malformed JSON");
    }
    return document;
}

QString text(const QJsonObject& object, QLatin1String key) {
    const QJsonValue value = object.value(key);
    if (!value.isString()) {
        throw std::runtime_error("not a string");
    }
    return value.toString();
}

double number(const QString& text) {
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber) {
        throw std::runtime_error("not a number");
    }
    return value;
}

Ticker ticker(const QJsonObject& row,
              QLatin1String last,
              QLatin1String open,
              QLatin1String volume) {
    Ticker result;
    result.lastPrice = number(text(row, last));
    result.openPrice24h = number(text(row, open));
    if (row.contains(volume)) {
        result.quoteVolume24h = number(text(row, volume));
    }
    return result;
}

}  // namespace

TickerEvent decodeMiniTickerFrame(const std::string& bytes) {
    const QJsonObject frame = parsed(bytes).object();
    static_cast<void>(text(frame, QLatin1String("stream")));
    const QJsonObject data = frame.value(QLatin1String("data")).toObject();
    return {text(data, QLatin1String("s")).toStdString(),
            ticker(data, QLatin1String("c"), QLatin1String("o"), QLatin1String("q"))};
}

TickerMap decodeTicker24hArray(const std::string& bytes) {
    const QJsonArray rows = parsed(bytes).array();
    TickerMap tickers;
    tickers.reserve(static_cast<std::size_t>(rows.size()));
    for (const QJsonValue value : rows) {
        const QJsonObject row = value.toObject();
        tickers.insert_or_assign(text(row, QLatin1String("symbol")).toStdString(),
                                 ticker(row,
                                        QLatin1String("lastPrice"),
                                        QLatin1String("openPrice"),
                                        QLatin1String("quoteVolume")));
    }
    return tickers;
}

std::vector<Coin> decodeExchangeInfo(const std::string& bytes) {
    const QJsonArray entries = parsed(bytes).object().value(QLatin1String("symbols")).toArray();
    std::vector<Coin> coins;
    for (const QJsonValue value : entries) {
        const QJsonObject entry = value.toObject();
        const QString symbol = text(entry, QLatin1String("symbol"));
        const QString status = text(entry, QLatin1String("status"));
        const QString baseAsset = text(entry, QLatin1String("baseAsset"));
        if (text(entry, QLatin1String("quoteAsset")) == QLatin1String("USDT")
            && status == QLatin1String("TRADING")) {
            coins.push_back({symbol.toStdString(), baseAsset.toStdString()});
        }
    }
    return coins;
}

}  // namespace quillbar::benchmarks::QtDecoder
