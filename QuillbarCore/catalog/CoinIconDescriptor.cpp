// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/CoinIconDescriptor.h"

#include "QuillbarCore/catalog/SearchText.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace quillbar {

namespace {

bool isNumeric(const icu::UnicodeString& text, std::int32_t at) {
    return u_getNumericValue(text.char32At(at)) != U_NO_NUMERIC_VALUE;
}

icu::UnicodeString decoded(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

// The end of the character that begins at `at`. A character is what a reader takes for one.
std::int32_t characterEnd(icu::BreakIterator* characters,
                          const icu::UnicodeString& text,
                          std::int32_t at) {
    if (characters == nullptr) {
        // Without ICU's data a code point is the best guess.
        return text.moveIndex32(at, 1);
    }
    return characters->following(at);
}

}  // namespace

bool CoinIconDescriptor::canHaveLogo() const {
    return !baseAsset.empty() && baseAsset != "." && baseAsset != ".."
           && baseAsset.size() <= kLongestBaseAsset
           && baseAsset.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

std::string CoinIconDescriptor::fileName() const {
    return SearchText::lowerCased(baseAsset) + ".png";
}

std::string CoinIconDescriptor::monogram() const {
    constexpr int kLength = 3;
    const icu::UnicodeString text = decoded(baseAsset);
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
    if (characters) {
        characters->setText(text);
    }
    const auto next = [&](std::int32_t at) { return characterEnd(characters.get(), text, at); };
    std::int32_t begin = 0;
    while (begin < text.length() && isNumeric(text, begin)) {
        begin = next(begin);
    }
    if (begin == text.length()) {
        begin = 0;
    }
    std::int32_t end = begin;
    for (int count = 0; count < kLength && end < text.length(); ++count) {
        end = next(end);
    }
    std::string initials;
    text.tempSubStringBetween(begin, end).toUTF8String(initials);
    return initials.empty() ? "?" : SearchText::upperCased(initials);
}

int CoinIconDescriptor::colorIndex() const {
    // 64-bit FNV-1a.
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : SearchText::upperCased(baseAsset)) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 0x100000001b3U;
    }
    return static_cast<int>(hash % kColorCount);
}

}  // namespace quillbar
