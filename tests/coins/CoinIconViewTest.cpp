// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinIconCache.h"
#include "Quillbar/coins/CoinIconView.h"
#include "Quillbar/text/FittedText.h"
#include "QuillbarCore/catalog/CoinIconDescriptor.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/coins/Logos.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/ViewFixture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

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
    // The coin changes after each step of what happens between the answer and the picture.
    bool isShown = false;
    for (int steps = 0; !isShown; ++steps) {
        SCOPED_TRACE(steps);
        const auto answer = iconFetcher->answers.held();
        show("COIN" + std::to_string(steps));
        answer.setValue({.body = logo(Qt::red), .status = 200});
        for (int step = 0; step < steps; ++step) {
            executor.runOne();
        }
        isShown = view->hasLogo();
        view->setBaseAsset("ETH");
        executor.run();
        EXPECT_EQ(seen(), discOf("ETH"));
        ASSERT_LT(steps, 1000);
    }
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

TEST_F(CoinIconViewTest, asksAgainForAMissingLogoOnlyAfterAnHour) {
    iconFetcher->answer(404);
    theLogoIs(Qt::red);
    show("NEW");
    for (int minute = 0; minute < 59; ++minute) {
        time.advance(Seconds(60));
        view->hide();
        show("NEW");
        view = make();
        show("new");
    }
    EXPECT_THAT(iconFetcher->requests, SizeIs(1));
    EXPECT_EQ(seen(), discOf("NEW"));
    time.advance(Seconds(60));
    view->hide();
    show("new");
    EXPECT_THAT(iconFetcher->requests, SizeIs(2));
    EXPECT_TRUE(view->hasLogo());
}

TEST_F(CoinIconViewTest, asksAgainAtTheNextAppearanceWhenTheNetworkFailed) {
    iconFetcher->fail(URLError(URLError::Code::timedOut, "timed out"));
    theLogoIs(Qt::red);
    show("BTC");
    EXPECT_FALSE(view->hasLogo());
    view->hide();
    show("BTC");
    EXPECT_TRUE(view->hasLogo());
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

TEST_F(CoinIconViewTest, writesTheMonogramInWhiteInTheMiddleOfTheDiscOnePointFromTheEdges) {
    constexpr double kSide = 64;
    for (const QString& monogram : {QStringLiteral("I"), QStringLiteral("WWW")}) {
        SCOPED_TRACE(monogram.toStdString());
        view = make(kSide);
        iconFetcher->answer(404);
        show(monogram.toStdString());
        const FittedText::Fit fit =
            FittedText::fit(monogram, kSide * 0.38, QFont::DemiBold, kSide - 2, 0.5);
        const QFontMetricsF metrics(fit.font);
        QImage expected(64, 64, QImage::Format_ARGB32);
        expected.fill(Qt::transparent);
        {
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(discOf(monogram.toStdString()));
            painter.drawEllipse(QRectF(0, 0, kSide, kSide));
            painter.setFont(fit.font);
            painter.setPen(Qt::white);
            painter.drawText(QPointF(kSide / 2 - metrics.horizontalAdvance(monogram) / 2,
                                     kSide / 2 + metrics.capHeight() / 2),
                             monogram);
        }
        QImage picture(64, 64, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        view->render(&picture, {}, {}, QWidget::DrawChildren);
        EXPECT_EQ(picture, expected);
    }
}

TEST_F(CoinIconViewTest, isPaintedForAnotherCoinAndForItsLogo) {
    QWidget window;
    window.resize(40, 40);
    view->setParent(&window);
    window.show();
    ASSERT_TRUE(spinUntil([&window] { return window.windowHandle()->isExposed(); }));
    const auto answer = iconFetcher->answers.held();
    EXPECT_EQ(paintsOf(*view, [this] { show("BTC"); }), 1);
    const auto logoComes = [&] {
        answer.setValue({.body = logo(Qt::red), .status = 200});
        executor.run();
    };
    EXPECT_EQ(paintsOf(*view, logoComes), 1);
    view->setParent(nullptr);
}

TEST_F(CoinIconViewTest, waitsOnWhenItIsHiddenAndShownAtOnce) {
    const auto answer = iconFetcher->answers.held();
    show("BTC");
    view->hide();
    view->show();
    answer.setValue({.body = logo(Qt::red), .status = 200});
    executor.run();
    EXPECT_TRUE(view->hasLogo());
}

TEST(CoinIconViewColors, areTwelveInTheirOrderAndTakenModuloTwelve) {
    struct Row {
        const char* name;
        QColor color;
    };
    const std::vector<Row> rows{
        {"blue", {0, 113, 235}},
        {"orange", {224, 122, 16}},
        {"green", {40, 160, 75}},
        {"purple", {160, 75, 205}},
        {"pink", {230, 50, 110}},
        {"teal", {30, 140, 165}},
        {"indigo", {88, 86, 214}},
        {"mint", {0, 165, 145}},
        {"cyan", {40, 155, 215}},
        {"brown", {150, 116, 78}},
        {"red", {222, 56, 48}},
        {"yellow", {200, 155, 0}},
    };
    for (int index = 0; index < 12; ++index) {
        const Row& row = rows[static_cast<std::size_t>(index)];
        EXPECT_EQ(CoinIconView::placeholderColor(index), row.color) << row.name;
        EXPECT_EQ(CoinIconView::placeholderColor(index + 12), row.color) << row.name;
    }
}

}  // namespace
}  // namespace quillbar
