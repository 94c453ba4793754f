// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LabelSection.h"
#include "Quillbar/watchlist/SearchField.h"
#include "tests/panel/PanelFixture.h"

#include <QAbstractButton>
#include <QLabel>

#include <gtest/gtest.h>

#include <string>

namespace quillbar {
namespace {

const QString kField = QStringLiteral("自定义的模板");
const QString kOwn = QStringLiteral("自定义");

/// The page of preferences over a list with a price of bitcoin.
struct LabelSectionTest : PanelFixture {
    void openPage() {
        startConnected(listOf({"BTC", "ETH"}));
        price("BTC", 101);
        showActive(show());
        panel->showPreferences();
        spinUntilIdle();
    }
    void choose(const QString& wording) {
        click(wording);
        spinUntilIdle();
    }
    /// Replaces the template as a user does who types it.
    void type(const QString& text) {
        auto* const field = shown<SearchField>();
        ASSERT_NE(field, nullptr);
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClicks(field, text);
        spinUntilIdle();
    }
    /// The line of the section that begins so, without that; null while there is none.
    [[nodiscard]] QString line(const QString& beginning) const {
        for (const QLabel* const label : widgetsOf<QLabel>(*panel)) {
            if (label->isVisible() && label->text().startsWith(beginning)) {
                return label->text().mid(beginning.size());
            }
        }
        return {};
    }
    [[nodiscard]] QString preview() const { return line(QStringLiteral("预览：")); }
    [[nodiscard]] const LabelPreferences& label() const { return preferences.preferences()->label; }
};

TEST_F(LabelSectionTest, beginsWithWhatIsChosen) {
    preferences.setLabel({.wording = LabelWording::price});
    openPage();
    EXPECT_TRUE(dynamic_cast<QAbstractButton&>(*named(*panel, QStringLiteral("价格"))).isChecked());
    EXPECT_EQ(preview(), QStringLiteral("101.00"));
}

TEST_F(LabelSectionTest, aChoiceHoldsAtOnceAndIsPreviewed) {
    openPage();
    EXPECT_EQ(preview(), QStringLiteral("BTC 101.00 ▲ 1.00%"));
    choose(QStringLiteral("币种 价格"));
    EXPECT_EQ(label().wording, LabelWording::symbolPrice);
    EXPECT_EQ(preview(), QStringLiteral("BTC 101.00"));
    choose(QStringLiteral("涨跌"));
    EXPECT_EQ(label().wording, LabelWording::change);
    EXPECT_EQ(preview(), QStringLiteral("▲ 1.00%"));
}

TEST_F(LabelSectionTest, thePreviewFollowsThePrice) {
    openPage();
    time.advance(Seconds(2));
    price("BTC", 102);
    EXPECT_EQ(preview(), QStringLiteral("BTC 102.00 ▲ 2.00%"));
}

TEST_F(LabelSectionTest, anExampleStandsInForAPriceThatIsNotThere) {
    startConnected(listOf({"BTC"}));
    showActive(show());
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_EQ(preview(), QString());
    EXPECT_EQ(line(QStringLiteral("示例：")), QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
}

TEST_F(LabelSectionTest, onlyTheUsersOwnWordingHasAField) {
    openPage();
    EXPECT_EQ(shown<SearchField>(), nullptr);
    choose(kOwn);
    ASSERT_NE(shown<SearchField>(), nullptr);
    EXPECT_EQ(shown<SearchField>()->accessibleName(), kField);
    EXPECT_EQ(shown<SearchField>()->text(), QStringLiteral("{symbol} {price} {arrow} {change}"));
    EXPECT_EQ(preview(), QStringLiteral("BTC 101.00 ▲ 1.00%"));
    choose(QStringLiteral("币种"));
    EXPECT_EQ(shown<SearchField>(), nullptr);
}

TEST_F(LabelSectionTest, aTemplateHoldsWhileItIsTyped) {
    openPage();
    choose(kOwn);
    type(QStringLiteral("{symbol} {price:.0}"));
    EXPECT_EQ(label().ownTemplate, "{symbol} {price:.0}");
    EXPECT_EQ(preview(), QStringLiteral("BTC 101"));
    EXPECT_EQ(line(QStringLiteral("第 ")), QString());
}

TEST_F(LabelSectionTest, theLastTemplateThatCouldBeReadStaysInForce) {
    openPage();
    choose(kOwn);
    type(QStringLiteral("{price} {pric"));
    EXPECT_EQ(label().ownTemplate, "{price} ");
    EXPECT_EQ(preview().trimmed(), QStringLiteral("101.00"));
    EXPECT_EQ(line(QStringLiteral("第 ")),
              QStringLiteral("9 个字符：「{」之后没有「}」，要写大括号本身请用「{{」"));
    QTest::keyClicks(shown<SearchField>(), QStringLiteral("e}"));
    EXPECT_EQ(label().ownTemplate, "{price} {price}");
    EXPECT_EQ(line(QStringLiteral("第 ")), QString());
}

TEST_F(LabelSectionTest, aTemplateOfNothingIsRefused) {
    openPage();
    choose(kOwn);
    type(QStringLiteral("{price}"));
    type(QString());
    EXPECT_EQ(line(QStringLiteral("第 ")), QStringLiteral("1 个字符：模板不能为空"));
    type(QStringLiteral("  "));
    EXPECT_EQ(line(QStringLiteral("模板不能只有空")), QStringLiteral("格"));
    EXPECT_EQ(label().ownTemplate, "{price}");
}

TEST_F(LabelSectionTest, aTextThatCannotBeReadIsGoneWhenThePageOpensAgain) {
    openPage();
    choose(kOwn);
    type(QStringLiteral("{price}{"));
    panel->closePreferences();
    spinUntilIdle();
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_EQ(shown<SearchField>()->text(), QStringLiteral("{price}"));
    EXPECT_EQ(line(QStringLiteral("第 ")), QString());
}

TEST_F(LabelSectionTest, aTextStaysWhileTheWindowIsMinimized) {
    openPage();
    choose(kOwn);
    type(QStringLiteral("{price}{"));
    QHideEvent minimized;
    QSpontaneKeyEvent::setSpontaneous(&minimized);
    // `sendEvent` would make it an event of our own again.
    QCoreApplication::instance()->notify(shown<LabelSection>(), &minimized);
    EXPECT_EQ(shown<SearchField>()->text(), QStringLiteral("{price}{"));
}

TEST_F(LabelSectionTest, aStoredTemplateThatCannotBeReadIsShownWithItsMistake) {
    preferences.setLabel({.wording = LabelWording::custom, .ownTemplate = "{volume}"});
    openPage();
    EXPECT_EQ(shown<SearchField>()->text(), QStringLiteral("{volume}"));
    EXPECT_TRUE(line(QStringLiteral("第 2 个字符：")).startsWith(QStringLiteral("未知的字段")));
    EXPECT_EQ(preview(), QStringLiteral("BTC 101.00 ▲ 1.00%"));
}

TEST_F(LabelSectionTest, aLongTemplateMakesThePanelNoWider) {
    openPage();
    choose(kOwn);
    type(QString(300, u'W'));
    EXPECT_EQ(label().ownTemplate, std::string(LabelSection::kLongestTemplate, 'W'));
    EXPECT_EQ(preview(), QString(64, u'W'));
    EXPECT_EQ(panel->width(), PanelView::kWidth);
    EXPECT_LE(shown<SearchField>()->width(), PanelView::kWidth);
}

}  // namespace
}  // namespace quillbar
