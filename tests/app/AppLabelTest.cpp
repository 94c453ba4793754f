// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelMessage.h"
#include "tests/app/QuillbarAppFixture.h"
#include "tests/support/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillbar {

namespace {

const QString kName = QStringLiteral("Quillbar");

/// The item's label with prices flowing.
struct AppLabelTest : QuillbarAppFixture {
    void startWithPrices() {
        startInTray();
        ASSERT_TRUE(spinUntil([this] {
            exchange.tick();
            return label().startsWith(QStringLiteral("BTC ")) && label().endsWith(u'%');
        })) << label().toStdString();
    }
    [[nodiscard]] QString label() {
        return host.property(QStringLiteral("XAyatanaLabel")).toString();
    }
    [[nodiscard]] bool hidesTheNumbers() {
        return label() == kName && app->labelSource().snapshot().text == "Quillbar";
    }
    [[nodiscard]] std::string preferences() const {
        return contentsOf(folder.path() / "preferences.json");
    }
};

TEST_F(AppLabelTest, theMenuHidesTheNumbersAndShowsThemAgain) {
    startWithPrices();
    host.readMenu();
    EXPECT_FALSE(isOn("隐藏数字"));
    choose("隐藏数字");
    EXPECT_TRUE(isOn("隐藏数字"));
    EXPECT_TRUE(hidesTheNumbers());
    EXPECT_EQ(host.tooltip().title, kName);
    EXPECT_TRUE(host.tooltip().text.startsWith(QStringLiteral("数字已隐藏")));
    EXPECT_EQ(preferences(),
              R"({"schemaVersion":1,"changeColors":"greenUp","label":{"discreet":true}})");
    choose("隐藏数字");
    EXPECT_FALSE(isOn("隐藏数字"));
    EXPECT_TRUE(label().startsWith(QStringLiteral("BTC "))) << label().toStdString();
    EXPECT_EQ(app->labelSource().snapshot().quote.coin->baseAsset, "BTC");
}

TEST_F(AppLabelTest, aCommandHidesTheNumbersAndTheyStayHiddenOverARestart) {
    startWithPrices();
    app->toggleDiscreet();
    EXPECT_TRUE(hidesTheNumbers());
    exchange.tick();
    spinUntilIdle();
    EXPECT_TRUE(hidesTheNumbers()) << "prices go on";
    app.reset();
    start(bus);
    ASSERT_TRUE(spinUntil([this] { return host.registered.size() > 1; }));
    EXPECT_TRUE(hidesTheNumbers());
    app->toggleDiscreet();
    EXPECT_TRUE(spinUntil([this] { return label().startsWith(QStringLiteral("BTC")); }));
}

TEST_F(AppLabelTest, coinsInTurnAreShownByTheItemAlone) {
    PreferencesStore(folder.path())
        .save(Preferences{}.settingLabel({.coins = LabelCoins::rotating, .rotationSeconds = 5}));
    startWithPrices();
    ASSERT_GT(sleeper.wake([](double span) { return span == 5; }), 0);
    EXPECT_TRUE(spinUntil([this] { return label().startsWith(QStringLiteral("ETH ")); }))
        << label().toStdString();
    EXPECT_EQ(app->labelSource().snapshot().quote.coin->baseAsset, "BTC");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "watchlist.json")) << "the pin stays";
    app->toggleDiscreet();
    EXPECT_TRUE(hidesTheNumbers());
    app->toggleDiscreet();
    EXPECT_TRUE(label().startsWith(QStringLiteral("BTC"))) << label().toStdString();
}

TEST_F(AppLabelTest, theWheelShowsTheNextCoinForAWhile) {
    startWithPrices();
    host.callItem(QStringLiteral("Scroll"), {-120, QStringLiteral("vertical")});
    EXPECT_TRUE(label().startsWith(QStringLiteral("ETH"))) << label().toStdString();
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(app->labelSource().snapshot().quote.coin->baseAsset, "BTC") << "the pin stays";
    EXPECT_TRUE(spinUntil([this] {
        sleeper.wake([](double span) { return span == ItemCoins::kTurnSpan.count(); });
        return label().startsWith(QStringLiteral("BTC"));
    }));
}

TEST_F(AppLabelTest, thePanelShowsNumbersAsEver) {
    startWithPrices();
    app->toggleDiscreet();
    app->showPanel(QString());
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(hidesTheNumbers());
    EXPECT_EQ(named(*panel(), QStringLiteral("数字已隐藏")), nullptr);
}

}  // namespace

}  // namespace quillbar
