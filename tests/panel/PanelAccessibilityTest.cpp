// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/chart/CoinDetailView.h"
#include "Quillbar/widgets/Popover.h"
#include "tests/chart/Candles.h"
#include "tests/panel/PanelFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLineEdit>

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <set>

namespace quillbar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// What a screen reader finds from an element on, and what it would stumble over.
class Walk final {
public:
    explicit Walk(QObject& root) { visit(*QAccessible::queryAccessibleInterface(&root)); }

    /// Each fault as "role 'name' what is wrong".
    std::vector<std::string> faults;
    /// The controls, as "role 'name'", with a "*" where one is checked or selected.
    std::vector<std::string> controls;
    /// Everything that was reached.
    std::set<const QObject*> objects;

private:
    void visit(QAccessibleInterface& element) {
        const QAccessible::State state = element.state();
        if (state.invisible) {
            return;
        }
        objects.insert(element.object());
        if (isControl(element)) {
            const std::string what = std::string(qAccessibleRoleString(element.role())) + " '"
                                     + element.text(QAccessible::Name).toStdString() + "'";
            controls.push_back(what + (state.checked || state.selected ? "*" : ""));
            judge(element, what);
        }
        for (int index = 0; index < element.childCount(); ++index) {
            if (QAccessibleInterface* const child = element.child(index)) {
                visit(*child);
            }
        }
    }

    /// What the user can act on, and what has a role that promises it.
    static bool isControl(QAccessibleInterface& element) {
        QAccessibleActionInterface* const actions = element.actionInterface();
        const bool acts = actions != nullptr && !actions->actionNames().isEmpty();
        switch (element.role()) {
        case QAccessible::Client:
        case QAccessible::Pane:
        case QAccessible::NoRole:
        case QAccessible::StaticText:
        case QAccessible::Separator:
        case QAccessible::PageTabList:
        case QAccessible::Notification:
            return acts || element.state().focusable
                   || dynamic_cast<QAbstractButton*>(element.object()) != nullptr;
        default:
            return true;
        }
    }

    void judge(QAccessibleInterface& element, const std::string& what) {
        const QAccessible::State state = element.state();
        const auto demand = [this, &what](bool isSo, const char* fault) {
            if (!isSo) {
                faults.push_back(what + " " + fault);
            }
        };
        demand(element.role() != QAccessible::NoRole && element.role() != QAccessible::Client
                   && element.role() != QAccessible::Pane,
               "has no role");
        demand(!element.text(QAccessible::Name).isEmpty(), "has no name");
        demand(!element.rect().isEmpty(), "has no place");
        switch (element.role()) {
        case QAccessible::ButtonMenu:
            demand(state.hasPopup, "tells of no popup");
            break;
        case QAccessible::EditableText:
            demand(state.editable && state.focusable, "cannot be edited");
            break;
        case QAccessible::PageTab:
            demand(state.selectable, "cannot be selected");
            break;
        case QAccessible::RadioButton:
        case QAccessible::CheckBox:
            demand(state.checkable, "cannot be checked");
            break;
        case QAccessible::Chart:
            demand(!element.text(QAccessible::Description).isEmpty(), "says nothing of its data");
            break;
        default:
            break;
        }
        if (const auto* const widget = qobject_cast<QWidget*>(element.object())) {
            demand(state.disabled != widget->isEnabled(), "is enabled, or is not, unlike it says");
            demand(state.focusable || widget->focusPolicy() == Qt::NoFocus,
                   "takes the focus and does not say so");
        }
        if (const auto* const button = qobject_cast<QAbstractButton*>(element.object())) {
            demand((state.checked || state.selected) == button->isChecked(),
                   "is on, or is not, unlike it says");
        }
    }
};

/// A panel in each of its states, large enough for all that it holds.
struct PanelAccessibilityTest : PanelFixture {
    void TearDown() override {
        if (menu() != nullptr) {
            menu()->close();
        }
    }

