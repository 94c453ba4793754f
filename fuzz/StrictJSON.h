// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// What a reader of RFC 8259 that shares no code with any JSON library says about a text.
struct JSONVerdict final {
    /// Whether the text is exactly one JSON value in UTF-8. An escaped surrogate without its
    /// partner is refused too: no UTF-8 stands for it. So is a byte order mark.
    bool isJSON = false;
    /// Whether the text goes where parsers may differ: nested over 500 deep, an integer of more
    /// than 200 digits, an exponent of three, and so perhaps a number beyond all doubles.
    bool isBeyondLimits = false;
};

[[nodiscard]] JSONVerdict judgeJSON(std::string_view text);

}  // namespace quillbar
