// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppearanceMode.h"

#include "QuillbarCore/model/RawValue.h"
#include "QuillbarCore/model/UserText.h"

namespace quillbar {

std::string_view rawValue(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::dark:
        return "dark";
    case AppearanceMode::light:
        return "light";
    case AppearanceMode::system:
        break;
    }
    return "system";
}

std::optional<AppearanceMode> appearanceModeFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllAppearanceModes);
}

std::string_view displayName(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::dark:
        return userText("core", "深色");
    case AppearanceMode::light:
        return userText("core", "浅色");
    case AppearanceMode::system:
        break;
    }
    return userText("core", "跟随系统");
}

}  // namespace quillbar
