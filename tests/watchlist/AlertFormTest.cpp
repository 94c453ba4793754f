// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AlertForm.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/widgets/Popover.h"
#include "Quillbar/widgets/TextButton.h"
#include "tests/watchlist/CoinListFixture.h"

#include <QAccessible>
#include <QScrollArea>

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The form of BTC, which costs 102 after 100, opened from its row's menu.
struct AlertFormTest : CoinListFixture {
    void openForm() {
        showWithAlerts({"BTC", "ETH"});
        tick("BTC", {102, 100});
        chooseAlerts();
    }
    void chooseAlerts() {
        openMenu("BTC");
        choose("价格提醒…");
        ASSERT_NE(popover(), nullptr);
    }
    [[nodiscard]] static Popover* popover() {
        return dynamic_cast<Popover*>(QApplication::activePopupWidget());
    }
    void TearDown() override {
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        spinUntilIdle();
    }
    [[nodiscard]] static SearchField& field(const char* name) {
        auto* const found = dynamic_cast<SearchField*>(named(*popover(), QString::fromUtf8(name)));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    [[nodiscard]] static SearchField& value() {
        return field("提醒的价格，或带百分号的 24 小时涨跌");
    }
    static void type(const char* text) {
        value().selectAll();
        QTest::keyClicks(&value(), QString::fromUtf8(text));
    }
    /// What is said below the field.
    [[nodiscard]] static std::string meaning() {
        return value().accessibleDescription().toStdString();
    }
    [[nodiscard]] TextButton& button() const {
        return dynamic_cast<TextButton&>(*named(*popover(), QStringLiteral("添加提醒")));
    }
};

TEST_F(AlertFormTest, theMenuOffersItBesideWhatItHad) {
    showWithAlerts({"BTC", "ETH", "SOL"});
    openMenu("ETH");
    EXPECT_THAT(items(),
                ElementsAre("置顶", "上移", "下移", "-", "固定到菜单栏", "价格提醒…", "删除"));
}

TEST_F(AlertFormTest, enterWithAltOpensItFromARowAndTheFocusComesBack) {
    showWithAlerts({"BTC", "ETH"});
    tick("ETH", {102, 100});
    row("BTC")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    press(Qt::Key_Return, Qt::AltModifier);
    ASSERT_NE(popover(), nullptr);
    EXPECT_EQ(popover()->accessibleName(), QStringLiteral("ETH 价格提醒"));
    EXPECT_TRUE(value().hasFocus());
    EXPECT_EQ(chart("ETH"), nullptr);
    QTest::keyClick(&value(), Qt::Key_Escape);
    spinUntilIdle();
    EXPECT_EQ(popover(), nullptr);
    EXPECT_EQ(window->focusWidget(), row("ETH"));
}

TEST_F(AlertFormTest, withoutAlertsEnterWithAltDoesNothing) {
    show({"BTC"});
    row("BTC")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return, Qt::AltModifier);
    spinUntilIdle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(chart("BTC"), nullptr);
}

TEST_F(AlertFormTest, saysOfAnAlertThatIsOffThatItIs) {
    showWithAlerts({"BTC"});
    tick("BTC", {102, 100});
    alerts().switchOff(
        alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110}).value());
    chooseAlerts();
    EXPECT_NE(named(*popover(), QStringLiteral("删除提醒，价格 ≥ 110.00 · 仅一次 · 已关闭")),
              nullptr);
    EXPECT_EQ(coinCell("BTC")->bellMark(), BellMark::none);
}

TEST_F(AlertFormTest, opensWithThePresentPriceSelected) {
    openForm();
    EXPECT_EQ(popover()->accessibleName(), QStringLiteral("BTC 价格提醒"));
    EXPECT_TRUE(value().hasFocus());
    EXPECT_EQ(value().text(), QStringLiteral("102.00"));
    EXPECT_EQ(value().selectedText(), QStringLiteral("102.00"));
    EXPECT_FALSE(button().isEnabled());
}

