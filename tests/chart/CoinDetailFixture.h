// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/chart/CoinDetailView.h"
#include "Quillbar/chart/PriceChart.h"
#include "Quillbar/widgets/Spinner.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar {

// The names of the buttons.
inline const QString kDay = QStringLiteral("走势范围：一天");
inline const QString kWeek = QStringLiteral("走势范围：一周");
inline const QString kMonth = QStringLiteral("走势范围：一个月");
inline const QString kRetry = QStringLiteral("重试");

inline const QString& nameOf(ChartRange range) {
    if (range == ChartRange::day) {
        return kDay;
    }
    return range == ChartRange::week ? kWeek : kMonth;
}

/// A chart of BTC under its row, 400 points wide.
struct CoinDetailFixture : ViewFixture {
    void SetUp() override {
        build();
        view = std::make_unique<CoinDetailView>(environment(), coinOf("BTC"));
        view->resize(400, CoinDetailView::kHeight);
    }
    void TearDown() override { view.reset(); }

    void show() {
        view->show();
        executor.run();
    }
    void click(const QString& name) {
        QTest::mouseClick(button(name), Qt::LeftButton);
        executor.run();
    }
    void choose(ChartRange range) { click(nameOf(range)); }
    void retry() { click(kRetry); }

    static std::vector<Candle> candles(const std::vector<double>& closes) {
        return candlesThrough(closes, utcInstant(2026, 11, 14, 10), std::chrono::hours(1));
    }
    void theExchangeHas(const std::vector<double>& closes) {
        api.klinesAnswers.value(candles(closes));
    }
    void theExchangeFails() { api.klinesAnswers.error(BinanceError(500)); }
    void answer(const Deferred<std::vector<Candle>>& held, const std::vector<double>& closes) {
        held.setValue(candles(closes));
        executor.run();
    }

    // What is seen.

    [[nodiscard]] QAbstractButton* button(const QString& name) const {
        for (auto* const found : view->findChildren<QAbstractButton*>()) {
            if (found->accessibleName() == name) {
                return found;
            }
        }
        throw std::invalid_argument("no such button");
    }
    [[nodiscard]] PriceChart& chart() const { return *widgetsOf<PriceChart>(*view).at(0); }
    [[nodiscard]] Spinner& spinner() const { return *widgetsOf<Spinner>(*view).at(0); }
    /// The message that is shown; empty for none.
    [[nodiscard]] std::string message() const {
        const auto* const label = view->findChild<QLabel*>();
        return label->isVisible() ? label->text().toStdString() : std::string();
    }
    /// The chart, and what takes its place or goes with it.
    [[nodiscard]] std::string seen() const {
        std::string seen = message();
        if (spinner().isVisible()) {
            seen += "spinner";
        }
        if (button(kRetry)->isVisible()) {
            seen += "+button";
        }
        if (chart().isVisible()) {
            seen += chart().isOutdated() ? "+faint chart" : "+chart";
        }
        return seen;
    }
    [[nodiscard]] std::string summary() const {
        return chart().accessibleDescription().toStdString();
    }
    [[nodiscard]] QImage picture() const {
        QImage image(view->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        view->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// How strongly the line between the ranges and the chart is drawn at most, from 0 to 255.
    [[nodiscard]] int strengthOfSummaryLine() const {
        const QImage line = picture().copy(0, 34, 400, 24);
        int strongest = 0;
        for (int y = 0; y < line.height(); ++y) {
            for (int x = 0; x < line.width(); ++x) {
                strongest = std::max(strongest, line.pixelColor(x, y).alpha());
            }
        }
        return strongest;
    }
    [[nodiscard]] bool hasSummaryLine() const { return strengthOfSummaryLine() > 0; }

    std::unique_ptr<CoinDetailView> view;
};

}  // namespace quillbar
