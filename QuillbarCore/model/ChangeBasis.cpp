// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ChangeBasis.h"

#include "QuillbarCore/model/RawValue.h"
#include "QuillbarCore/model/UserText.h"

namespace quillbar {

std::string_view rawValue(ChangeBasis basis) {
    return basis == ChangeBasis::today ? "today" : "rolling24h";
}

std::optional<ChangeBasis> changeBasisFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllChangeBases);
}

std::string_view displayName(ChangeBasis basis) {
    return basis == ChangeBasis::today ? userText("core", "今日") : userText("core", "24 小时");
}

}  // namespace quillbar
