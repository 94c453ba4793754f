// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/CoinIconCache.h"
#include "Quillbar/CoinIconView.h"
#include "QuillbarCore/catalog/CoinIconDescriptor.h"
#include "tests/views/Logos.h"
#include "tests/views/ViewFixture.h"

#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kSize = 16;

QColor discOf(const std::string& baseAsset) {
    return CoinIconView::placeholderColor(CoinIconDescriptor{baseAsset}.colorIndex());
}

struct CoinIconViewTest : ViewFixture {
    void SetUp() override {
        build();
        CoinIconCache::shared().clear();
        view = make();
    }
    void TearDown() override {
        view.reset();
        CoinIconCache::shared().clear();
    }

    std::unique_ptr<CoinIconView> make(double size = kSize) {
        return std::make_unique<CoinIconView>(environment(), size);
    }

    void show(const std::string& baseAsset) {
        view->setBaseAsset(baseAsset);
        view->show();
        executor.run();
    }

    void theLogoIs(const QColor& color) { iconFetcher->answer(200, logo(color)); }

    /// The colour near the bottom of the icon, where no letter reaches.
    [[nodiscard]] QColor seen() const { return seenAt(8, 14); }
    [[nodiscard]] QColor seenAt(int x, int y) const {
        QImage image(view->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        view->render(&image, {}, {}, QWidget::DrawChildren);
        return image.pixelColor(x, y);
    }

    std::unique_ptr<CoinIconView> view;
};

TEST_F(CoinIconViewTest, showsTheLogoWhenItIsThere) {
    theLogoIs(Qt::red);
    show("BTC");
    EXPECT_TRUE(view->hasLogo());
    EXPECT_EQ(seen(), QColor(Qt::red));
}

TEST_F(CoinIconViewTest, isADiscUntilTheLogoComes) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    EXPECT_EQ(seen(), discOf("BTC"));
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_EQ(seen(), QColor(Qt::red));
}

TEST_F(CoinIconViewTest, keepsTheDiscOfACoinWithoutALogo) {
    iconFetcher->answer(404);
    show("BTC");
    EXPECT_FALSE(view->hasLogo());
    EXPECT_EQ(seen(), discOf("BTC"));
    EXPECT_EQ(seenAt(8, 14).alpha(), 255);
}

TEST_F(CoinIconViewTest, keepsTheDiscWhenTheLogoCannotBeDecoded) {
    iconFetcher->answer(200, "\x89PNG and the rest");
    show("BTC");
    EXPECT_EQ(seen(), discOf("BTC"));
    EXPECT_TRUE(CoinIconCache::shared().image("BTC").isNull());
}

TEST_F(CoinIconViewTest, keepsTheDiscWithoutAnIconStore) {
    ViewEnvironment bare = environment();
    bare.iconStore = nullptr;
    view = std::make_unique<CoinIconView>(bare, kSize);
    show("BTC");
    EXPECT_EQ(seen(), discOf("BTC"));
    EXPECT_THAT(iconFetcher->requests, IsEmpty());
}

TEST_F(CoinIconViewTest, takesTheLogoFromTheCacheEvenWithoutAnIconStore) {
    theLogoIs(Qt::red);
    show("BTC");
    ViewEnvironment bare = environment();
    bare.iconStore = nullptr;
    view = std::make_unique<CoinIconView>(bare, kSize);
    view->setBaseAsset("BTC");
    view->show();
    // Before anything of a task runs, so that no disc flashes.
    EXPECT_EQ(seen(), QColor(Qt::red));
}

TEST_F(CoinIconViewTest, decodesALogoOnceForAllSpellings) {
    theLogoIs(Qt::red);
    show("btc");
    view = make();
    show("BTC");
    EXPECT_EQ(seen(), QColor(Qt::red));
    EXPECT_THAT(iconFetcher->requests, SizeIs(1));
    EXPECT_EQ(CoinIconCache::shared().image("BTC").cacheKey(),
              CoinIconCache::shared().image("Btc").cacheKey());
}

TEST_F(CoinIconViewTest, sharesWhatAnotherViewDecodedMeanwhile) {
    const auto answer = iconFetcher->answers.held();
    const auto other = make();
    other->setBaseAsset("BTC");
    other->show();
    show("btc");
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_TRUE(view->hasLogo());
    EXPECT_TRUE(other->hasLogo());
    EXPECT_THAT(iconFetcher->requests, SizeIs(1));
}

