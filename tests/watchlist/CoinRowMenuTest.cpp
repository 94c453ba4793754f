// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/CoinRowMenu.h"
#include "Quillbar/widgets/Glyphs.h"
#include "tests/qtsupport/Ink.h"
#include "tests/watchlist/CoinListFixture.h"

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct CoinRowMenuTest : CoinListFixture {
    void TearDown() override {
        if (menu() != nullptr) {
            menu()->close();
        }
    }
    void showLossesInGreen() {
        ThemeKey::set(*window, {.colors = ThemeColors::of(ColorScheme::dark, ChangeColors::redUp)});
    }
    void chooseFor(const std::string& baseAsset, const std::string& title) {
        openMenu(baseAsset);
        choose(title);
    }
};

TEST_F(CoinRowMenuTest, theRemovalCarriesABinThatIsRedWhateverColourLossesHave) {
    show({"BTC"});
    showLossesInGreen();
    openMenu("BTC");
    QImage expected(16, 16, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        drawGlyph(painter, Glyph::trash, QRectF(2, 2, 12, 12), ThemeColors::dark().danger);
    }
    const QImage icon = item("删除")->icon().pixmap(16, 16).toImage();
    EXPECT_EQ(icon.size(), QSize(16, 16));
    EXPECT_LE(difference(icon, expected), 1);
    for (const char* const title : {"置顶", "上移", "下移", "固定到菜单栏"}) {
        EXPECT_TRUE(item(title)->icon().isNull()) << title;
    }
}

TEST_F(CoinRowMenuTest, theRemovalIsWrittenInRedWhateverColourLossesHave) {
    show({"BTC", "ETH"});
    showLossesInGreen();
    openMenu("BTC");
    const auto hasRedText = [](const char* title) {
        // Without the column of the icons.
        const QRect text = menu()->actionGeometry(item(title)).adjusted(28, 0, 0, 0);
        const QImage image = menu()->grab(text).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.red() > pixel.green() + 60 && pixel.red() > pixel.blue() + 60) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(hasRedText("删除"));
    EXPECT_FALSE(hasRedText("固定到菜单栏"));
}

TEST_F(CoinRowMenuTest, aCoinInTheMiddleMovesBothWays) {
    show({"BTC", "ETH", "SOL"});
    openMenu("ETH");
    EXPECT_THAT(items(), ElementsAre("置顶", "上移", "下移", "-", "固定到菜单栏", "删除"));
}

TEST_F(CoinRowMenuTest, theFirstCoinMovesDownOnlyAndTheLastUpOnly) {
    show({"BTC", "ETH", "SOL"});
    openMenu("BTC");
    EXPECT_THAT(items(), ElementsAre("(置顶)", "(上移)", "下移", "-", "固定到菜单栏", "删除"));
    menu()->close();
    openMenu("SOL");
    EXPECT_THAT(items(), ElementsAre("置顶", "上移", "(下移)", "-", "固定到菜单栏", "删除"));
}

TEST_F(CoinRowMenuTest, theOnlyCoinMovesNowhere) {
    show({"BTC"});
    openMenu("BTC");
    EXPECT_THAT(items(), ElementsAre("(置顶)", "(上移)", "(下移)", "-", "固定到菜单栏", "删除"));
}

TEST_F(CoinRowMenuTest, aSortedListOffersItsManualOrderInstead) {
    show({"BTC", "ETH"});
    tick("ETH", {300, 100});
    tick("BTC", {200, 100});
    click("价格");
    ASSERT_THAT(order(), ElementsAre("ETH", "BTC"));
    openMenu("ETH");
    EXPECT_THAT(items(), ElementsAre("恢复手动顺序", "-", "固定到菜单栏", "删除"));
    choose("恢复手动顺序");
    EXPECT_EQ(view->sort(), std::nullopt);
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
    EXPECT_EQ(header("价格")->direction(), std::nullopt);
}

TEST_F(CoinRowMenuTest, movesACoinAndSavesTheOrder) {
    show({"A", "B", "C", "D"});
    chooseFor("C", "置顶");
    EXPECT_THAT(order(), ElementsAre("C", "A", "B", "D"));
    chooseFor("B", "上移");
    EXPECT_THAT(order(), ElementsAre("C", "B", "A", "D"));
    chooseFor("C", "下移");
    EXPECT_THAT(order(), ElementsAre("B", "C", "A", "D"));
    chooseFor("A", "下移");
    EXPECT_THAT(order(), ElementsAre("B", "C", "D", "A"));
    EXPECT_EQ(storedList().coins, listOf({"B", "C", "D", "A"}).coins);
}

TEST_F(CoinRowMenuTest, pinsACoin) {
    show({"BTC", "ETH"});
    chooseFor("ETH", "固定到菜单栏");
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("ETH"));
    EXPECT_EQ(coinCell("ETH")->pinMark(), PinMark::pinned);
}

TEST_F(CoinRowMenuTest, removesACoin) {
    show({"BTC", "ETH"});
    chooseFor("BTC", "删除");
    EXPECT_THAT(order(), ElementsAre("ETH"));
    EXPECT_EQ(storedList().coins, listOf({"ETH"}).coins);
}

TEST_F(CoinRowMenuTest, aCoinThatIsNotOnTheListHasNothingToMove) {
    show({"BTC"});
    CoinRowMenu::make(environment(), symbolOf("ETH"), {}, {}, view)->popup(QPoint(0, 0));
    EXPECT_THAT(items(), ElementsAre("-", "固定到菜单栏", "删除"));
}

TEST_F(CoinRowMenuTest, anEditIsOfTheListAsItStandsWhenItIsChosen) {
    show({"A", "B", "C"});
    openMenu("C");
    run(state->remove(symbolOf("A")));
    run(state->move({1}, 0));
    ASSERT_THAT(order(), ElementsAre("C", "B"));
    choose("上移");
    EXPECT_THAT(order(), ElementsAre("C", "B"));
    openMenu("B");
    run(state->remove(symbolOf("B")));
    choose("上移");
    EXPECT_THAT(order(), ElementsAre("C"));
}

TEST_F(CoinRowMenuTest, theMenuKeysOpenItAtTheRow) {
    show({"BTC", "ETH"});
    row("ETH")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Menu);
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->pos(), row("ETH")->mapToGlobal(QPoint(12, 28)));
    menu()->close();
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_NE(menu(), nullptr);
}

TEST_F(CoinRowMenuTest, goesWhenItIsClosed) {
    show({"BTC"});
    openMenu("BTC");
    EXPECT_FALSE(widgetsOf<QMenu>(*window).empty());
    menu()->close();
    EXPECT_TRUE(spinUntil([this] { return widgetsOf<QMenu>(*window).empty(); }));
    EXPECT_THAT(items(), IsEmpty());
}

}  // namespace
}  // namespace quillbar
