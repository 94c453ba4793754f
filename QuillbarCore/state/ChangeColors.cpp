// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/ChangeColors.h"

#include "QuillbarCore/model/RawValue.h"

namespace quillbar {

std::string_view rawValue(ChangeColors colors) {
    switch (colors) {
    case ChangeColors::greenUp:
        return "greenUp";
    case ChangeColors::redUp:
        return "redUp";
    case ChangeColors::blueUp:
        break;
    }
    return "blueUp";
}

std::optional<ChangeColors> changeColorsFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllChangeColors);
}

}  // namespace quillbar
