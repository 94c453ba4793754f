// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"
#include "tests/qtsupport/DrawnAtSizes.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

using MarketBoardSizesTest = MarketBoardFixture;

TEST_F(MarketBoardSizesTest, aRowOfABoardIsWrittenAtItsSizes) {
    theMarketIsOfThree();
    open(RankingBoard::gainers, {"BTC"});
    EXPECT_EQ(rankCell("ETH")->fontSize(), 10.5);
    EXPECT_EQ(secondaryCell("ETH")->fontSize(), 10.5);
    EXPECT_EQ(priceCell("ETH")->fontSize(), 12);
    EXPECT_EQ(pictureOf(*rankCell("ETH")), writtenAt(16, 10.5, *rankCell("ETH")));
    EXPECT_EQ(pictureOf(*secondaryCell("ETH")), writtenAt(64, 10.5, *secondaryCell("ETH")));
    EXPECT_EQ(pictureOf(*priceCell("ETH")), writtenAt(82, 12, *priceCell("ETH")));
}

TEST_F(MarketBoardSizesTest, theGlyphsOfABoardAreOfNinePoints) {
    theMarketIsOfThree();
    open(RankingBoard::gainers, {"BTC"});
    pointerEnters(*row("ETH"));
    EXPECT_EQ(pictureOf(*rankCell("ETH")), drawnAt(9, Glyph::chevronRight, *rankCell("ETH")));
    ASSERT_NE(checkMark("BTC"), nullptr);
    EXPECT_EQ(pictureOf(*checkMark("BTC")), drawnAt(9, Glyph::checkmark, *checkMark("BTC")));
    GlyphButton* const plus = addButton("ETH");
    plus->setColors(&Roles::secondaryText, &Roles::secondaryText);
    plus->setRestingOpacity(1);
    EXPECT_EQ(pictureOf(*plus), drawnAt(9, Glyph::plus, *plus));
}

TEST_F(MarketBoardSizesTest, whatStandsInThePlaceOfRowsIsOf10Point5) {
    open(RankingBoard::gainers);
    expectSmallLine(*window, QStringLiteral("暂无数据"), &Roles::secondaryText);
    theExchangeFails();
    pass(MarketState::kPollInterval);
    executor.run();
    spinUntilIdle();
    expectSmallLine(*window, QStringLiteral("加载行情失败"), &Roles::secondaryText);
    expectSmallLine(*window, QStringLiteral("重试"), &Roles::accent);
}

TEST_F(MarketBoardSizesTest, theBannerIsOf9Point5) {
    openThree();
    theClockGoesOn(Seconds(185));
    const QString text = QStringLiteral("已停止刷新,数据为3 分钟前的");
    ASSERT_EQ(warning(), text.toStdString());
    BannerRow* const banner = widgetsOf<BannerRow>(*view).front();
    EXPECT_EQ(banner->height(), 20);
    const QImage picture = pictureOf(*banner);
    const QRgb ground = picture.pixel(0, 0);
    const auto columns = columnsWithInk(picture, 0, ground);
    QImage expected(picture.size(), picture.format());
    expected.fill(ground);
    {
        QPainter painter(&expected);
        painter.setFont(systemFont(9.5));
        painter.drawText(banner->rect().adjusted(12, 0, 0, 0), Qt::AlignVCenter, text);
    }
    EXPECT_EQ(columns.front(), columnsWithInk(expected, 0, ground).front());
    EXPECT_NEAR(columns.back(), columnsWithInk(expected, 0, ground).back(), 1);
}

}  // namespace
}  // namespace quillbar
