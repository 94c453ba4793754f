// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/OneLineText.h"

#include "QuillbarCore/runtime/OutsideText.h"

namespace quillbar::OneLineText {

QString of(std::string_view text) {
    return QString::fromStdString(OutsideText::oneLine(text));
}

}  // namespace quillbar::OneLineText
