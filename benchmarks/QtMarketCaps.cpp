// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/QtMarketCaps.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1String>
#include <QString>

#include <stdexcept>

namespace quillbar::benchmarks {

std::vector<MarketCapEntry> decodeMarketsWithQt(const std::string& bytes) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        throw std::runtime_error("malformed JSON");
    }
    std::vector<MarketCapEntry> entries;
    for (const QJsonValue value : document.array()) {
        const QJsonObject row = value.toObject();
        const QString symbol = row.value(QLatin1String("symbol")).toString();
        const QJsonValue rank = row.value(QLatin1String("market_cap_rank"));
        const double marketCap = row.value(QLatin1String("market_cap")).toDouble();
        const double price = row.value(QLatin1String("current_price")).toDouble();
        if (!symbol.isEmpty() && rank.isDouble() && marketCap > 0 && price > 0) {
            entries.push_back({.symbol = symbol.toUpper().toStdString(),
                               .rank = rank.toInteger(),
                               .marketCap = marketCap,
                               .referencePrice = price});
        }
    }
    return entries;
}

}  // namespace quillbar::benchmarks