    void open() {
        startConnected(listOf({"BTC", "ETH"}));
        theExchangeHas({"BTC", "ETH", "SOL"});
        api.klinesAnswers.otherwise(
            candlesThrough({100, 120, 90, 110}, time.now(), std::chrono::minutes(5)));
        showActive(show());
    }
    void settle() {
        executor.run();
        spinUntilIdle();
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }
    void openChart() {
        click(QStringLiteral("展开 BTC 走势"));
        // Out of sight, the row need not unfold step by step.
        panel->hide();
        panel->show();
        settle();
    }

    /// A walk that has reached everything in the window which a user can act on.
    [[nodiscard]] static Walk walk(QWidget& window) {
        Walk walk(window);
        for (const QWidget* const each : window.findChildren<QWidget*>()) {
            const bool isForUsers = each->focusPolicy() != Qt::NoFocus
                                    || dynamic_cast<const QAbstractButton*>(each) != nullptr;
            if (isForUsers && each->isVisible() && each->window() == &window) {
                EXPECT_TRUE(walk.objects.count(each) == 1)
                    << each->accessibleName().toStdString() << " is not in the tree";
            }
        }
        return walk;
    }
};

TEST_F(PanelAccessibilityTest, everyControlOfTheWatchlistWithAChartSaysWhatItIs) {
    open();
    openChart();
    const Walk seen = walk(*panel);
    EXPECT_THAT(seen.faults, IsEmpty());
    for (const char* const control : {"Button '添加币种'",
                                      "ButtonMenu '设置'",
                                      "PageTab '自选'*",
                                      "PageTab '涨幅'",
                                      "Button '价格'",
                                      "List '自选列表'",
                                      "Button '收起 BTC 走势'",
                                      "RadioButton '走势范围：一天'*",
                                      "RadioButton '走势范围：一周'",
                                      "Chart 'BTC 走势图，1D'"}) {
        EXPECT_THAT(seen.controls, Contains(control));
    }
}

TEST_F(PanelAccessibilityTest, theChartTellsItsRangeFirstLastHighAndLow) {
    open();
    openChart();
    const QWidget* const chart = named(*panel, QStringLiteral("BTC 走势图，1D"));
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(chart->accessibleDescription().toStdString(),
              "一天，起始 100.00，最新 110.00，区间 +10.00%，高 120.00，低 90.00");
    api.klinesAnswers.otherwise(candlesThrough({200, 210}, time.now(), std::chrono::hours(1)));
    click(QStringLiteral("走势范围：一周"));
    settle();
    EXPECT_EQ(chart->accessibleDescription().toStdString(),
              "一周，起始 200.00，最新 210.00，区间 +5.00%，高 210.00，低 200.00");
}

TEST_F(PanelAccessibilityTest, everyControlOfABoardSaysWhatItIs) {
    open();
    click(QStringLiteral("涨幅"));
    settle();
    ASSERT_NE(shown<MarketBoardView>(), nullptr);
    const Walk seen = walk(*panel);
    EXPECT_THAT(seen.faults, IsEmpty());
    EXPECT_THAT(seen.controls, Contains("PageTab '涨幅'*"));
    EXPECT_THAT(seen.controls, Contains("PageTab '自选'"));
    EXPECT_THAT(seen.controls, Contains("List '涨幅榜'"));
    EXPECT_THAT(seen.controls, Contains("Button '加入自选 SOL'"));
    EXPECT_THAT(seen.controls, Contains(HasSubstr("ListItem '3，SOL，价格 110.00")));
}

TEST_F(PanelAccessibilityTest, everyControlOfTheSearchSaysWhatItIs) {
    open();
    click(QStringLiteral("添加币种"));
    const auto popovers = widgetsOf<Popover>(*panel);
    ASSERT_EQ(popovers.size(), 1U);
    Popover& popover = *popovers.front();
    EXPECT_THAT(walk(popover).faults, IsEmpty());
    QTest::keyClicks(popover.findChild<QLineEdit*>(), QStringLiteral("SOL"));
    time.advance(Seconds(1));
    spinUntilIdle();
    const Walk seen = walk(popover);
    EXPECT_THAT(seen.faults, IsEmpty());
    EXPECT_THAT(
        seen.controls,
        ElementsAre("EditableText '搜索币种'", "List '搜索结果'", "ListItem 'SOL，SOL/USDT'"));
}

