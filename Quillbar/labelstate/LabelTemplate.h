// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/PinnedQuote.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillbar {

/// Why a text is no template.
struct LabelTemplateError final {
    /// The place of the mistake, in characters from 1 on; one past the end when something is
    /// missing there.
    std::size_t position = 1;
    /// What is wrong and what is allowed, for the user.
    std::string text;

    [[nodiscard]] bool operator==(const LabelTemplateError&) const = default;
};

/// The label in the user's own wording: a text with fields in braces, such as
/// "{symbol} {price:.0} {arrow}{change:>6}". A plain value.
///
/// | field | what it writes | unless told otherwise |
/// |---|---|---|
/// | symbol | the base asset | on the left of its width |
/// | price | the last price | as the label does, on the right |
/// | arrow | ▲, ▼ or ·, nothing while no change is known | on the left |
/// | change | the change, or a dash while none is known | with two decimals, on the right |
///
/// Without an arrow in the same template the change has a sign; with one, it is the magnitude.
///
/// Behind a colon stand, in this order and each if wanted: "<" or ">" for the side on which the
/// text stands in its width, which then must follow; the width, up to `kWidest`, in columns of a
/// terminal, which a longer text exceeds; and for price and change a point with the number of
/// decimals, up to `kMostDecimals`. "{{" and "}}" write a brace.
class LabelTemplate final {
public:
    static constexpr int kWidest = 99;
    /// The exchange has no more.
    static constexpr int kMostDecimals = 8;

    /// Reads a template, or tells its first mistake. A text without any field is one; the empty
    /// text is none. Pure; for any thread.
    [[nodiscard]] static std::variant<LabelTemplate, LabelTemplateError> parse(
        std::string_view text);

    /// The label. As without a template, it is the base asset alone while there is no current
    /// price, and "Quillbar" without a coin. The base asset is cleaned by `OutsideText`; what the
    /// user wrote between the fields is not. Pure; for any thread.
    [[nodiscard]] std::string text(const PinnedQuote& quote) const;

    /// The change with its arrow where they end the text, "▲ 1.23%": what the fields of change and
    /// arrow write behind all others, with the spaces between them. Empty when the template ends
    /// otherwise, and while there is no current price or no change. Pure; for any thread.
    [[nodiscard]] std::string changeAtEnd(const PinnedQuote& quote) const;

    /// Which fields the template has; for the change, an arrow is enough.
    [[nodiscard]] bool hasSymbol() const { return has(Kind::symbol); }
    [[nodiscard]] bool hasPrice() const { return has(Kind::price); }
    [[nodiscard]] bool hasChange() const { return has(Kind::change) || m_hasArrow; }

    [[nodiscard]] bool operator==(const LabelTemplate&) const = default;

private:
    class Parser;

    enum class Kind { symbol, price, arrow, change };
    enum class Side { left, right };

    struct Field {
        Kind kind = Kind::symbol;
        Side side = Side::left;
        int width = 0;
        std::optional<int> decimals = std::nullopt;

        [[nodiscard]] bool operator==(const Field&) const = default;
    };

    using Part = std::variant<std::string, Field>;

    LabelTemplate() = default;

    [[nodiscard]] bool has(Kind kind) const;
    [[nodiscard]] std::string partText(const Part& part, const PinnedQuote& quote) const;
    [[nodiscard]] std::string fieldText(const Field& field, const PinnedQuote& quote) const;

    std::vector<Part> m_parts;
    bool m_hasArrow = false;
};

}  // namespace quillbar