TEST_F(CoinIconViewTest, doesNotTakeTheLogoOfTheCoinBefore) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    view->setBaseAsset("ETH");
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_EQ(seen(), discOf("ETH"));
    EXPECT_TRUE(CoinIconCache::shared().image("BTC").isNull());
}

TEST_F(CoinIconViewTest, doesNotTakeALogoThatCameJustBeforeTheCoinChanged) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    answer.setValue({.body = logo(Qt::red), .status = 200});
    view->setBaseAsset("ETH");
    executor.run();
    EXPECT_EQ(seen(), discOf("ETH"));
}

TEST_F(CoinIconViewTest, leavesTheLogoWithTheCoin) {
    theLogoIs(Qt::red);
    iconFetcher->answer(404);
    show("BTC");
    view->setBaseAsset("ETH");
    EXPECT_EQ(seen(), discOf("ETH"));
}

TEST_F(CoinIconViewTest, asksForNothingBeforeItIsShown) {
    view->setBaseAsset("BTC");
    view->setBaseAsset("ETH");
    executor.run();
    EXPECT_THAT(iconFetcher->requests, IsEmpty());
    view->show();
    executor.run();
    EXPECT_THAT(iconFetcher->requests, ElementsAre("https://icons.test/logos/ETH.png"));
}

TEST_F(CoinIconViewTest, stopsWaitingWhenItIsHiddenAndAsksAgainWhenShown) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    view->hide();
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_FALSE(view->hasLogo());
    view->show();
    executor.run();
    EXPECT_EQ(seen(), QColor(Qt::red));
    EXPECT_THAT(iconFetcher->requests, SizeIs(1));
}

TEST_F(CoinIconViewTest, mayGoWhileItsLogoIsOnTheWay) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    view.reset();
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_TRUE(CoinIconCache::shared().image("BTC").isNull());
}

TEST_F(CoinIconViewTest, isRound) {
    theLogoIs(Qt::red);
    show("BTC");
    EXPECT_EQ(seenAt(0, 0).alpha(), 0);
    EXPECT_EQ(seenAt(15, 15).alpha(), 0);
    EXPECT_GT(seenAt(0, 8).alpha(), 200);
    // An edge without steps.
    const int edge = seenAt(2, 2).alpha();
    EXPECT_GT(edge, 0);
    EXPECT_LT(edge, 255);
}

TEST_F(CoinIconViewTest, hasTheSameSizeWithAndWithoutALogo) {
    EXPECT_EQ(view->sizeHint().isValid() ? view->sizeHint() : view->size(), QSize(16, 16));
    EXPECT_EQ(make(22)->size(), QSize(22, 22));
    theLogoIs(Qt::red);
    show("BTC");
    EXPECT_EQ(view->size(), QSize(16, 16));
}

TEST_F(CoinIconViewTest, letsThePointerThrough) {
    QWidget row;
    view->setParent(&row);
    show("BTC");
    row.show();
    EXPECT_EQ(row.childAt(8, 8), nullptr);
    view->setParent(nullptr);
}

TEST_F(CoinIconViewTest, writesTheMonogramInWhite) {
    view = make(64);
    iconFetcher->answer(404);
    show("I");
    int white = 0;
    for (int y = 0; y < 64; ++y) {
        white += seenAt(32, y) == QColor(Qt::white) ? 1 : 0;
    }
    // Capitals of 24 points.
    EXPECT_GE(white, 14);
    EXPECT_LE(white, 22);
}

TEST_F(CoinIconViewTest, shrinksALongMonogramIntoTheDisc) {
    view = make(64);
    iconFetcher->answer(404);
    show("WWW");
    for (int y = 0; y < 64; ++y) {
        EXPECT_NE(seenAt(1, y), QColor(Qt::white));
        EXPECT_NE(seenAt(62, y), QColor(Qt::white));
    }
}

TEST(CoinIconViewColors, areTwelveAndTakenModuloTwelve) {
    std::set<QRgb> colors;
    for (int index = 0; index < CoinIconDescriptor::kColorCount; ++index) {
        colors.insert(CoinIconView::placeholderColor(index).rgb());
        EXPECT_EQ(CoinIconView::placeholderColor(index),
                  CoinIconView::placeholderColor(index + CoinIconDescriptor::kColorCount));
    }
    EXPECT_THAT(colors, SizeIs(12));
}

}  // namespace
}  // namespace quillbar
