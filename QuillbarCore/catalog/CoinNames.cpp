// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/CoinNames.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace quillbar::CoinNames {

namespace {

/// Finds the coins of a catalogue, to which it refers, by name.
class Index {
public:
    explicit Index(const std::vector<Coin>& catalog) {
        m_byBaseAsset.reserve(catalog.size());
        m_bySymbol.reserve(catalog.size());
        for (const Coin& coin : catalog) {
            // emplace keeps the first coin of a name.
            m_byBaseAsset.emplace(SearchText::upperCased(coin.baseAsset), &coin);
            m_bySymbol.emplace(SearchText::upperCased(coin.symbol), &coin);
        }
    }

    /// Null if no coin has the name.
    [[nodiscard]] const Coin* find(const std::string& name) const {
        if (const auto found = m_byBaseAsset.find(name); found != m_byBaseAsset.end()) {
            return found->second;
        }
        if (const auto found = m_bySymbol.find(name); found != m_bySymbol.end()) {
            return found->second;
        }
        return findPair(name);
    }

private:
    [[nodiscard]] const Coin* findPair(const std::string& name) const {
        const std::size_t stroke = name.find_last_of("/-_");
        if (stroke == std::string::npos) {
            return nullptr;
        }
        const std::string base = name.substr(0, stroke);
        const auto found = m_bySymbol.find(base + name.substr(stroke + 1));
        // Not "B/TCUSDT", which is BTC's symbol without the stroke.
        return found != m_bySymbol.end() && SearchText::upperCased(found->second->baseAsset) == base
                   ? found->second
                   : nullptr;
    }

    std::unordered_map<std::string, const Coin*> m_byBaseAsset;
    std::unordered_map<std::string, const Coin*> m_bySymbol;
};

}  // namespace

List parse(std::string_view text) {
    List list{.isCut = text.size() > kMaximumBytes};
    std::vector<std::string> words = SearchText::words(text.substr(0, kMaximumBytes));
    if (list.isCut && !words.empty()) {
        words.pop_back();
    }
    std::unordered_set<std::string> seen;
    for (const std::string& word : words) {
        std::string name = SearchText::upperCased(word);
        if (seen.insert(name).second) {
            list.names.push_back(std::move(name));
        }
    }
    return list;
}

Found find(const std::vector<std::string>& names, const std::vector<Coin>& catalog) {
    const Index index(catalog);
    Found found;
    std::unordered_set<std::string_view> symbols;
    for (const std::string& name : names) {
        const Coin* const coin = index.find(name);
        if (coin == nullptr) {
            found.unknown.push_back(name);
        } else if (symbols.insert(coin->symbol).second) {
            found.coins.push_back(*coin);
        }
    }
    return found;
}

std::string textOf(const std::vector<Coin>& coins) {
    std::string text;
    for (const Coin& coin : coins) {
        if (!text.empty()) {
            text += ", ";
        }
        const bool isOrdinary = !coin.baseAsset.empty() && coin.symbol.starts_with(coin.baseAsset);
        text += isOrdinary ? coin.baseAsset : coin.symbol;
    }
    return OutsideText::oneLine(text);
}

}  // namespace quillbar::CoinNames
