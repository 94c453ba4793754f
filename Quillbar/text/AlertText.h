// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"

#include <QString>

/// Price alerts in words. Texts of the user's and of the exchange are on one line and safe to be
/// shown. Pure.
namespace quillbar::AlertText {

/// What it waits for: "价格 ≥ 70,000.00", "24 小时涨跌 ≤ -5.00%".
[[nodiscard]] QString condition(AlertKind kind, double threshold);

/// The same with how often it fires and the note: "价格 ≥ 70,000.00 · 仅一次 · 卖出",
/// "价格 ≥ 70,000.00 · 重复(回落 700.00 后)".
[[nodiscard]] QString description(const Alert& alert);

/// The description without the condition: "仅一次 · 卖出".
[[nodiscard]] QString manner(const Alert& alert);

/// Whether it waits for its line, and if not what must come first: "等待触发", "已关闭", "低于
/// 70,000.00 后生效", "回落到 69,300.00 后生效".
[[nodiscard]] QString state(const Alert& alert);

/// The title of its notice: "BTC 价格 ≥ 70,000.00"; "BTC 期间价格 ≥ 70,000.00" when the line was
/// crossed in a gap.
[[nodiscard]] QString title(const FiredAlert& fired);

/// The text below it: "当时 70,012.30，24 小时 +2.10%", and the note.
[[nodiscard]] QString details(const FiredAlert& fired);

}  // namespace quillbar::AlertText
