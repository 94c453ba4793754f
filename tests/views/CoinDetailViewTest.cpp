// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/CoinDetailView.h"
#include "Quillbar/PriceChart.h"
#include "Quillbar/Spinner.h"
#include "Quillbar/Theme.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/model/Instants.h"
#include "tests/views/Candles.h"
#include "tests/views/ViewFixture.h"
#include "tests/views/Widgets.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using KlinesRequest = FakeBinanceAPI::KlinesRequest;

// The names of the buttons.
const QString kDay = QStringLiteral("走势范围: 一天");
const QString kWeek = QStringLiteral("走势范围: 一周");
const QString kMonth = QStringLiteral("走势范围: 一个月");
const QString kRetry = QStringLiteral("重试");

const QString& nameOf(ChartRange range) {
    if (range == ChartRange::day) {
        return kDay;
    }
    return range == ChartRange::week ? kWeek : kMonth;
}

/// A chart of BTC under its row, 400 points wide.
struct CoinDetailViewTest : ViewFixture {
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

TEST_F(CoinDetailViewTest, asksForADayWhenItIsShownAndNotBefore) {
    executor.run();
    EXPECT_THAT(api.klinesRequests, IsEmpty());
    theExchangeHas({100, 110});
    show();
    EXPECT_THAT(api.klinesRequests, ElementsAre(KlinesRequest{"BTCUSDT", "5m", 288}));
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(chart().candles(), candles({100, 110}));
}

TEST_F(CoinDetailViewTest, showsASpinnerUntilTheFirstCandles) {
    const auto held = api.klinesAnswers.held();
    view->show();
    // At once, before anything of a task runs.
    EXPECT_EQ(seen(), "spinner");
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    EXPECT_TRUE(view->isLoading());
    answer(held, {100, 110});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_FALSE(view->isLoading());
}

TEST_F(CoinDetailViewTest, asksForTheRangeThatIsChosen) {
    show();
    choose(ChartRange::week);
    // For one that is chosen already, nothing.
    choose(ChartRange::week);
    choose(ChartRange::month);
    EXPECT_THAT(api.klinesRequests,
                ElementsAre(KlinesRequest{"BTCUSDT", "5m", 288},
                            KlinesRequest{"BTCUSDT", "1h", 168},
                            KlinesRequest{"BTCUSDT", "4h", 180}));
    EXPECT_EQ(view->range(), ChartRange::month);
}

TEST_F(CoinDetailViewTest, showsTheRangeChosenLastWhateverTheOrderOfTheAnswers) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    const auto month = api.klinesAnswers.held();
    show();
    choose(ChartRange::week);
    choose(ChartRange::month);
    answer(month, {300, 310});
    answer(week, {200, 210});
    answer(day, {100, 110});
    EXPECT_EQ(chart().candles(), candles({300, 310}));
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, dropsAnAnswerThatCameJustBeforeAnotherRangeWasChosen) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    show();
    day.setValue(candles({100, 110}));
    // Not yet taken in.
    QTest::mouseClick(button(kWeek), Qt::LeftButton);
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    EXPECT_THAT(view->candles(), IsEmpty());
    answer(week, {200, 210});
    EXPECT_EQ(chart().candles(), candles({200, 210}));
}

TEST_F(CoinDetailViewTest, dropsAFailureThatCameJustBeforeAnotherRangeWasChosen) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    show();
    day.setError(std::make_exception_ptr(BinanceError(500)));
    QTest::mouseClick(button(kWeek), Qt::LeftButton);
    executor.run();
    EXPECT_FALSE(view->loadFailed());
    EXPECT_EQ(seen(), "spinner");
}

TEST_F(CoinDetailViewTest, saysThatTheFirstLoadFailedAndTriesAgain) {
    theExchangeFails();
    show();
    EXPECT_EQ(seen(), "加载走势失败+button");
    EXPECT_TRUE(view->loadFailed());
    const auto held = api.klinesAnswers.held();
    // At once.
    QTest::mouseClick(button(kRetry), Qt::LeftButton);
    EXPECT_EQ(seen(), "spinner");
    EXPECT_FALSE(view->loadFailed());
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    answer(held, {100, 110});
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, triesAgainByTheKeyboard) {
    theExchangeFails();
    show();
    theExchangeHas({100, 110});
    QTest::keyClick(button(kRetry), Qt::Key_Return);
    executor.run();
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, tellsOfFailuresOfTheTransportToo) {
    api.klinesAnswers.error(URLError(URLError::Code::timedOut, "timed out"));
    show();
    EXPECT_EQ(seen(), "加载走势失败+button");
}

TEST_F(CoinDetailViewTest, isSilentAboutACancelledRequest) {
    api.klinesAnswers.error(URLError(URLError::Code::cancelled, "cancelled"));
    show();
    EXPECT_FALSE(view->loadFailed());
    EXPECT_FALSE(view->isLoading());
    EXPECT_EQ(seen(), "暂无数据");
}

TEST_F(CoinDetailViewTest, saysThatThereIsNothing) {
    theExchangeHas({});
    show();
    EXPECT_EQ(seen(), "暂无数据");
    EXPECT_FALSE(hasSummaryLine());
}

TEST_F(CoinDetailViewTest, keepsTheCandlesWhenAnotherRangeFails) {
    theExchangeHas({100, 110});
    show();
    theExchangeFails();
    choose(ChartRange::week);
    EXPECT_EQ(seen(), "加载走势失败+button+faint chart");
    EXPECT_TRUE(hasSummaryLine());
    EXPECT_LT(strengthOfSummaryLine(), 100) << "its figures are not the week's";
    EXPECT_EQ(view->candles(), candles({100, 110}));
    theExchangeHas({200, 210});
    retry();
    EXPECT_EQ(seen(), "+chart");
    EXPECT_GT(strengthOfSummaryLine(), 200);
    EXPECT_EQ(view->candles(), candles({200, 210}));
}

