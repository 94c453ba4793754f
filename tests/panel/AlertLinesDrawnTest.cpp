// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertLines.h"
#include "Quillbar/text/LocalTimeText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Contrast.h"

#include <QDateTime>
#include <QLocale>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

/// The panel with two alerts that fired and that no desktop has shown.
struct AlertLinesDrawnTest : PanelFixture {
    void showTwo() {
        startConnected(listOf({"BTC", "ETH"}));
        price("BTC", 100);
        price("ETH", 100);
        alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110});
        alerts().add({.symbol = "ETHUSDT", .baseAsset = "ETH", .threshold = 110});
        price("BTC", 111);
        price("ETH", 112);
        unshownAlerts.set(*alerts().fired());
        showActive(show());
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }
    [[nodiscard]] AlertLines& lines() const { return *widgetsOf<AlertLines>(*panel).front(); }
    [[nodiscard]] ThemedLabel& text(std::size_t index) const {
        return *widgetsOf<ThemedLabel>(lines()).at(index);
    }
    [[nodiscard]] GlyphButton& button(std::size_t index) const {
        return *widgetsOf<GlyphButton>(lines()).at(index);
    }
    [[nodiscard]] QWidget& line(std::size_t index) const { return *text(index).parentWidget(); }
};

TEST_F(AlertLinesDrawnTest, aLineBeginsWithItsDayAndMinute) {
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    showTwo();
    const QDateTime noon = QDateTime::fromSecsSinceEpoch(1794657600).toLocalTime();
    const QString begin = LocalTimeText::dayAndMonth(noon.date(), chinese) + u' '
                          + LocalTimeText::hoursAndMinutes(noon.time(), chinese);
    EXPECT_EQ(text(0).text().toStdString(),
              begin.toStdString() + "  BTC 价格 ≥ 110.00\n当时 111.00，24 小时 +11.00%");
    EXPECT_EQ(line(0).accessibleName(), text(0).text());
}

TEST_F(AlertLinesDrawnTest, itsTextIsOf10Point5OverAFaintAccent) {
    showTwo();
    EXPECT_EQ(text(0).font(), systemFont(10.5));
    EXPECT_EQ(text(0).palette().color(QPalette::WindowText), colors().primaryText);
    EXPECT_TRUE(text(0).wordWrap());
    QColor tint = colors().accent;
    tint.setAlphaF(0.1F);
    const QColor expected = over(colors().surface, tint);
    const QColor drawn = pictureOf(line(0)).pixelColor(2, 2);
    EXPECT_NEAR(drawn.red(), expected.red(), 1);
    EXPECT_NEAR(drawn.green(), expected.green(), 1);
    EXPECT_NEAR(drawn.blue(), expected.blue(), 1);
}

TEST_F(AlertLinesDrawnTest, theTextBeginsAtTwelvePointsAndTheGlyphEndsThere) {
    showTwo();
    EXPECT_EQ(line(0).width(), 400);
    EXPECT_EQ(text(0).geometry().topLeft(), QPoint(12, 4));
    EXPECT_EQ(line(0).height() - text(0).geometry().bottom() - 1, 4);
    EXPECT_EQ(button(0).size(), QSize(20, 20));
    EXPECT_EQ(button(0).geometry().topRight(), QPoint(400 - 6 - 1, 4));
    EXPECT_EQ(text(0).geometry().right() + 1, button(0).geometry().left());
    EXPECT_EQ(line(1).geometry().top() - line(0).geometry().bottom() - 1, 1);
    EXPECT_EQ(line(0).mapTo(&lines(), QPoint()), QPoint());
}

TEST_F(AlertLinesDrawnTest, theButtonSaysWhatItDoes) {
    showTwo();
    EXPECT_EQ(button(0).toolTip(), QStringLiteral("知道了"));
    EXPECT_EQ(button(1).accessibleName(), QStringLiteral("知道了，") + text(1).text());
}

TEST_F(AlertLinesDrawnTest, theButtonMayDeleteItsOwnLine) {
    showTwo();
    const Observation seen = alerts().fired().observe(
        [this](const std::vector<FiredAlert>& fired) { unshownAlerts.set(fired); });
    QTest::mouseClick(&button(0), Qt::LeftButton);
    spinUntilIdle();
    ASSERT_EQ(widgetsOf<ThemedLabel>(lines()).size(), 1U) << "what was seen is deleted";
    EXPECT_TRUE(text(0).text().contains(QStringLiteral("ETH")));
    QTest::mouseClick(&button(0), Qt::LeftButton);
    spinUntilIdle();
    EXPECT_FALSE(lines().isVisible());
}

TEST_F(AlertLinesDrawnTest, aPanelWithoutAlertsHasNoLines) {
    startConnected(listOf({"BTC"}));
    show();
    EXPECT_FALSE(lines().isVisible());
    unshownAlerts.set({FiredAlert{}});
    EXPECT_FALSE(lines().isVisible());
}

}  // namespace
}  // namespace quillbar
