// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "Quillbar/labelstate/LabelTemplate.h"

#include <fmt/format.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>

namespace quillbar {

namespace {

PinnedQuote bitcoin() {
    return {.coin = Coin{"BTCUSDT", "BTC"},
            .ticker = Ticker{67234.5, 67234.5},
            .changePercent = 0,
            .freshness = PriceFreshness::live,
            .connection = ConnectionState::connected};
}

/// What may stand between two braces, every one of it.
std::set<std::string, std::less<>> everyField() {
    std::set<std::string, std::less<>> fields;
    for (const std::string name : {"symbol", "price", "arrow", "change"}) {
        const bool isNumber = name == "price" || name == "change";
        for (const std::string side : {"", "<", ">"}) {
            for (int width = 0; width <= LabelTemplate::kWidest; ++width) {
                const std::string place = width == 0 ? "" : side + std::to_string(width);
                fields.insert(place.empty() ? name : fmt::format("{}:{}", name, place));
                for (int digits = 0; isNumber && digits <= LabelTemplate::kMostDecimals; ++digits) {
                    fields.insert(fmt::format("{}:{}.{}", name, place, digits));
                }
            }
        }
    }
    return fields;
}

bool isTemplate(std::string_view text) {
    static const auto kFields = everyField();
    bool isGood = !text.empty();
    while (isGood && !text.empty()) {
        std::size_t length = 1;
        if (text.starts_with("{{") || text.starts_with("}}")) {
            length = 2;
        } else if (text.front() == '{') {
            length = text.find('}');
            isGood =
                length != std::string_view::npos && kFields.contains(text.substr(1, length - 1));
            length += isGood ? 1 : 0;
        } else {
            isGood = text.front() != '}';
        }
        text.remove_prefix(isGood ? length : 0);
    }
    return isGood;
}

/// The label; absent when the text is no template.
std::optional<std::string> labelOf(std::string_view text, const PinnedQuote& quote) {
    const auto parsed = LabelTemplate::parse(text);
    if (const auto* const labelTemplate = std::get_if<LabelTemplate>(&parsed)) {
        return labelTemplate->text(quote);
    }
    const auto& error = std::get<LabelTemplateError>(parsed);
    require(error.position >= 1 && error.position <= text.size() + 1, "a mistake has its place");
    require(!error.text.empty(), "a mistake is told");
    return std::nullopt;
}

std::string withoutFields(std::string_view text) {
    std::string doubled;
    for (const char byte : text) {
        doubled.append(byte == '{' || byte == '}' ? 2 : 1, byte);
    }
    return doubled;
}

}  // namespace

/// The input is a template.
void fuzz(std::string_view input) {
    const PinnedQuote quote = bitcoin();
    const auto label = labelOf(input, quote);
    require(label.has_value() == isTemplate(input), "accepted exactly when each field is known");

    if (label) {
        PinnedQuote old = quote;
        old.freshness = PriceFreshness::none;
        require(labelOf(input, old) == "BTC", "without a current price the name stands alone");
    }
    if (!input.empty()) {
        require(labelOf(withoutFields(input), quote) == input, "doubled braces write themselves");
    }
    // A change of 0 is written alike with and without an arrow in the template.
    const std::string_view head = input.substr(0, input.size() / 2);
    const std::string_view tail = input.substr(head.size());
    const auto first = labelOf(head, quote);
    const auto second = labelOf(tail, quote);
    if (first && second) {
        require(label == *first + *second, "two templates make a third, and so do their labels");
    }
}

}  // namespace quillbar
