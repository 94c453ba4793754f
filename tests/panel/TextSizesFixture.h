// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/TextSize.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"
#include "tests/panel/PanelFixture.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace quillbar {

/// The panel over three coins with prices, an alert and a market, at several text sizes.
struct TextSizesFixture : PanelFixture {
    /// What a user can have in front of them, by its name and how it is opened.
    struct Page {
        const char* name;
        std::function<void(TextSizesFixture&)> open;
    };

    void SetUp() override {
        theUserHas(listOf({"BTC", "ETH", "1000SATS"}));
        api.klinesAnswers.otherwise(
            waves(48, 64'000, 67'500, utcInstant(2026, 11, 14, 10), std::chrono::hours(1)));
        theExchangeHas({"SOL", "ETH", "BTC", "1000SATS", "SOLV"});
        start();
        tell(ConnectionState::connected);
        alerts().add(
            {.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 70'000, .note = "a note"});
        tick("BTC", {67'234.5, 66'417.56, 1.5e9});
        tick("ETH", {2'345.67, 2'400, 9.1e8});
        tick("1000SATS", {0.00012345, 0.00012, 3.4e7});
    }

    void tick(const std::string& baseAsset, const Ticker& ticker) {
        stream.ticker(symbolOf(baseAsset), ticker);
        executor.run();
    }
    /// Lets everything that was begun be finished and drawn.
    void settle() {
        spinUntilIdle();
        executor.run();
        spinUntilIdle();
    }
    /// The panel gets the place that it wants, as its window gives it.
    void fit() {
        settle();
        panel->resize(panel->sizeHint());
        settle();
    }
    /// A panel at that size that shows that page.
    void open(TextSize size, const Page& page) {
        preferences.setTextSize(size);
        show();
        showActive(*panel);
        page.open(*this);
        fit();
    }

    // The pages.

    static void openNothing(TextSizesFixture& /*fixture*/) {}
    static void openChart(TextSizesFixture& fixture) {
        fixture.panel->showChart("BTCUSDT");
        ASSERT_TRUE(spinUntil([&fixture] { return !fixture.shown<RowList>()->isMoving(); }));
        fixture.settle();
    }
    static void openBoard(TextSizesFixture& fixture) {
        fixture.click(QStringLiteral("成交额"));
        fixture.settle();
    }
    static void openPreferences(TextSizesFixture& fixture) {
        // The longest texts.
        fixture.preferences.setLabel(
            {.wording = LabelWording::custom, .coins = LabelCoins::rotating});
        fixture.panel->showPreferences();
    }
    /// What fired while nothing showed notices, and a coin that can be taken back.
    static void openLines(TextSizesFixture& fixture) {
        fixture.tick("BTC", {70'001, 66'417.56, 1.5e9});
        fixture.unshownAlerts.set(*fixture.alerts().fired());
        fixture.run(fixture.state->add(coinOf("SOL")));
        fixture.run(fixture.state->remove(symbolOf("SOL")));
    }
    static std::vector<Page> pages() {
        return {{"watchlist", openNothing},
                {"chart", openChart},
                {"board", openBoard},
                {"lines", openLines},
                {"preferences", openPreferences}};
    }
};

}  // namespace quillbar
