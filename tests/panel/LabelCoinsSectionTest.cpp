// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LabelCoinsSection.h"
#include "tests/panel/PanelFixture.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

const QString kRotating = QStringLiteral("轮流显示自选");
const QString kMinute = QStringLiteral("每 60 秒");

struct LabelCoinsSectionTest : PanelFixture {
    void SetUp() override { section.show(); }
    [[nodiscard]] QAbstractButton& button(const QString& name) {
        return dynamic_cast<QAbstractButton&>(*named(section, name));
    }
    [[nodiscard]] const LabelPreferences& label() const { return preferences.preferences()->label; }

    LabelCoinsSection section{preferences};
};

TEST_F(LabelCoinsSectionTest, beginsWithThePinnedCoin) {
    EXPECT_TRUE(button(QStringLiteral("固定的币种")).isChecked());
    EXPECT_EQ(named(section, kMinute), nullptr);
}

TEST_F(LabelCoinsSectionTest, asksForTheSpanOnlyOfCoinsInTurn) {
    button(kRotating).click();
    EXPECT_EQ(label().coins, LabelCoins::rotating);
    EXPECT_TRUE(button(kMinute).isVisible());
    EXPECT_TRUE(button(QStringLiteral("每 10 秒")).isChecked());
    button(kMinute).click();
    EXPECT_EQ(label().rotationSeconds, 60);
    button(QStringLiteral("并排显示")).click();
    EXPECT_EQ(label().coins, LabelCoins::sideBySide);
    EXPECT_EQ(named(section, kMinute), nullptr);
    EXPECT_EQ(label().rotationSeconds, 60) << "it is kept for another time";
}

TEST_F(LabelCoinsSectionTest, theSpansStandUnderTheTitleOfCoinsInTurn) {
    button(kRotating).click();
    spinUntilIdle();
    const auto placeOf = [this](const QString& name) {
        return button(name).mapTo(&section, QPoint());
    };
    EXPECT_GT(placeOf(kRotating).y(), placeOf(QStringLiteral("并排显示")).y());
    const int rowHeight = button(kRotating).height();
    EXPECT_NEAR(placeOf(QStringLiteral("每 5 秒")).y(), placeOf(kRotating).y() + rowHeight, 4);
    EXPECT_EQ(placeOf(QStringLiteral("每 5 秒")).x(), placeOf(kRotating).x() + 21);
}

TEST_F(LabelCoinsSectionTest, theSpansStandThereAtLargerTextsToo) {
    button(kRotating).click();
    ThemeKey::set(section, {.colors = ThemeColors::dark(), .scale = 1.3});
    spinUntilIdle();
    EXPECT_EQ(button(QStringLiteral("每 5 秒")).mapTo(&section, QPoint()).x(),
              button(kRotating).mapTo(&section, QPoint()).x() + 27);
}

TEST_F(LabelCoinsSectionTest, showsWhatIsStored) {
    preferences.setLabel({.coins = LabelCoins::rotating, .rotationSeconds = 5});
    EXPECT_TRUE(button(kRotating).isChecked());
    EXPECT_TRUE(button(QStringLiteral("每 5 秒")).isChecked());
}

}  // namespace
}  // namespace quillbar
