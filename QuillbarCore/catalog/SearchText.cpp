// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/SearchText.h"

#include "QuillbarCore/model/AsciiCase.h"

#include <algorithm>
#include <cstdint>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace quillbar::SearchText {

namespace {

icu::UnicodeString decoded(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string encoded(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

// Every separator is one UTF-16 unit.
bool isSeparator(char16_t unit) {
    switch (unit) {
    case u',':
    case u';':
    case u'、':
    case u'，':
    case u'；':
        return true;
    default:
        return u_isUWhiteSpace(unit) != 0;
    }
}

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

}  // namespace

std::string trimmed(std::string_view text) {
    const icu::UnicodeString characters = decoded(text);
    std::int32_t begin = 0;
    std::int32_t end = characters.length();
    // Every white space character is one UTF-16 unit.
    while (begin < end && u_isUWhiteSpace(characters.charAt(begin)) != 0) {
        ++begin;
    }
    while (end > begin && u_isUWhiteSpace(characters.charAt(end - 1)) != 0) {
        --end;
    }
    return encoded(characters.tempSubStringBetween(begin, end));
}

std::vector<std::string> words(std::string_view text) {
    const icu::UnicodeString characters = decoded(text);
    std::vector<std::string> found;
    std::int32_t begin = 0;
    for (std::int32_t end = 0; end <= characters.length(); ++end) {
        if (end < characters.length() && !isSeparator(characters.charAt(end))) {
            continue;
        }
        if (end > begin) {
            found.push_back(encoded(characters.tempSubStringBetween(begin, end)));
        }
        begin = end + 1;
    }
    return found;
}

std::string upperCased(std::string_view text) {
    // Fast path for nearly every base asset: the search maps thousands at each keystroke.
    if (std::all_of(text.begin(), text.end(), isAscii)) {
        std::string result(text);
        std::transform(result.begin(), result.end(), result.begin(), AsciiCase::upper);
        return result;
    }
    return encoded(decoded(text).toUpper(icu::Locale::getRoot()));
}

std::string lowerCased(std::string_view text) {
    return encoded(decoded(text).toLower(icu::Locale::getRoot()));
}

}  // namespace quillbar::SearchText
