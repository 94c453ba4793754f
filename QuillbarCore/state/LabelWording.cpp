// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/LabelWording.h"

#include "QuillbarCore/model/RawValue.h"

namespace quillbar {

std::string_view rawValue(LabelWording wording) {
    switch (wording) {
    case LabelWording::symbolPriceChange:
        return "symbolPriceChange";
    case LabelWording::symbolPrice:
        return "symbolPrice";
    case LabelWording::price:
        return "price";
    case LabelWording::change:
        return "change";
    case LabelWording::symbol:
        return "symbol";
    case LabelWording::custom:
        break;
    }
    return "custom";
}

std::optional<LabelWording> labelWordingFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllLabelWordings);
}

}  // namespace quillbar