TEST_F(PanelAccessibilityTest, everyEntryOfTheSettingsSaysWhatItIs) {
    open();
    click(QStringLiteral("设置"));
    ASSERT_NE(menu(), nullptr);
    const Walk seen = Walk(*menu());
    EXPECT_THAT(seen.faults, IsEmpty());
    EXPECT_THAT(seen.controls, Contains("PopupMenu '设置'"));
    EXPECT_THAT(seen.controls, Contains("MenuItem '24 小时'*"));
    EXPECT_THAT(seen.controls, Contains("MenuItem '今日'"));
}

TEST_F(PanelAccessibilityTest, everyControlOfThePreferencesSaysWhatItIs) {
    open();
    panel->showPreferences();
    spinUntilIdle();
    const Walk seen = walk(*panel);
    EXPECT_THAT(seen.faults, IsEmpty());
    EXPECT_THAT(seen.controls,
                ElementsAre("Button '返回'",
                            "Heading '颜色'",
                            "Grouping '颜色'",
                            "RadioButton '绿涨红跌'*",
                            "RadioButton '红涨绿跌'",
                            "RadioButton '蓝涨橙跌'",
                            "Heading '字号'",
                            "Grouping '字号'",
                            "RadioButton '100%'*",
                            "RadioButton '115%'",
                            "RadioButton '130%'",
                            "Heading '语言'",
                            "Grouping '语言'",
                            "RadioButton '简体中文'*",
                            "RadioButton 'English'",
                            "RadioButton '跟随系统'",
                            "Heading '状态栏'",
                            "Grouping '状态栏'",
                            "RadioButton '币种 价格 涨跌'*",
                            "RadioButton '币种 价格'",
                            "RadioButton '价格'",
                            "RadioButton '涨跌'",
                            "RadioButton '币种'",
                            "RadioButton '自定义'",
                            "Heading '状态栏的币种'",
                            "Grouping '状态栏的币种'",
                            "RadioButton '固定的币种'*",
                            "RadioButton '并排显示'",
                            "RadioButton '轮流显示自选'"));
}

TEST_F(PanelAccessibilityTest, everyAlertOfThePreferencesSaysWhatItIs) {
    startConnected(listOf({"BTC"}));
    price("BTC", 100);
    alerts().add({.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110});
    showActive(show());
    panel->showPreferences();
    spinUntilIdle();
    const Walk seen = walk(*panel);
    EXPECT_THAT(seen.faults, IsEmpty());
    EXPECT_THAT(seen.controls, Contains("Heading '提醒'"));
    EXPECT_THAT(seen.controls, Contains("CheckBox '提示音，价格提醒出现时响一声'"));
    EXPECT_THAT(seen.controls, Contains("CheckBox 'BTC 价格 ≥ 110.00，等待触发 · 仅一次'*"));
    EXPECT_THAT(seen.controls, Contains("Button '删除提醒，BTC 价格 ≥ 110.00 · 仅一次'"));
}

TEST_F(PanelAccessibilityTest, aScreenReaderChoosesATab) {
    open();
    QAccessibleActionInterface* const actions =
        QAccessible::queryAccessibleInterface(named(*panel, QStringLiteral("跌幅")))
            ->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(panel->tab(), PanelTab::board(RankingBoard::losers));
}

TEST(AccessibleWalkTest, findsControlsWithoutRoleNameOrState) {
    QWidget window;
    window.resize(100, 100);
    QWidget roleless(&window);
    roleless.resize(10, 10);
    roleless.setAccessibleName(QStringLiteral("roleless"));
    roleless.setFocusPolicy(Qt::TabFocus);
    struct Button final : QAbstractButton {
        using QAbstractButton::QAbstractButton;
        void paintEvent(QPaintEvent* /*event*/) override {}
    };
    Button nameless(&window);
    nameless.resize(10, 10);
    window.show();
    EXPECT_THAT(Walk(window).faults,
                ElementsAre("Client 'roleless' has no role", "Button '' has no name"));
}

}  // namespace
}  // namespace quillbar