TEST_F(CoinDetailViewTest, showsThatTheCandlesAreStillThoseOfAnotherRange) {
    theExchangeHas({100, 110});
    show();
    const auto held = api.klinesAnswers.held();
    choose(ChartRange::week);
    EXPECT_EQ(seen(), "spinner+faint chart");
    EXPECT_EQ(chart().accessibleName(), QStringLiteral("BTC 走势图, 1D"));
    answer(held, {200, 210});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(chart().accessibleName(), QStringLiteral("BTC 走势图, 1W"));
}

TEST_F(CoinDetailViewTest, stopsWhenItIsHiddenAndLoadsAgainWhenShown) {
    const auto held = api.klinesAnswers.held();
    show();
    view->hide();
    executor.run();
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
    EXPECT_FALSE(view->isLoading());
    theExchangeHas({100, 110});
    show();
    EXPECT_EQ(seen(), "+chart");
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(CoinDetailViewTest, refreshesWhatIsShownWithoutASpinner) {
    theExchangeHas({100, 110});
    show();
    view->hide();
    time.advance(Seconds(300));
    const auto held = api.klinesAnswers.held();
    show();
    EXPECT_EQ(seen(), "+chart");
    answer(held, {100, 120});
    EXPECT_EQ(chart().candles(), candles({100, 120}));
}

TEST_F(CoinDetailViewTest, mayGoWhileItLoads) {
    const auto held = api.klinesAnswers.held();
    show();
    view.reset();
    answer(held, {100, 110});
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
}

TEST_F(CoinDetailViewTest, sumsTheRangeUp) {
    theExchangeHas({66'800, 68'000, 67'234.5});
    show();
    EXPECT_EQ(summary(), "区间 +0.65%, 高 68,000.00, 低 66,800.00");
    EXPECT_TRUE(hasSummaryLine());
}

TEST_F(CoinDetailViewTest, showsNoChangeFromAFirstOpenOfNothing) {
    theExchangeHas({0, 5});
    show();
    EXPECT_EQ(summary(), "高 5.00, 低 0");
    const QImage without = picture().copy(0, 34, 400, 24);
    theExchangeHas({0.5, 5});
    choose(ChartRange::week);
    // The change comes first.
    EXPECT_NE(picture().copy(0, 34, 400, 24), without);
    EXPECT_EQ(summary(), "区间 +900.00%, 高 5.00, 低 0.5");
}

TEST_F(CoinDetailViewTest, isAsHighAsItsRowReservesAndGivesTheChartItsWidth) {
    EXPECT_EQ(view->height(), 210);
    theExchangeHas({100, 110});
    show();
    EXPECT_EQ(view->height(), 210);
    EXPECT_EQ(chart().geometry(), QRect(12, 62, 376, 140));
    EXPECT_EQ(button(kDay)->mapTo(view.get(), QPoint()), QPoint(12, 8));
    view->resize(500, CoinDetailView::kHeight);
    EXPECT_EQ(chart().geometry(), QRect(12, 62, 476, 140));
}

TEST_F(CoinDetailViewTest, putsSpinnerAndMessageInTheMiddleOfTheChart) {
    const auto held = api.klinesAnswers.held();
    show();
    EXPECT_NEAR(spinner().geometry().center().x(), 200, 1);
    EXPECT_NEAR(spinner().geometry().center().y(), 62 + 70, 1);
    held.setError(std::make_exception_ptr(BinanceError(500)));
    executor.run();
    const QRect message = view->findChild<QLabel*>()->geometry();
    const QRect retry = button(kRetry)->geometry();
    EXPECT_GT(retry.left(), message.right());
    EXPECT_NEAR((message.left() + retry.right()) / 2.0, 200, 1.5);
    EXPECT_NEAR(message.center().y(), 62 + 70, 1);
}

TEST_F(CoinDetailViewTest, choosesRangesByTheArrowKeys) {
    theExchangeHas({100, 110});
    show();
    showActive(*view);
    auto* const day = button(kDay);
    auto* const week = button(kWeek);
    day->setFocus(Qt::TabFocusReason);
    QTest::keyClick(day, Qt::Key_Right);
    executor.run();
    EXPECT_EQ(view->range(), ChartRange::week);
    EXPECT_TRUE(week->isChecked());
    EXPECT_TRUE(week->hasFocus());
    QTest::keyClick(week, Qt::Key_Left);
    executor.run();
    EXPECT_EQ(view->range(), ChartRange::day);
}

TEST_F(CoinDetailViewTest, stopsTheTabKeyOnceAtTheRangesAndThenAtTheChart) {
    theExchangeHas({100, 110});
    theExchangeHas({200, 210});
    show();
    showActive(*view);
    choose(ChartRange::week);
    button(kWeek)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(chart().hasFocus());
    QTest::keyClick(&chart(), Qt::Key_Backtab);
    EXPECT_TRUE(button(kWeek)->hasFocus());
}

TEST_F(CoinDetailViewTest, followsTheTheme) {
    theExchangeHas({});
    show();
    ThemeKey::set(*view, {.colors = ThemeColors::light()});
    EXPECT_EQ(view->findChild<QLabel*>()->palette().color(QPalette::WindowText),
              ThemeColors::light().secondaryText);
}

TEST_F(CoinDetailViewTest, isNamedAfterItsCoin) {
    EXPECT_EQ(view->accessibleName(), QStringLiteral("BTC 走势"));
    EXPECT_EQ(view->coin(), coinOf("BTC"));
}

}  // namespace
}  // namespace quillbar
