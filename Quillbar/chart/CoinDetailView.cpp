// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/CoinDetailView.h"

#include "Quillbar/chart/PriceChart.h"
#include "Quillbar/chart/RangeSelector.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/ColorRole.h"
#include "Quillbar/widgets/Spinner.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <exception>
#include <utility>

namespace quillbar {

namespace {

constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 8;
constexpr int kSpacing = 8;
constexpr int kSummaryHeight = 18;
constexpr double kSpinnerDiameter = 16;
constexpr double kTextSize = 10.5;
constexpr double kLabelSize = 9.5;
constexpr double kSpaceAfterLabel = 4;
constexpr double kSpaceAfterValue = 14;
constexpr int kSpaceBeforeButton = 6;

// The pause before the candles are loaded again. A load makes no request while they are fresh. It
// is at least a second, as the clock may be a little slower than the sleeper, and at most a minute,
// as the sleeper stands still while the machine sleeps.
constexpr Seconds kShortestPause{1};
constexpr Seconds kLongestPause{60};

constexpr int kSummaryTop = kVerticalPadding + RangeSelector::kHeight + kSpacing;
constexpr int kChartTop = kSummaryTop + kSummaryHeight + kSpacing;
static_assert(kChartTop + CoinDetailView::kChartHeight + kVerticalPadding
              == CoinDetailView::kHeight);

QString priceText(double price) {
    return QString::fromStdString(PriceFormatter::price(price));
}

}  // namespace

CoinDetailView::CoinDetailView(const ViewEnvironment& environment, Coin coin, QWidget* parent)
    : QWidget(parent)
    , m_appState(environment.appState)
    , m_sleeper(environment.sleeper)
    , m_coin(std::move(coin))
    , m_ranges(new RangeSelector(this))
    , m_spinner(new Spinner(kSpinnerDiameter, this))
    , m_message(new ThemedLabel(systemFont(kTextSize), &ThemeColors::Resolved::secondaryText, this))
    , m_retry(new TextButton(translated("chart", "重试"), this))
    , m_chart(new PriceChart(environment.calendar, this))
    , m_scope(environment.executor) {
    setAccessibleName(translated("chart", "%1 走势").arg(OneLineText::of(m_coin.baseAsset)));
    m_spinner->setAccessibleName(translated("chart", "正在加载走势"));
    m_ranges->onChoose = [this](ChartRange range) { choose(range); };
    connect(m_retry, &QAbstractButton::clicked, this, [this] { startLoad(); });
    refresh();
    TextScale::follow(*this, [this] {
        setFixedHeight(TextScale::length(*this, kHeight));
        placeChildren();
    });
}

bool CoinDetailView::event(QEvent* event) {
    // A child has another size.
    if (event->type() == QEvent::LayoutRequest) {
        placeChildren();
    }
    return QWidget::event(event);
}

void CoinDetailView::paintEvent(QPaintEvent* /*event*/) {
    if (m_candles.empty()) {
        return;
    }
    QPainter painter(this);
    TextScale::enlarge(painter, *this);
    // The figures belong to the candles, so they are as faint as the chart.
    painter.setOpacity(isOutdated() ? PriceChart::kOutdatedOpacity : 1);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    double x = kHorizontalPadding;
    if (const auto& percent = m_summary.changePercent) {
        x = paintLabelled(painter,
                          x,
                          translated("chart", "区间"),
                          QString::fromStdString(PriceFormatter::percent(*percent)),
                          colors.*colorOfChange(*percent));
    }
    if (m_summary.high) {
        x = paintLabelled(
            painter, x, translated("chart", "高"), priceText(*m_summary.high), colors.primaryText);
    }
    if (m_summary.low) {
        paintLabelled(
            painter, x, translated("chart", "低"), priceText(*m_summary.low), colors.primaryText);
    }
}

void CoinDetailView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeChildren();
}

void CoinDetailView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    startLoad();
}

void CoinDetailView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_loading.cancel();
}

void CoinDetailView::startLoad() {
    m_loading.cancel();
    ++m_loadGeneration;
    m_isLoading = true;
    m_loadFailed = false;
    m_loading = m_scope.spawn(keepLoaded(m_range, m_loadGeneration));
    refresh();
}

Task<void> CoinDetailView::keepLoaded(ChartRange range, std::uint64_t generation) {
    for (;;) {
        Task<Outcome> loading = load(range, generation);
        const Outcome outcome = co_await std::move(loading);
        const std::optional<Seconds> pause = pauseAfter(outcome, range);
        if (!pause) {
            co_return;
        }
        Task<void> sleep = m_sleeper(*pause);
        co_await std::move(sleep);
        if (generation != m_loadGeneration) {
            // Another range was chosen after the sleep ended and before this task went on.
            co_return;
        }
        generation = ++m_loadGeneration;
        m_isLoading = true;
        m_loadFailed = false;
    }
}

