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

}  // namespace quillbar
