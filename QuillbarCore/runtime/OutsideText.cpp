// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/OutsideText.h"

#include <algorithm>
#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace quillbar::OutsideText {

namespace {

bool isPrintableAscii(char byte) {
    return byte >= ' ' && byte <= '~';
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

void append(UChar32 character, icu::UnicodeString& line) {
    switch (u_charType(character)) {
    case U_FORMAT_CHAR:
        break;
    case U_CONTROL_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
        line.append(u' ');
        break;
    default:
        line.append(character);
        break;
    }
}

}  // namespace

std::string oneLine(std::string_view text) {
    // Fast path for nearly every text, such as the base asset of each row.
    if (std::all_of(text.begin(), text.end(), isPrintableAscii)) {
        return std::string(text);
    }
    const auto characters = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    icu::UnicodeString line;
    for (std::int32_t at = 0; at < characters.length(); at = characters.moveIndex32(at, 1)) {
        append(characters.char32At(at), line);
    }
    std::string bytes;
    line.toUTF8String(bytes);
    return bytes;
}

std::string shortened(std::string_view text, std::size_t length) {
    if (text.size() <= length) {
        return std::string(text);
    }
    while (length > 0 && continuesCharacter(text[length])) {
        --length;
    }
    return std::string(text.substr(0, length)) + "…";
}

}  // namespace quillbar::OutsideText