std::optional<Seconds> CoinDetailView::pauseAfter(Outcome outcome, ChartRange range) const {
    if (!m_sleeper) {
        return std::nullopt;
    }
    switch (outcome) {
    case Outcome::success:
        return std::clamp(
            m_appState.chartFreshFor(m_coin.symbol, range), kShortestPause, kLongestPause);
    case Outcome::failure:
        // Otherwise the failure is shown, and the user decides.
        return m_candlesRange == range ? std::optional<Seconds>(kLongestPause) : std::nullopt;
    case Outcome::cancelled:
        break;
    }
    return std::nullopt;
}

Task<CoinDetailView::Outcome> CoinDetailView::load(ChartRange range, std::uint64_t generation) {
    auto outcome = Outcome::success;
    try {
        std::vector<Candle> candles = co_await m_appState.chart(m_coin.symbol, range);
        if (generation == m_loadGeneration) {
            m_candlesRange = range;
            m_summary = ChartSummary::of(candles);
            m_candles = std::move(candles);
        }
    } catch (const Cancelled&) {
        outcome = Outcome::cancelled;
    } catch (const URLError& error) {
        outcome = error.code() == URLError::Code::cancelled ? Outcome::cancelled : Outcome::failure;
    } catch (const std::exception&) {
        outcome = Outcome::failure;
    }
    finishLoad(generation, outcome);
    co_return outcome;
}

void CoinDetailView::finishLoad(std::uint64_t generation, Outcome outcome) {
    // A later load has begun, and decides what the view shows.
    if (generation != m_loadGeneration) {
        return;
    }
    m_isLoading = false;
    m_loadFailed = outcome == Outcome::failure;
    refresh();
}

void CoinDetailView::choose(ChartRange range) {
    m_range = range;
    startLoad();
}

bool CoinDetailView::isOutdated() const {
    return !m_candles.empty() && m_candlesRange != m_range;
}

void CoinDetailView::refresh() {
    const bool hasCandles = !m_candles.empty();
    m_chart->setAccessibleName(
        translated("chart", "%1 走势图，%2")
            .arg(OneLineText::of(m_coin.baseAsset),
                 QString::fromUtf8(displayName(m_candlesRange.value_or(m_range)))));
    m_chart->setCandles(m_candles, RangeSelector::nameOf(m_candlesRange.value_or(m_range)));
    m_chart->setOutdated(isOutdated());
    m_chart->setVisible(hasCandles);
    // A load of what is shown already needs no spinner.
    m_spinner->setVisible(m_isLoading && (isOutdated() || !hasCandles));
    m_message->setText(m_loadFailed ? translated("chart", "加载走势失败")
                                    : translated("chart", "暂无数据"));
    m_message->setVisible(m_loadFailed || (!hasCandles && !m_isLoading));
    m_retry->setVisible(m_loadFailed);
    placeChildren();
    update();
}

void CoinDetailView::placeChildren() {
    const auto length = [this](int points) { return TextScale::length(*this, points); };
    const int left = length(kHorizontalPadding);
    const int width = this->width() - 2 * left;
    const QRect head(left, length(kVerticalPadding), width, length(RangeSelector::kHeight));
    const QRect chart(left, length(kChartTop), width, length(kChartHeight));
    m_ranges->move(head.topLeft());
    m_chart->setGeometry(chart);

    const bool isCentred = m_candles.empty();
    const QRect spinnerPlace =
        isCentred ? chart : head.adjusted(head.width() - m_spinner->width(), 0, 0, 0);
    QRect spinner = m_spinner->rect();
    spinner.moveCenter(spinnerPlace.center());
    m_spinner->move(spinner.topLeft());
    placeFailure(isCentred ? chart : head, isCentred);
}

void CoinDetailView::placeFailure(const QRect& place, bool isCentred) {
    m_message->adjustSize();
    const int gap = TextScale::length(*this, kSpaceBeforeButton);
    const int width = m_message->width() + (m_retry->isHidden() ? 0 : gap + m_retry->width());
    const int spare = place.width() - width;
    const int left = place.left() + (isCentred ? spare / 2 : spare);
    m_message->move(left, place.top() + (place.height() - m_message->height()) / 2);
    m_retry->move(left + m_message->width() + gap,
                  place.top() + (place.height() - m_retry->height()) / 2);
}

double CoinDetailView::paintLabelled(QPainter& painter,
                                     double x,
                                     const QString& label,
                                     const QString& value,
                                     const QColor& color) {
    const QFont labelFont = systemFont(kLabelSize);
    const QFont valueFont = systemFont(kTextSize);
    // Both texts stand on one baseline.
    const QFontMetricsF metrics(valueFont);
    const double baseline =
        kSummaryTop + (kSummaryHeight + metrics.ascent() - metrics.descent()) / 2;
    painter.setFont(labelFont);
    painter.setPen(ThemeKey::value(*this).colors.secondaryText);
    painter.drawText(QPointF(x, baseline), label);
    x += QFontMetricsF(labelFont).horizontalAdvance(label) + kSpaceAfterLabel;
    const double width = TabularText::width(value, valueFont);
    painter.setPen(color);
    TabularText::draw(painter,
                      QRectF(x, kSummaryTop, width, kSummaryHeight),
                      Qt::AlignLeft | Qt::AlignVCenter,
                      value,
                      valueFont);
    return x + width + kSpaceAfterValue;
}

}  // namespace quillbar
