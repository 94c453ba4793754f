// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <QString>
#include <QWidget>

#include <string>

namespace quillbar {

/// The accessible name of a coin's stand-in: "chart BTC".
inline QString chartName(const std::string& baseAsset) {
    return QStringLiteral("chart ") + QString::fromStdString(baseAsset);
}

/// A widget in the place of a coin's chart.
inline QWidget* makeChart(const Coin& coin, QWidget* parent) {
    auto* const chart = new QWidget(parent);
    chart->setAccessibleName(chartName(coin.baseAsset));
    return chart;
}

}  // namespace quillbar
