// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/CoinListFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QHelpEvent>
#include <QToolTip>

#include <gtest/gtest.h>

#include <string>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

/// What the rows say of their coins.
struct CoinListCellsTest : CoinListFixture {};

// Cells

TEST_F(CoinListCellsTest, aRowShowsItsCoinAsTheFormattersSay) {
    show({"BTC", "ETH"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("67,234.50"));
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("15.00亿"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+1.23%"));
    EXPECT_EQ(changeCell("BTC")->color(), &Roles::up);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    EXPECT_EQ(volumeCell("BTC")->color(), &Roles::secondaryText);
}

TEST_F(CoinListCellsTest, aCoinWithoutATickerShowsDashes) {
    show({"BTC"});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(row("BTC")->accessibleName(), QStringLiteral("BTC，价格 —，涨跌 —，成交额 —"));
}

TEST_F(CoinListCellsTest, aTickerWithoutAVolumeShowsADash) {
    show({"BTC"});
    tick("BTC", {110, 100});
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("110.00"));
}

TEST_F(CoinListCellsTest, readsAloudAsASentence) {
    show({"BTC"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    EXPECT_EQ(row("BTC")->accessibleName(),
              QStringLiteral("BTC，价格 67,234.50，涨跌 +1.23%，成交额 15.00亿"));
    EXPECT_EQ(arrow("BTC")->accessibleName(), QStringLiteral("展开 BTC 走势"));
    clickArrow("BTC");
    EXPECT_EQ(arrow("BTC")->accessibleName(), QStringLiteral("收起 BTC 走势"));
    EXPECT_EQ(rows->accessibleName(), QStringLiteral("自选列表"));
}

TEST_F(CoinListCellsTest, aBaseAssetIsOneLineWhateverItHolds) {
    const std::string hostile = "A\nB\u202eC";
    show({"BTC", "A BC", hostile});
    EXPECT_EQ(row(hostile)->accessibleName(), QStringLiteral("A BC，价格 —，涨跌 —，成交额 —"));
    EXPECT_EQ(arrow(hostile)->accessibleName(), QStringLiteral("展开 A BC 走势"));
    const auto written = [this](const std::string& baseAsset) {
        CoinCell* const cell = coinCell(baseAsset);
        return pictureOf(*cell).copy(cell->rect().adjusted(CoinCell::kIconSize, 0, 0, 0));
    };
    EXPECT_EQ(written(hostile), written("A BC"));
}

TEST_F(CoinListCellsTest, isAListOfItemsToAScreenReader) {
    show({"BTC"});
    EXPECT_EQ(QAccessible::queryAccessibleInterface(rows)->role(), QAccessible::List);
    QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(row("BTC"));
    EXPECT_EQ(item->role(), QAccessible::ListItem);
    EXPECT_EQ(item->text(QAccessible::Name), row("BTC")->accessibleName());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(arrow("BTC"))->role(), QAccessible::Button);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(header("价格"))->role(), QAccessible::Button);
}

TEST_F(CoinListCellsTest, thePinnedCoinAloneCarriesThePin) {
    show({"BTC", "ETH"});
    EXPECT_EQ(coinCell("BTC")->pinMark(), PinMark::pinned);
    EXPECT_EQ(coinCell("ETH")->pinMark(), PinMark::none);
    state->pin(symbolOf("ETH"));
    EXPECT_EQ(coinCell("BTC")->pinMark(), PinMark::none);
    EXPECT_EQ(coinCell("ETH")->pinMark(), PinMark::pinned);
}

TEST_F(CoinListCellsTest, everySecondRowIsTinted) {
    show({"A", "B", "C"});
    EXPECT_FALSE(row("A")->isAlternate());
    EXPECT_TRUE(row("B")->isAlternate());
    EXPECT_FALSE(row("C")->isAlternate());
    run(state->remove(symbolOf("A")));
    EXPECT_FALSE(row("B")->isAlternate());
}

TEST_F(CoinListCellsTest, theChangeFollowsTheBasis) {
    theOpenIs(50);
    show({"BTC"});
    tick("BTC", {110, 100});
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+10.00%"));
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("—"));
    executor.run();
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+120.00%"));
}

// Stale prices

TEST_F(CoinListCellsTest, pricesOfALostConnectionAreDimmed) {
    show({"BTC"});
    tick("BTC", {110, 100});
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::secondaryText);
    tell(ConnectionState::connected);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
}

TEST_F(CoinListCellsTest, pricesThatGrowOldWithoutAnEventAreDimmed) {
    show({"BTC"});
    tick("BTC", {110, 100});
    auto* const timer = view->findChild<QTimer*>(QStringLiteral("staleness"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 5000);
    const auto theTimerFires = [timer] { QMetaObject::invokeMethod(timer, "timeout"); };
    time.setClock(time.now() + Seconds{60});
    theTimerFires();
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    time.setClock(time.now() + Seconds{1});
    theTimerFires();
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::secondaryText);
    tick("BTC", {110, 100});
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    window->hide();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(CoinListCellsTest, aRowTellsTheAgeOfItsOwnPriceThoughOthersAreLive) {
    show({"BTC", "ETH", "SOL"});
    const auto hint = [this](const std::string& baseAsset) {
        QWidget& widget = *row(baseAsset);
        QHelpEvent event(QEvent::ToolTip, QPoint(100, 14), widget.mapToGlobal(QPoint(100, 14)));
        QApplication::sendEvent(&widget, &event);
        return widget.toolTip();
    };
    tick("BTC", {110, 100});
    tick("ETH", {110, 100});
    time.advance(Seconds{59});
    EXPECT_EQ(hint("BTC"), QString());
    time.advance(Seconds{11.0 * 60 + 1});
    tick("ETH", {111, 100});
    EXPECT_TRUE(hint("BTC").startsWith(QStringLiteral("12 分钟前更新（")))
        << hint("BTC").toStdString();
    EXPECT_EQ(hint("ETH"), QString());
    EXPECT_EQ(hint("SOL"), QStringLiteral("尚无数据"));
    tick("BTC", {111, 100});
    EXPECT_EQ(hint("BTC"), QString());
    QToolTip::hideText();
}

}  // namespace
}  // namespace quillbar
