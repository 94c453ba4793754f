// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AlertText.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(AlertTextTest, saysWhatAnAlertWaitsFor) {
    EXPECT_EQ(AlertText::condition(AlertKind::priceAtLeast, 70000),
              QStringLiteral("价格 ≥ 70,000.00"));
    EXPECT_EQ(AlertText::condition(AlertKind::priceAtMost, 0.00012345),
              QStringLiteral("价格 ≤ 0.0001234"));
    EXPECT_EQ(AlertText::condition(AlertKind::changeAtLeast, 5),
              QStringLiteral("24 小时涨跌 ≥ +5.00%"));
    EXPECT_EQ(AlertText::condition(AlertKind::changeAtMost, -5),
              QStringLiteral("24 小时涨跌 ≤ -5.00%"));
}

TEST(AlertTextTest, saysHowOftenItFires) {
    Alert alert{.threshold = 70000, .note = "卖\n出"};
    EXPECT_EQ(AlertText::description(alert), QStringLiteral("价格 ≥ 70,000.00 · 仅一次 · 卖 出"));
    alert.note.clear();
    alert.margin = 700;
    EXPECT_EQ(AlertText::description(alert),
              QStringLiteral("价格 ≥ 70,000.00 · 重复（回落 700.00 后）"));
    alert = {.kind = AlertKind::changeAtMost, .threshold = -5, .margin = 1};
    EXPECT_EQ(AlertText::description(alert),
              QStringLiteral("24 小时涨跌 ≤ -5.00% · 重复（回升 1.00% 后）"));
}

TEST(AlertTextTest, saysWhetherItWaitsOrWhatMustComeFirst) {
    Alert alert{.threshold = 70000, .isArmed = true};
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("等待触发"));
    alert.isArmed = false;
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("低于 70,000.00 后生效"));
    alert.margin = 700;
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("回落到 69,300.00 后生效"));
    alert.isOn = false;
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("已关闭"));
    alert = {.kind = AlertKind::changeAtMost, .threshold = -5};
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("高于 -5.00% 后生效"));
    alert.margin = 1;
    EXPECT_EQ(AlertText::state(alert), QStringLiteral("回升到 -4.00% 后生效"));
}

TEST(AlertTextTest, saysWhatFiredAndWhetherItWasMeanwhile) {
    FiredAlert fired{.alert = {.baseAsset = "BTC", .threshold = 70000, .note = "卖\x1b出"},
                     .price = 70012.3,
                     .changePercent = 2.1};
    EXPECT_EQ(AlertText::title(fired), QStringLiteral("BTC 价格 ≥ 70,000.00"));
    EXPECT_EQ(AlertText::details(fired), QStringLiteral("当时 70,012.30，24 小时 +2.10%\n卖 出"));
    fired.isMeanwhile = true;
    fired.alert.note.clear();
    EXPECT_EQ(AlertText::title(fired), QStringLiteral("BTC 期间价格 ≥ 70,000.00"));
    EXPECT_EQ(AlertText::details(fired),
              QStringLiteral("在休眠、断线或未运行期间越过。当时 70,012.30，24 小时 +2.10%"));
    fired.alert.kind = AlertKind::changeAtLeast;
    fired.alert.threshold = 2;
    EXPECT_EQ(AlertText::title(fired), QStringLiteral("BTC 期间 24 小时涨跌 ≥ +2.00%"));
}

}  // namespace
}  // namespace quillbar