TEST_F(AlertFormTest, whatWasTypedKeepsItsMeaningWhenThePricePassesIt) {
    openForm();
    type("110");
    tick("BTC", {111, 100});
    EXPECT_EQ(meaning(), "价格 ≥ 110.00 时提醒");
    QTest::mouseClick(&button(), Qt::LeftButton);
    ASSERT_EQ(alerts().alerts()->size(), 1U);
    EXPECT_EQ(alerts().alerts()->front().kind, AlertKind::priceAtLeast);
    EXPECT_TRUE(alerts().fired()->empty());
    tick("BTC", {112, 100});
    EXPECT_EQ(alerts().fired()->size(), 1U) << "the line was crossed before the user's eyes";
}

TEST_F(AlertFormTest, whatIsThePriceGetsAMeaningAsSoonAsThePriceMoves) {
    openForm();
    type("102");
    EXPECT_EQ(meaning(), "现在就是这个数；高于它提醒上涨，低于它提醒下跌");
    tick("BTC", {103, 100});
    EXPECT_EQ(meaning(), "价格 ≤ 102.00 时提醒");
    tick("BTC", {101, 100});
    EXPECT_EQ(meaning(), "价格 ≤ 102.00 时提醒");
}

TEST_F(AlertFormTest, whatNobodyTypedIsJudgedAnewByEachPrice) {
    openForm();
    tick("BTC", {101, 100});
    EXPECT_EQ(meaning(), "价格 ≥ 102.00 时提醒");
    tick("BTC", {103, 100});
    EXPECT_EQ(meaning(), "价格 ≤ 102.00 时提醒");
}

TEST_F(AlertFormTest, saysWhatTheTypedTextMeans) {
    openForm();
    type("110");
    EXPECT_EQ(meaning(), "价格 ≥ 110.00 时提醒");
    EXPECT_TRUE(button().isEnabled());
    type("90");
    EXPECT_EQ(meaning(), "价格 ≤ 90.00 时提醒");
    type("5%");
    EXPECT_EQ(meaning(), "24 小时涨跌 ≥ +5.00% 时提醒");
    type("-5%");
    EXPECT_EQ(meaning(), "24 小时涨跌 ≤ -5.00% 时提醒");
    type("abc");
    EXPECT_EQ(meaning(), "不是价格，也不是带 % 的涨跌");
    EXPECT_FALSE(button().isEnabled());
}

TEST_F(AlertFormTest, theButtonIsPaleWhileThereIsNothingToAdd) {
    openForm();
    const auto strongest = [this] {
        const QImage image = pictureOf(button());
        int most = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const QColor pixel = image.pixelColor(x, y);
                most = std::max(most, pixel.blue() - pixel.red());
            }
        }
        return most;
    };
    EXPECT_LT(strongest(), 40);
    type("110");
    EXPECT_GT(strongest(), 100);
}

TEST_F(AlertFormTest, enterAddsTheAlertAndClosesTheForm) {
    openForm();
    type("110");
    QTest::keyClicks(&field("备注"), QStringLiteral(" sell "));
    QTest::keyClick(&value(), Qt::Key_Return);
    spinUntilIdle();
    EXPECT_EQ(popover(), nullptr);
    ASSERT_EQ(alerts().alerts()->size(), 1U);
    const Alert& alert = alerts().alerts()->front();
    EXPECT_EQ(alert.symbol, "BTCUSDT");
    EXPECT_EQ(alert.kind, AlertKind::priceAtLeast);
    EXPECT_EQ(alert.threshold, 110);
    EXPECT_EQ(alert.margin, std::nullopt);
    EXPECT_EQ(alert.note, "sell");
    EXPECT_TRUE(alert.isArmed);
}

TEST_F(AlertFormTest, enterAddsNothingThatMeansNothing) {
    openForm();
    QTest::keyClick(&value(), Qt::Key_Return);
    EXPECT_NE(popover(), nullptr);
    EXPECT_THAT(*alerts().alerts(), IsEmpty());
}

TEST_F(AlertFormTest, aRepeatedAlertHasAMargin) {
    openForm();
    type("110");
    QTest::mouseClick(named(*popover(), QStringLiteral("重复")), Qt::LeftButton);
    SearchField& margin = field("往回多少后可再次提醒");
    EXPECT_EQ(margin.text(), QStringLiteral("1%"));
    margin.setText(QStringLiteral("200"));
    EXPECT_FALSE(button().isEnabled());
    QTest::keyClick(&margin, Qt::Key_Return);
    EXPECT_THAT(*alerts().alerts(), IsEmpty());
    margin.setText(QStringLiteral("10%"));
    QTest::mouseClick(&button(), Qt::LeftButton);
    ASSERT_EQ(alerts().alerts()->size(), 1U);
    EXPECT_EQ(alerts().alerts()->front().margin, 11);
}

