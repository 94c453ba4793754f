// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ExpandableList.h"
#include "tests/list/NamedRow.h"
#include "tests/qtsupport/ChartStandIn.h"
#include "tests/qtsupport/Widgets.h"

#include <QApplication>
#include <QContextMenuEvent>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

const Coin kBTC{"BTCUSDT", "BTC"};
const Coin kETH{"ETHUSDT", "ETH"};
const Coin kSOL{"SOLUSDT", "SOL"};

RankedCoin ranked(int rank, const Coin& coin) {
    return {.rank = rank, .coin = coin, .ticker = {1, 1, 1}, .marketCap = 2};
}

/// A list in a window of its own; its charts are widgets that are named after their coins.
template <class Item>
struct Fixture {
    void show(const std::vector<Item>& items, RowOrder places = RowOrder::frozen) {
        list.show(items, places);
        if (!window.isVisible()) {
            showActive(window);
        }
    }
    /// What a view does when a row is clicked.
    void click(const Coin& coin) {
        list.toggle(coin.symbol);
        list.unfold();
    }
    [[nodiscard]] bool isChartShown(const Coin& coin) {
        return spinUntil([&] {
            return named(window, chartName(coin.baseAsset)) != nullptr && !list.rows().isMoving();
        });
    }

    int presented = 0;
    Observed<std::optional<std::string>> expanded;
    QWidget window;
    ExpandableList<Item> list{
        expanded,
        RowListContent{
            .makeRow = [this](QWidget* parent) { return new NamedRow(presented, parent); },
            .activate = [](const std::string& /*symbol*/) {}},
        &makeChart,
        &window};
};

struct ExpandableListTest : testing::Test,
                            Fixture<Coin> {};
struct ExpandableRanksTest : testing::Test,
                             Fixture<RankedCoin> {};

TEST_F(ExpandableListTest, aRightClickOnARowWithoutAMenuIsLeftToWhatTheListStandsIn) {
    show({kBTC, kETH});
    const QPoint place(100, 14);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.rows().mapToGlobal(place));
    QApplication::sendEvent(&list.rows(), &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(ExpandableListTest, showsItsItemsInTheirOrder) {
    show({kETH, kBTC});
    EXPECT_THAT(list.items(), ElementsAre(kETH, kBTC));
    EXPECT_THAT(list.rows().ids(), ElementsAre("ETHUSDT", "BTCUSDT"));
    EXPECT_EQ(list.coin("BTCUSDT"), kBTC);
}

TEST_F(ExpandableListTest, showsTheFirstOfTwoItemsOfOneSymbol) {
    show({kETH, {"ETHUSDT", "second"}});
    EXPECT_THAT(list.items(), ElementsAre(kETH));
}

TEST_F(ExpandableListTest, unfoldsTheChartOfTheCoinThatIsOpen) {
    show({kETH, kBTC});
    click(kBTC);
    EXPECT_EQ(list.expandedSymbol(), "BTCUSDT");
    EXPECT_TRUE(isChartShown(kBTC));
    click(kETH);
    EXPECT_TRUE(isChartShown(kETH));
    EXPECT_EQ(named(window, chartName("BTC")), nullptr);
    click(kETH);
    EXPECT_EQ(list.expandedSymbol(), std::nullopt);
}

TEST_F(ExpandableListTest, keepsThePlacesOfItsRowsWhileAChartIsOpen) {
    show({kETH, kBTC});
    click(kBTC);
    show({kSOL, kBTC, kETH});
    EXPECT_THAT(list.items(), ElementsAre(kETH, kBTC, kSOL)) << "what has come stands last";
    click(kETH);
    show({kBTC, kETH, kSOL});
    EXPECT_THAT(list.items(), ElementsAre(kETH, kBTC, kSOL)) << "another chart keeps what is shown";
    click(kETH);
    show({kBTC, kETH, kSOL});
    EXPECT_THAT(list.items(), ElementsAre(kBTC, kETH, kSOL));
}

TEST_F(ExpandableListTest, showsLivePlacesAlthoughAChartIsOpen) {
    show({kETH, kBTC});
    click(kBTC);
    show({kBTC, kETH}, RowOrder::live);
    EXPECT_THAT(list.items(), ElementsAre(kBTC, kETH));
    show({kBTC, kETH});
    EXPECT_THAT(list.items(), ElementsAre(kETH, kBTC)) << "those of the moment when it was opened";
    show({kBTC, kETH}, RowOrder::live);
    list.freezeOrder();
    show({kETH, kBTC});
    EXPECT_THAT(list.items(), ElementsAre(kBTC, kETH));
}

TEST_F(ExpandableListTest, keepsPlacesWhoeverOpensTheChart) {
    show({kETH, kBTC});
    expanded.set(kBTC.symbol);
    show({kBTC, kETH});
    EXPECT_THAT(list.items(), ElementsAre(kETH, kBTC));
}

TEST_F(ExpandableListTest, closesTheChartOfACoinThatIsGone) {
    show({kETH, kBTC});
    click(kBTC);
    show({kSOL, kETH});
    EXPECT_EQ(expanded.get(), std::nullopt);
    EXPECT_EQ(named(window, chartName("BTC")), nullptr);
    EXPECT_THAT(list.items(), ElementsAre(kSOL, kETH));
}

TEST_F(ExpandableRanksTest, keepsTheRanksOfItsRowsWhileAChartIsOpen) {
    show({ranked(1, kETH), ranked(2, kBTC)});
    click(kBTC);
    EXPECT_TRUE(isChartShown(kBTC));
    show({ranked(1, kSOL), ranked(2, kBTC), ranked(3, kETH)});
    ASSERT_THAT(list.rows().ids(), ElementsAre("ETHUSDT", "BTCUSDT"));
    EXPECT_EQ(list.items()[0].rank, 1);
    EXPECT_EQ(list.items()[1].rank, 2);
    EXPECT_EQ(list.items()[0].marketCap, std::nullopt);
}

}  // namespace
}  // namespace quillbar
