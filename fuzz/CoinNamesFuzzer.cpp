// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "fuzz/Lines.h"
#include "QuillbarCore/catalog/CoinNames.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <vector>

namespace quillbar {

namespace {

using CoinNames::Found;
using Names = std::vector<std::string>;

icu::UnicodeString upperCased(std::string_view text) {
    return icu::UnicodeString::fromUTF8(std::string(text)).toUpper(icu::Locale::getRoot());
}

std::string bytesOf(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

template <class Item>
bool has(const std::vector<Item>& items, const Item& wanted) {
    return std::find(items.begin(), items.end(), wanted) != items.end();
}

/// The names in a text, character by character.
Names naiveNames(std::string_view text) {
    const bool isCut = text.size() > CoinNames::kMaximumBytes;
    const icu::UnicodeString characters =
        icu::UnicodeString::fromUTF8(std::string(text.substr(0, CoinNames::kMaximumBytes)));
    std::vector<icu::UnicodeString> words(1);
    for (std::int32_t index = 0; index < characters.length();
         index = characters.moveIndex32(index, 1)) {
        const UChar32 character = characters.char32At(index);
        const bool separates = u_isUWhiteSpace(character) != 0
                               || icu::UnicodeString(u",;、，；").indexOf(character) >= 0;
        if (!separates) {
            words.back().append(character);
        } else if (!words.back().isEmpty()) {
            words.emplace_back();
        }
    }
    if (words.back().isEmpty()) {
        words.pop_back();
    }
    if (isCut && !words.empty()) {
        words.pop_back();
    }
    Names names;
    for (const icu::UnicodeString& word : words) {
        const std::string name = bytesOf(upperCased(bytesOf(word)));
        if (!has(names, name)) {
            names.push_back(name);
        }
    }
    return names;
}

/// The first coin of that name, by trying each way to write one on each coin.
std::optional<Coin> naiveCoin(const std::string& name, const std::vector<Coin>& catalog) {
    for (const Coin& coin : catalog) {
        if (bytesOf(upperCased(coin.baseAsset)) == name) {
            return coin;
        }
    }
    for (const Coin& coin : catalog) {
        if (bytesOf(upperCased(coin.symbol)) == name) {
            return coin;
        }
    }
    for (const Coin& coin : catalog) {
        for (const std::string stroke : {"/", "-", "_"}) {
            if (bytesOf(upperCased(coin.baseAsset)) + stroke + "USDT" == name) {
                return coin;
            }
        }
    }
    return std::nullopt;
}

Found naiveFound(const Names& names, const std::vector<Coin>& catalog) {
    Found found;
    for (const std::string& name : names) {
        const std::optional<Coin> coin = naiveCoin(name, catalog);
        if (!coin) {
            found.unknown.push_back(name);
        } else if (!has(found.coins, *coin)) {
            found.coins.push_back(*coin);
        }
    }
    return found;
}

/// Whether the base asset is a single name, by which only this coin is found.
bool isPlain(const Coin& coin) {
    return std::all_of(coin.baseAsset.begin(), coin.baseAsset.end(), [](char byte) {
        return (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
    });
}

}  // namespace

/// Base assets, a line each, then an empty line, then the text that is read.
void fuzz(std::string_view input) {
    const std::size_t gap = input.find("\n\n");
    const std::string_view text = gap == std::string_view::npos ? input : input.substr(gap + 2);
    std::vector<Coin> catalog;
    if (gap != std::string_view::npos) {
        for (const std::string& base : linesOf(input.substr(0, gap))) {
            if (!base.empty() && !has(catalog, Coin{base + "USDT", base})) {
                catalog.push_back({base + "USDT", base});
            }
        }
    }
    const CoinNames::List list = CoinNames::parse(text);
    require(list.names == naiveNames(text), "both readers agree");
    require(list.isCut == (text.size() > CoinNames::kMaximumBytes), "it says what was not read");
    require(CoinNames::find(list.names, catalog) == naiveFound(list.names, catalog),
            "both look-ups agree");

    std::erase_if(catalog, [](const Coin& coin) { return !isPlain(coin); });
    const std::string written = CoinNames::textOf(catalog);
    if (written.size() <= CoinNames::kMaximumBytes) {
        const Found again = CoinNames::find(CoinNames::parse(written).names, catalog);
        require(again == Found{.coins = catalog}, "what is written is found again");
    }
}

}  // namespace quillbar