TEST_F(AlertFormTest, listsTheAlertsOfTheCoinAndRemovesThem) {
    openForm();
    popover()->close();
    alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110, .note = "a"});
    alerts().add({.symbol = "ETHUSDT", .baseAsset = "ETH", .threshold = 120});
    chooseAlerts();
    QWidget* const removal =
        named(*popover(), QStringLiteral("删除提醒，价格 ≥ 110.00 · 仅一次 · a"));
    ASSERT_NE(removal, nullptr);
    EXPECT_EQ(named(*popover(), QStringLiteral("删除提醒，价格 ≥ 120.00 · 仅一次")), nullptr);
    QTest::mouseClick(removal, Qt::LeftButton);
    EXPECT_FALSE(alerts().has("BTCUSDT"));
    EXPECT_TRUE(alerts().has("ETHUSDT"));
    EXPECT_FALSE(widgetsOf<QScrollArea>(*popover()).front()->isVisible());
}

TEST_F(AlertFormTest, manyAlertsScrollInsteadOfGrowing) {
    openForm();
    popover()->close();
    for (int each = 1; each <= 40; ++each) {
        alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110.0 + each});
    }
    chooseAlerts();
    EXPECT_EQ(widgetsOf<QScrollArea>(*popover()).front()->height(), AlertForm::kListHeight);
}

TEST_F(AlertFormTest, tellsWhenTheAlertCannotBeSaved) {
    openForm();
    files.breakAll();
    type("110");
    QTest::keyClick(&value(), Qt::Key_Return);
    EXPECT_NE(popover(), nullptr);
    EXPECT_EQ(alerts().alerts()->size(), 1U);
    files.repair();
}

TEST_F(AlertFormTest, tabGoesThroughEverythingAndEscapeCloses) {
    openForm();
    type("110");
    std::vector<std::string> stops;
    for (int each = 0; each < 4; ++each) {
        stops.push_back(QApplication::focusWidget()->accessibleName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(stops,
                ElementsAre("提醒的价格，或带百分号的 24 小时涨跌", "仅一次", "备注", "添加提醒"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    spinUntilIdle();
    EXPECT_EQ(popover(), nullptr);
}

TEST_F(AlertFormTest, theTwoWaysAreReadAsAChoice) {
    openForm();
    for (const char* const name : {"仅一次", "重复"}) {
        QWidget* const choice = named(*popover(), QString::fromUtf8(name));
        ASSERT_NE(choice, nullptr);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(choice)->role(), QAccessible::RadioButton);
    }
}

TEST_F(AlertFormTest, aRowWithAnAlertHasABell) {
    openForm();
    popover()->close();
    EXPECT_EQ(coinCell("BTC")->bellMark(), BellMark::none);
    const auto id =
        alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110}).value();
    EXPECT_EQ(coinCell("BTC")->bellMark(), BellMark::bell);
    EXPECT_EQ(coinCell("ETH")->bellMark(), BellMark::none);
    EXPECT_TRUE(row("BTC")->spokenText().endsWith(QStringLiteral("，有价格提醒")));
    alerts().remove(id);
    EXPECT_EQ(coinCell("BTC")->bellMark(), BellMark::none);
}

TEST_F(AlertFormTest, theBellIsDrawnAfterThePin) {
    openForm();
    popover()->close();
    const QImage before = pictureOf(*coinCell("BTC"));
    alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110});
    const QImage after = pictureOf(*coinCell("BTC"));
    int first = after.width();
    int last = -1;
    for (int x = 0; x < after.width(); ++x) {
        for (int y = 0; y < after.height(); ++y) {
            if (after.pixel(x, y) != before.pixel(x, y)) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    EXPECT_GT(last, first);
    EXPECT_LE(last - first, 10) << "nothing else has moved";
}

}  // namespace
}  // namespace quillbar
