// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Glyphs.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/watchlist/AddCoinListFixture.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

#include <exception>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ResultArea = AddCoinView::ResultArea;

using AddCoinListTest = AddCoinListFixture;

// What is offered

TEST_F(AddCoinListTest, aPastedListIsOfferedInOneRow) {
    show();
    read(QStringLiteral("eth; SOL/USDT 1000SATS，FOO、btc,ETHUSDT BAR"));
    EXPECT_EQ(view->resultArea(), ResultArea::list);
    EXPECT_THAT(offered(),
                ElementsAre("添加 3 个币种，ETH、SOL、1000SATS", "未找到 FOO、BAR", "已添加 BTC"));
    EXPECT_THAT(area(), IsEmpty()) << "neither a text nor a match";
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"})) << "nothing is added before it is picked";
}

TEST_F(AddCoinListTest, theOfferHasAPlusOf13PointsInThePlaceOfAnIcon) {
    show();
    read(QStringLiteral("eth SOL"));
    const ThemeColors::Resolved& colors = ThemeKey::value(*offerRow()).colors;
    QImage expected(offerRow()->size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    {
        QPainter painter(&expected);
        drawGlyph(painter, Glyph::plus, QRectF(12 + 1.5, 14 - 6.5, 13, 13), colors.accent);
    }
    const QRect place(0, 0, 12 + 16, 28);
    EXPECT_EQ(pictureOf(*offerRow()).copy(place), expected.copy(place));
}

TEST_F(AddCoinListTest, aListMayStandInLines) {
    show();
    read(QStringLiteral("SOL\nETH\r\nFOO\n"));
    EXPECT_THAT(offered(), ElementsAre("添加 2 个币种，SOL、ETH", "未找到 FOO"));
}

TEST_F(AddCoinListTest, aListCanBeTyped) {
    show();
    searchFor(QStringLiteral("sol"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"));
    type(QStringLiteral(", eth"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"))
        << "until the list has been read";
    time.advance(Seconds{0.3});
    EXPECT_THAT(offered(), ElementsAre("添加 2 个币种，SOL、ETH"));
    EXPECT_THAT(view->results(), IsEmpty());
}

TEST_F(AddCoinListTest, oneNameIsSearchedForAsEver) {
    show();
    const std::vector<std::string> matches{"SOL，SOL/USDT", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"};
    for (const char16_t* const one : {u" sol ", u"sol,", u"SOL sol"}) {
        read(QString::fromUtf16(one));
        EXPECT_EQ(area(), matches) << QString::fromUtf16(one).toStdString();
        EXPECT_THAT(offered(), IsEmpty());
    }
    read(QStringLiteral("SOL/USDT"));
    EXPECT_THAT(area(), ElementsAre("无匹配结果"));
}

TEST_F(AddCoinListTest, oneNameAfterAListIsSearchedForAgain) {
    show();
    read(QStringLiteral("SOL ETH"));
    ASSERT_EQ(view->resultArea(), ResultArea::list);
    read(QStringLiteral("SOLV"));
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
    EXPECT_THAT(offered(), IsEmpty());
    field().clear();
    executor.run();
    EXPECT_THAT(area(), ElementsAre("输入币种代号开始搜索"));
}

TEST_F(AddCoinListTest, noRowIsOfferedWhenNothingCanBeAdded) {
    show({"BTC", "SOL"});
    read(QStringLiteral("SOL FOO BTC"));
    EXPECT_THAT(offered(), ElementsAre("未找到 FOO", "已添加 SOL、BTC"));
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL"}));
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinListTest, aMegabyteIsReadAtItsBeginning) {
    show();
    read(QStringLiteral("ETH SOLV ").repeated(131'072));
    EXPECT_EQ(view->query().size(), SearchField::kMaximumLength);
    EXPECT_THAT(offered(), ElementsAre("添加 2 个币种，ETH、SOLV", "内容太长，只读了前面 2 个"));
}

TEST_F(AddCoinListTest, aLongListIsReadWhole) {
    show();
    std::vector<std::string> traded;
    QString pasted;
    for (int number = 1000; number < 2024; ++number) {
        traded.push_back("COIN" + std::to_string(number));
        pasted += QString::fromStdString(traded.back()) + QStringLiteral("/USDT\n");
    }
    theExchangeTrades(traded);
    read(pasted);
    EXPECT_EQ(view->offer()->fresh.size(), 1024U);
    EXPECT_FALSE(view->offer()->list.isCut);
    press(Qt::Key_Return);
    EXPECT_EQ(state->watchlist()->coins.size(), 1025U);
    EXPECT_EQ(stream.symbolLists.back().size(), Watchlist::kMaximumFollowed);
}

TEST_F(AddCoinListTest, theOfferFollowsTheWatchlist) {
    show();
    read(QStringLiteral("SOL ETH"));
    run(state->add(coinOf("ETH")));
    EXPECT_THAT(offered(), ElementsAre("添加 1 个币种，SOL", "已添加 ETH"));
    press(Qt::Key_Down);
    ASSERT_TRUE(offerRow()->hasFocus());
    run(state->add(coinOf("SOL")));
    EXPECT_THAT(offered(), ElementsAre("已添加 SOL、ETH"));
    EXPECT_TRUE(field().hasFocus());
    run(state->remove(symbolOf("ETH")));
    EXPECT_THAT(offered(), ElementsAre("添加 1 个币种，ETH", "已添加 SOL"));
    EXPECT_EQ(dismissals, 0);
}

// Failures

TEST_F(AddCoinListTest, aFailureIsTriedAgainByEnterWhichAdds) {
    show();
    api.exchangeInfoAnswers.error(URLError(URLError::Code::timedOut, "the test says so"));
    read(QStringLiteral("SOL ETH"));
    EXPECT_THAT(area(), ElementsAre("搜索失败,请检查网络后重试"));
    EXPECT_THAT(offered(), IsEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL", "ETH"}));
}

TEST_F(AddCoinListTest, aFailureTakesTheOfferAway) {
    show();
    // The catalog that is loaded stays, so the first list has to fail as well.
    auto catalog = api.exchangeInfoAnswers.held();
    read(QStringLiteral("SOL ETH"));
    EXPECT_THAT(area(), ElementsAre("搜索中…"));
    catalog.setError(
        std::make_exception_ptr(URLError(URLError::Code::cannotConnect, "the test says so")));
    executor.run();
    EXPECT_THAT(area(), ElementsAre("搜索失败,请检查网络后重试"));
    type(QStringLiteral(" "));
    time.advance(Seconds{0.3});
    EXPECT_THAT(offered(), ElementsAre("添加 2 个币种，SOL、ETH"));
}

// Look

TEST_F(AddCoinListTest, standsInThePlaceOfTheMatches) {
    show();
    read(QStringLiteral("SOL FOO ETH BTC"));
    const int belowTheField = 8 + field().height() + 6;
    EXPECT_EQ(offerView().geometry(), QRect(4, belowTheField, 280 - 2 * 4, 200));
    EXPECT_EQ(offerRow()->mapTo(view.get(), QPoint()), QPoint(4, belowTheField));
    EXPECT_EQ(offerRow()->size(), QSize(280 - 2 * 4, 28));
    EXPECT_EQ(view->height(), belowTheField + 200 + 4);
}

TEST_F(AddCoinListTest, theNotesStandBelowTheRowAndInItsPlaceWhenItGoes) {
    show();
    read(QStringLiteral("SOL FOO ETH"));
    const ThemedLabel* const notes = widgetsOf<ThemedLabel>(*view).front();
    EXPECT_EQ(notes->geometry().topLeft(), QPoint(0, 28));
    const int height = notes->height();
    EXPECT_EQ(height, notes->heightForWidth(notes->width()));
    run(state->addAll({coinOf("SOL"), coinOf("ETH")}));
    EXPECT_EQ(notes->geometry().topLeft(), QPoint(0, 0));
    EXPECT_GT(notes->height(), height) << "it says one thing more";
    run(state->remove(symbolOf("SOL")));
    EXPECT_EQ(notes->geometry().topLeft(), QPoint(0, 28));
}

TEST_F(AddCoinListTest, everythingThatIsSaidFits) {
    show();
    QString pasted;
    for (int number = 10; number < 30; ++number) {
        pasted += QStringLiteral("WWWWWWWWWWWWWW%1 ").arg(number);
    }
    read(pasted.repeated(1000));
    const ThemedLabel* const notes = widgetsOf<ThemedLabel>(*view).front();
    EXPECT_LE(notes->geometry().bottom(), offerView().height());
    EXPECT_GE(notes->height(), notes->heightForWidth(notes->width()));
}

TEST_F(AddCoinListTest, followsTheTheme) {
    show();
    read(QStringLiteral("SOL FOO ETH"));
    ThemeKey::set(*view, {.colors = ThemeColors::light()});
    const QImage light = pictureOf(*offerRow());
    const QPoint plus(12 + 16 / 2, 28 / 2);
    EXPECT_EQ(light.pixelColor(plus), ThemeColors::light().accent);
    const ThemedLabel* const notes = widgetsOf<ThemedLabel>(*view).front();
    EXPECT_EQ(notes->palette().color(QPalette::WindowText), ThemeColors::light().secondaryText);
    ThemeKey::set(*view, {.colors = ThemeColors::dark()});
    EXPECT_EQ(pictureOf(*offerRow()).pixelColor(plus), ThemeColors::dark().accent);
    EXPECT_EQ(notes->palette().color(QPalette::WindowText), ThemeColors::dark().secondaryText);
}

TEST_F(AddCoinListTest, theRowIsTintedUnderThePointer) {
    show();
    read(QStringLiteral("SOL ETH"));
    const QImage before = pictureOf(*offerRow());
    offerRow()->setHovering(true);
    EXPECT_NE(pictureOf(*offerRow()), before);
}

}  // namespace
}  // namespace quillbar
