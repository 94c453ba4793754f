// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/LabelCoins.h"

#include "QuillbarCore/model/RawValue.h"

namespace quillbar {

std::string_view rawValue(LabelCoins coins) {
    switch (coins) {
    case LabelCoins::pinned:
        return "pinned";
    case LabelCoins::rotating:
        return "rotating";
    case LabelCoins::sideBySide:
        break;
    }
    return "sideBySide";
}

std::optional<LabelCoins> labelCoinsFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllLabelCoins);
}

std::string_view displayName(LabelCoins coins) {
    switch (coins) {
    case LabelCoins::pinned:
        return "固定的币种";
    case LabelCoins::rotating:
        return "轮流显示自选";
    case LabelCoins::sideBySide:
        break;
    }
    return "并排显示";
}

}  // namespace quillbar
