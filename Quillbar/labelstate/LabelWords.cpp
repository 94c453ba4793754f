// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelWords.h"

#include "Quillbar/labelstate/LabelTemplate.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <variant>

namespace quillbar {

namespace {

LabelWords usualWords(const PinnedQuote& quote) {
    LabelWords words{.text = quote.text()};
    if (quote.showsPrice() && quote.changePercent) {
        words.change = PriceFormatter::menuBarChange(quote.changePercent);
    }
    return words;
}

LabelWords templateWords(const PinnedQuote& quote, const std::string& text) {
    const auto parsed = LabelTemplate::parse(text);
    const auto* const own = std::get_if<LabelTemplate>(&parsed);
    if (own == nullptr) {
        return usualWords(quote);
    }
    LabelWords words{.text = own->text(quote),
                     .change = own->changeAtEnd(quote),
                     .showsSymbol = own->hasSymbol(),
                     .showsPrice = own->hasPrice(),
                     .showsChange = own->hasChange()};
    return words.text.find_first_not_of(' ') == std::string::npos ? usualWords(quote) : words;
}

}  // namespace

LabelWords LabelWords::of(const PinnedQuote& quote, const LabelPreferences& label) {
    LabelWords words = usualWords(quote);
    if (!quote.showsPrice()) {
        return words;
    }
    switch (label.wording) {
    case LabelWording::symbolPriceChange:
        break;
    case LabelWording::symbolPrice:
        words = templateWords(quote, "{symbol} {price}");
        break;
    case LabelWording::price:
        words = templateWords(quote, "{price}");
        break;
    case LabelWording::change:
        // As wide for one digit before the point as for two.
        words = {.text = PriceFormatter::menuBarChange(quote.changePercent),
                 .change = words.change,
                 .showsSymbol = false,
                 .showsPrice = false};
        break;
    case LabelWording::symbol:
        words = templateWords(quote, "{symbol}");
        break;
    case LabelWording::custom:
        words = templateWords(quote, label.ownTemplate);
        break;
    }
    return words;
}

}  // namespace quillbar
