// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "tests/boards/MarketBoardFixture.h"
#include "tests/watchlist/AddCoinFixture.h"
#include "tests/watchlist/CoinListFixture.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

/// A cell of that width, written at that size, which shows what another does.
QImage writtenAt(int width, double size, const NumericCell& like) {
    NumericCell cell(width, size, like.parentWidget());
    cell.resize(like.size());
    cell.setText(like.text());
    cell.setColor(like.color());
    return pictureOf(cell);
}

/// A glyph of that size in the middle of a widget, in the colour of what is said beside the rows.
QImage drawnAt(double size, Glyph glyph, const QWidget& in) {
    const Roles& colors = ThemeKey::value(in).colors;
    QImage image(in.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(colors.surface);
    QRectF square(0, 0, size, size);
    square.moveCenter(QRectF(in.rect()).center());
    QPainter painter(&image);
    drawGlyph(painter, glyph, square, colors.secondaryText);
    return image;
}

/// A line of that size in the middle of a widget, in that colour, over what is at its corner.
QImage lineInTheMiddle(double size, const QString& text, const QColor& color, QWidget& in) {
    QImage image = pictureOf(in);
    image.fill(image.pixelColor(0, 0));
    QPainter painter(&image);
    painter.setFont(systemFont(size));
    painter.setPen(color);
    painter.drawText(in.rect(), Qt::AlignCenter, text);
    return image;
}

/// The widget in the window that says this alone, in a line of 10.5 points.
void expectSmallLine(const QWidget& in, const QString& text, QColor Roles::*color) {
    QWidget* const line = named(in, text);
    ASSERT_NE(line, nullptr) << text.toStdString();
    EXPECT_EQ(pictureOf(*line),
              lineInTheMiddle(10.5, text, ThemeKey::value(*line).colors.*color, *line))
        << text.toStdString();
}

/// The columns of a picture, from one on, in which anything stands out from the surface.
std::vector<int> columnsWithInk(const QImage& picture, int from, QRgb surface) {
    std::vector<int> columns;
    for (int x = from; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixel(x, y) != surface) {
                columns.push_back(x);
                break;
            }
        }
    }
    return columns;
}

// The watchlist

using CoinListSizesTest = CoinListFixture;

TEST_F(CoinListSizesTest, aRowOfTheWatchlistIsWrittenAtItsSizes) {
    show({"BTC"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    // Half a point need not be seen: a screen may draw whole ones.
    EXPECT_EQ(volumeCell("BTC")->fontSize(), 10.5);
    EXPECT_EQ(priceCell("BTC")->fontSize(), 12);
    EXPECT_EQ(pictureOf(*volumeCell("BTC")), writtenAt(64, 10.5, *volumeCell("BTC")));
    EXPECT_EQ(pictureOf(*priceCell("BTC")), writtenAt(82, 12, *priceCell("BTC")));
    EXPECT_EQ(pictureOf(*arrow("BTC")), drawnAt(9, Glyph::chevronRight, *arrow("BTC")));
}

// The boards

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

// The search

struct AddCoinSizesTest : AddCoinFixture {
    void show() {
        startConnected(listOf({"SOL"}));
        theExchangeTrades({"SOL"});
        view = std::make_unique<AddCoinView>(environment(), [](const std::string& /*symbol*/) {});
        showActive(*view);
        view->setFocus(Qt::PopupFocusReason);
    }
    [[nodiscard]] QWidget& root() const override { return *view; }

    std::unique_ptr<AddCoinView> view;
};

TEST_F(AddCoinSizesTest, aMatchIsWrittenAtItsSizes) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QFont name = systemFont(13, QFont::Medium);
    const QFont beside = systemFont(9.5);
    const QRgb surface = ThemeKey::value(*view).colors.surface.rgba();
    QImage expected(row("SOL")->size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(surface);
    {
        constexpr int kLeft = 12 + 16 + 6;
        constexpr int kBaseline = 18;
        const QString watched = QStringLiteral("已添加");
        const double pair =
            kLeft + QFontMetricsF(name).horizontalAdvance(QStringLiteral("SOL")) + 6;
        const double end =
            row("SOL")->width() - 12 - QFontMetricsF(beside).horizontalAdvance(watched);
        QPainter painter(&expected);
        painter.setPen(ThemeKey::value(*view).colors.secondaryText);
        painter.setFont(name);
        painter.drawText(QPointF(kLeft, kBaseline), QStringLiteral("SOL"));
        painter.setFont(beside);
        painter.drawText(QPointF(pair, kBaseline), QStringLiteral("SOL/USDT"));
        painter.drawText(QPointF(end, kBaseline), watched);
    }
    constexpr int kAfterTheIcon = 12 + 16 + 1;
    EXPECT_EQ(columnsWithInk(pictureOf(*row("SOL")), kAfterTheIcon, surface),
              columnsWithInk(expected, kAfterTheIcon, surface));
}

TEST_F(AddCoinSizesTest, whatIsSaidInThePlaceOfMatchesIsOf10Point5) {
    show();
    expectSmallLine(*view, QStringLiteral("输入币种代号开始搜索"), &Roles::secondaryText);
    searchFor(QStringLiteral("XYZ"));
    expectSmallLine(*view, QStringLiteral("无匹配结果"), &Roles::secondaryText);
}

TEST_F(AddCoinSizesTest, aFailureIsOf10Point5) {
    show();
    api.exchangeInfoAnswers.otherwiseError(BinanceError(503));
    searchFor(QStringLiteral("XYZ"));
    expectSmallLine(*view, QStringLiteral("搜索失败,请检查网络后重试"), &Roles::secondaryText);
}

TEST_F(AddCoinSizesTest, theFieldIsWrittenAt12PointsWithRoomAroundTheText) {
    show();
    EXPECT_EQ(field().font(), systemFont(12));
    EXPECT_EQ(field().height(), QFontMetrics(systemFont(12)).height() + 2 * 6);
    type(QStringLiteral("HH"));
    // The cursor stands at a whole pixel, in the middle of its rectangle.
    const QRectF cursor = field().inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const double text = QFontMetricsF(field().font()).horizontalAdvance(QStringLiteral("HH"));
    EXPECT_EQ(cursor.center().x(), 8 + qRound(text));
}

TEST_F(AddCoinSizesTest, theCornersOfTheFieldAreOfSixPoints) {
    show();
    const Roles& colors = ThemeKey::value(field()).colors;
    QImage expected(field().size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    {
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colors.accent, 1));
        painter.setBrush(colors.rowHover);
        painter.drawRoundedRect(QRectF(field().rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }
    const QRect corner(0, 0, 7, 7);
    EXPECT_EQ(pictureOf(field()).copy(corner), expected.copy(corner));
}

}  // namespace
}  // namespace quillbar
