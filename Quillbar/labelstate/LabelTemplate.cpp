// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelTemplate.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/model/MissingValue.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <ranges>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr int kUsualChangeDecimals = 2;

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

bool isOfSpaces(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

/// Reads one template, from its beginning to the end or to the first mistake.
class LabelTemplate::Parser final {
public:
    explicit Parser(std::string_view text)
        : m_text(text) {}

    std::variant<LabelTemplate, LabelTemplateError> run() {
        if (m_text.empty()) {
            fail(0, translated("labelstate", "模板不能为空").toStdString());
        }
        while (!m_error && m_at < m_text.size()) {
            readPart();
        }
        if (m_error) {
            return *std::move(m_error);
        }
        return std::move(m_result);
    }

private:
    void readPart() {
        const std::string_view rest = m_text.substr(m_at);
        if (rest.starts_with("{{") || rest.starts_with("}}")) {
            appendLiteral(rest.front());
            m_at += 2;
        } else if (rest.front() == '{') {
            readField();
        } else if (rest.front() == '}') {
            fail(m_at,
                 translated("labelstate", "「}」之前没有「{」，要写大括号本身请用「}}」")
                     .toStdString());
        } else {
            appendLiteral(rest.front());
            ++m_at;
        }
    }

    void readField() {
        m_end = m_text.find_first_of("{}", m_at + 1);
        if (m_end == std::string_view::npos || m_text[m_end] == '{') {
            fail(m_at,
                 translated("labelstate", "「{」之后没有「}」，要写大括号本身请用「{{」")
                     .toStdString());
            return;
        }
        ++m_at;
        const std::string_view inside = m_text.substr(m_at, m_end - m_at);
        const std::string_view name = inside.substr(0, inside.find(':'));
        Field field;
        if (!readName(name, field)) {
            fail(m_at,
                 formatted(translated("labelstate",
                                      "未知的字段「{}」，可用 symbol、price、arrow 或 change"),
                           name));
            return;
        }
        m_at += name.size();
        if (m_at != m_end) {
            ++m_at;
            readFormat(field);
        }
        m_result.m_hasArrow = m_result.m_hasArrow || field.kind == Kind::arrow;
        m_result.m_parts.emplace_back(field);
        m_at = m_end + 1;
    }

    static bool readName(std::string_view name, Field& field) {
        if (name == "symbol") {
            field = {.kind = Kind::symbol, .side = Side::left};
        } else if (name == "price") {
            field = {.kind = Kind::price, .side = Side::right};
        } else if (name == "arrow") {
            field = {.kind = Kind::arrow, .side = Side::left};
        } else if (name == "change") {
            field = {.kind = Kind::change, .side = Side::right};
        } else {
            return false;
        }
        return true;
    }

    void readFormat(Field& field) {
        const std::size_t begin = m_at;
        readWidth(field);
        readDecimals(field);
        if (m_at == begin || m_at != m_end) {
            fail(m_at,
                 formatted(translated("labelstate",
                                      "冒号后依次可写：< 或 >（靠左或靠右）、宽度（1 到 {}）、"
                                      "小数位数（.0 到 .{}），如「>10.2」"),
                           kWidest,
                           kMostDecimals));
        }
    }

    void readWidth(Field& field) {
        const bool hasSide = m_text[m_at] == '<' || m_text[m_at] == '>';
        if (hasSide) {
            field.side = m_text[m_at] == '<' ? Side::left : Side::right;
            ++m_at;
        }
        if (!hasSide && !isAtDigit()) {
            return;
        }
        if (const auto width = readNumber(1, kWidest)) {
            field.width = *width;
        } else {
            fail(m_at, formatted(translated("labelstate", "这里应是宽度，1 到 {}"), kWidest));
        }
    }

    void readDecimals(Field& field) {
        if (m_text[m_at] != '.') {
            return;
        }
        if (field.kind == Kind::symbol || field.kind == Kind::arrow) {
            fail(m_at, translated("labelstate", "只有 price 和 change 有小数位数").toStdString());
        }
        ++m_at;
        field.decimals = readNumber(0, kMostDecimals);
        if (!field.decimals) {
            fail(m_at,
                 formatted(translated("labelstate", "这里应是小数位数，0 到 {}"), kMostDecimals));
        }
    }

    [[nodiscard]] bool isAtDigit() const { return m_text[m_at] >= '0' && m_text[m_at] <= '9'; }

    /// The number that stands here, if it is within the bounds and begins with no needless zero:
    /// elsewhere such a zero asks for zeros on the left, which no field has.
    std::optional<int> readNumber(unsigned least, unsigned most) {
        unsigned number = 0;
        const char* const begin = m_text.data() + m_at;
        const auto [end, error] = std::from_chars(begin, m_text.data() + m_end, number);
        const bool hasNeedlessZero = *begin == '0' && end - begin > 1;
        if (error != std::errc() || hasNeedlessZero || number < least || number > most) {
            return std::nullopt;
        }
        m_at += static_cast<std::size_t>(end - begin);
        return static_cast<int>(number);
    }

    void appendLiteral(char byte) {
        std::vector<Part>& parts = m_result.m_parts;
        if (parts.empty() || !std::holds_alternative<std::string>(parts.back())) {
            parts.emplace_back(std::string());
        }
        std::get<std::string>(parts.back()) += byte;
    }

    /// Only the first mistake is told.
    void fail(std::size_t at, std::string text) {
        if (!m_error) {
            const std::string_view before = m_text.substr(0, at);
            const auto characters = std::count_if(before.begin(), before.end(), beginsCharacter);
            m_error = {.position = static_cast<std::size_t>(characters) + 1,
                       .text = std::move(text)};
        }
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    /// Where the brace stands that closes the field which is read. So there is always a byte at
    /// `m_at` within a field.
    std::size_t m_end = 0;
    LabelTemplate m_result;
    std::optional<LabelTemplateError> m_error;
};

std::variant<LabelTemplate, LabelTemplateError> LabelTemplate::parse(std::string_view text) {
    return Parser(text).run();
}

std::string LabelTemplate::text(const PinnedQuote& quote) const {
    if (!quote.showsPrice()) {
        return OutsideText::oneLine(quote.text());
    }
    std::string text;
    for (const Part& part : m_parts) {
        text += partText(part, quote);
    }
    return text;
}

std::string LabelTemplate::changeAtEnd(const PinnedQuote& quote) const {
    if (!quote.showsPrice() || !quote.changePercent) {
        return {};
    }
    std::string text;
    std::string change;
    for (const auto& part : std::views::reverse(m_parts)) {
        const auto* const field = std::get_if<Field>(&part);
        const bool tellsChange =
            field != nullptr && (field->kind == Kind::change || field->kind == Kind::arrow);
        const bool isSpace = field == nullptr && isOfSpaces(std::get<std::string>(part));
        if (!tellsChange && !isSpace) {
            break;
        }
        text.insert(0, partText(part, quote));
        if (tellsChange) {
            change = text;
        }
    }
    return change;
}

bool LabelTemplate::has(Kind kind) const {
    return std::ranges::any_of(m_parts, [kind](const Part& part) {
        const auto* const field = std::get_if<Field>(&part);
        return field != nullptr && field->kind == kind;
    });
}

std::string LabelTemplate::partText(const Part& part, const PinnedQuote& quote) const {
    if (const auto* const literal = std::get_if<std::string>(&part)) {
        return *literal;
    }
    const auto& field = std::get<Field>(part);
    const std::string value = fieldText(field, quote);
    return field.side == Side::right ? fmt::format("{:>{}}", value, field.width)
                                     : fmt::format("{:<{}}", value, field.width);
}

std::string LabelTemplate::fieldText(const Field& field, const PinnedQuote& quote) const {
    const std::optional<double>& change = quote.changePercent;
    switch (field.kind) {
    case Kind::symbol:
        return OutsideText::oneLine(quote.coin->baseAsset);
    case Kind::price:
        return field.decimals ? PriceFormatter::price(quote.ticker->lastPrice, *field.decimals)
                              : PriceFormatter::price(quote.ticker->lastPrice);
    case Kind::arrow:
        return change ? std::string(PriceFormatter::arrow(*change)) : std::string();
    case Kind::change:
        break;
    }
    if (!change) {
        return std::string(kMissingValueText);
    }
    const int decimals = field.decimals.value_or(kUsualChangeDecimals);
    return m_hasArrow ? PriceFormatter::magnitude(*change, decimals)
                      : PriceFormatter::percent(*change, decimals);
}

}  // namespace quillbar
