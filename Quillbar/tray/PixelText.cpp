// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/PixelText.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quillbar::PixelText {

namespace {

using namespace std::string_view_literals;

struct Glyph {
    char16_t character = 0;
    // From top to bottom; # is ink. All of the same length.
    std::array<std::string_view, kHeight> rows;

    [[nodiscard]] int width() const { return static_cast<int>(rows[0].size()); }
    [[nodiscard]] constexpr bool isRectangular() const {
        return std::all_of(rows.begin(), rows.end(), [this](std::string_view row) {
            return row.size() == rows[0].size();
        });
    }
};

// clang-format off
constexpr std::array kWideDigits{
    Glyph{u'0', {".##."sv, "#..#"sv, "#..#"sv, "#..#"sv, "#..#"sv, "#..#"sv, "#..#"sv, ".##."sv}},
    Glyph{u'1', {"..#."sv, ".##."sv, "..#."sv, "..#."sv, "..#."sv, "..#."sv, "..#."sv, ".###"sv}},
    Glyph{u'2', {".##."sv, "#..#"sv, "...#"sv, "...#"sv, "..#."sv, ".#.."sv, "#..."sv, "####"sv}},
    Glyph{u'3', {".##."sv, "#..#"sv, "...#"sv, ".##."sv, "...#"sv, "...#"sv, "#..#"sv, ".##."sv}},
    Glyph{u'4', {"...#"sv, "..##"sv, ".#.#"sv, "#..#"sv, "####"sv, "...#"sv, "...#"sv, "...#"sv}},
    Glyph{u'5', {"####"sv, "#..."sv, "#..."sv, "###."sv, "...#"sv, "...#"sv, "#..#"sv, ".##."sv}},
    Glyph{u'6', {".##."sv, "#..#"sv, "#..."sv, "###."sv, "#..#"sv, "#..#"sv, "#..#"sv, ".##."sv}},
    Glyph{u'7', {"####"sv, "...#"sv, "...#"sv, "..#."sv, "..#."sv, ".#.."sv, ".#.."sv, ".#.."sv}},
    Glyph{u'8', {".##."sv, "#..#"sv, "#..#"sv, ".##."sv, "#..#"sv, "#..#"sv, "#..#"sv, ".##."sv}},
    Glyph{u'9', {".##."sv, "#..#"sv, "#..#"sv, "#..#"sv, ".###"sv, "...#"sv, "#..#"sv, ".##."sv}},
};

constexpr std::array kNarrowDigits{
    Glyph{u'0', {".#."sv, "#.#"sv, "#.#"sv, "#.#"sv, "#.#"sv, "#.#"sv, "#.#"sv, ".#."sv}},
    Glyph{u'1', {".#."sv, "##."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, "###"sv}},
    Glyph{u'2', {".#."sv, "#.#"sv, "..#"sv, "..#"sv, ".#."sv, ".#."sv, "#.."sv, "###"sv}},
    Glyph{u'3', {"##."sv, "..#"sv, "..#"sv, ".#."sv, "..#"sv, "..#"sv, "..#"sv, "##."sv}},
    Glyph{u'4', {"..#"sv, ".##"sv, "#.#"sv, "#.#"sv, "###"sv, "..#"sv, "..#"sv, "..#"sv}},
    Glyph{u'5', {"###"sv, "#.."sv, "#.."sv, "##."sv, "..#"sv, "..#"sv, "..#"sv, "##."sv}},
    Glyph{u'6', {".#."sv, "#.."sv, "#.."sv, "##."sv, "#.#"sv, "#.#"sv, "#.#"sv, ".#."sv}},
    Glyph{u'7', {"###"sv, "..#"sv, "..#"sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv}},
    Glyph{u'8', {".#."sv, "#.#"sv, "#.#"sv, ".#."sv, "#.#"sv, "#.#"sv, "#.#"sv, ".#."sv}},
    Glyph{u'9', {".#."sv, "#.#"sv, "#.#"sv, "#.#"sv, ".##"sv, "..#"sv, "..#"sv, ".#."sv}},
};

// The digits of a count of zeros: small, and below the line.
constexpr std::array kCounts{
    Glyph{u'₀', {"..."sv, "..."sv, "..."sv, "###"sv, "#.#"sv, "#.#"sv, "#.#"sv, "###"sv}},
    Glyph{u'₁', {"..."sv, "..."sv, "..."sv, ".#."sv, "##."sv, ".#."sv, ".#."sv, "###"sv}},
    Glyph{u'₂', {"..."sv, "..."sv, "..."sv, "###"sv, "..#"sv, "###"sv, "#.."sv, "###"sv}},
    Glyph{u'₃', {"..."sv, "..."sv, "..."sv, "###"sv, "..#"sv, "###"sv, "..#"sv, "###"sv}},
    Glyph{u'₄', {"..."sv, "..."sv, "..."sv, "#.#"sv, "#.#"sv, "###"sv, "..#"sv, "..#"sv}},
    Glyph{u'₅', {"..."sv, "..."sv, "..."sv, "###"sv, "#.."sv, "###"sv, "..#"sv, "###"sv}},
    Glyph{u'₆', {"..."sv, "..."sv, "..."sv, "###"sv, "#.."sv, "###"sv, "#.#"sv, "###"sv}},
    Glyph{u'₇', {"..."sv, "..."sv, "..."sv, "###"sv, "..#"sv, ".#."sv, ".#."sv, ".#."sv}},
    Glyph{u'₈', {"..."sv, "..."sv, "..."sv, "###"sv, "#.#"sv, "###"sv, "#.#"sv, "###"sv}},
    Glyph{u'₉', {"..."sv, "..."sv, "..."sv, "###"sv, "#.#"sv, "###"sv, "..#"sv, "###"sv}},
};

constexpr std::array kSigns{
    Glyph{u'.', {"."sv, "."sv, "."sv, "."sv, "."sv, "."sv, "."sv, "#"sv}},
    Glyph{u'+', {"..."sv, "..."sv, "..."sv, ".#."sv, "###"sv, ".#."sv, "..."sv, "..."sv}},
    Glyph{u'-', {"..."sv, "..."sv, "..."sv, "..."sv, "###"sv, "..."sv, "..."sv, "..."sv}},
    Glyph{u'%', {"##.#"sv, "##.#"sv, "..#."sv, "..#."sv, ".#.."sv, ".#.."sv, "#.##"sv, "#.##"sv}},
    Glyph{u'k', {"#.."sv, "#.."sv, "#.#"sv, "#.#"sv, "##."sv, "##."sv, "#.#"sv, "#.#"sv}},
    Glyph{u'M', {"#...#"sv, "##.##"sv, "#.#.#"sv, "#.#.#"sv, "#...#"sv, "#...#"sv, "#...#"sv, "#...#"sv}},
    Glyph{u'B', {"###."sv, "#..#"sv, "#..#"sv, "###."sv, "#..#"sv, "#..#"sv, "#..#"sv, "###."sv}},
    Glyph{u'T', {"###"sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv, ".#."sv}},
    Glyph{u'>', {"..."sv, "..."sv, "#.."sv, ".#."sv, "..#"sv, ".#."sv, "#.."sv, "..."sv}},
    Glyph{u'—', {"....."sv, "....."sv, "....."sv, "....."sv, "#####"sv, "....."sv, "....."sv, "....."sv}},
    Glyph{u'…', {"....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "#.#.#"sv}},
};
// clang-format on

// A row that is too short would be read past its end.
template <std::size_t count>
constexpr bool areRectangular(const std::array<Glyph, count>& glyphs) {
    return std::all_of(
        glyphs.begin(), glyphs.end(), [](const Glyph& glyph) { return glyph.isRectangular(); });
}
static_assert(areRectangular(kWideDigits) && areRectangular(kNarrowDigits)
              && areRectangular(kCounts) && areRectangular(kSigns));

template <std::size_t count>
const Glyph* find(const std::array<Glyph, count>& glyphs, QChar character) {
    const auto* const found =
        std::find_if(glyphs.begin(), glyphs.end(), [character](const Glyph& glyph) {
            return glyph.character == character;
        });
    return found == glyphs.end() ? nullptr : found;
}

const Glyph* glyphOf(QChar character, Digits digits) {
    const Glyph* glyph =
        digits == Digits::wide ? find(kWideDigits, character) : find(kNarrowDigits, character);
    if (glyph == nullptr) {
        glyph = find(kCounts, character);
    }
    return glyph != nullptr ? glyph : find(kSigns, character);
}

// A tiny price in narrow digits fits only if its point is close to the first zero. The point is
// then as low as the count, so that it does not touch the zero.
bool hasClosePoint(const QString& text, Digits digits) {
    return digits == Digits::narrow && text.size() > 3 && text.startsWith(QStringLiteral("0.0"))
           && find(kCounts, text[3]) != nullptr;
}

// The columns that stay free behind the character at `index`.
int gapBehind(const QString& text, qsizetype index, Digits digits) {
    return index == 0 && hasClosePoint(text, digits) ? 0 : 1;
}

// How many pixels the character at `index` hangs below the baseline.
int depthOf(const QString& text, qsizetype index, Digits digits) {
    const bool hangs =
        (index == 1 && hasClosePoint(text, digits)) || find(kCounts, text[index]) != nullptr;
    return hangs ? kCountDepth : 0;
}

}  // namespace

std::optional<int> width(const QString& text, Digits digits) {
    int sum = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const Glyph* const glyph = glyphOf(text[i], digits);
        if (glyph == nullptr) {
            return std::nullopt;
        }
        sum += glyph->width() + (i + 1 < text.size() ? gapBehind(text, i, digits) : 0);
    }
    return sum;
}

std::optional<Digits> fitting(const QString& text, int space) {
    for (const Digits digits : {Digits::wide, Digits::narrow}) {
        const std::optional<int> needed = width(text, digits);
        if (needed && *needed <= space) {
            return digits;
        }
    }
    return std::nullopt;
}

void draw(QPainter& painter, QPoint corner, const QString& text, Digits digits) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const Glyph* const glyph = glyphOf(text[i], digits);
        if (glyph == nullptr) {
            continue;
        }
        const QPoint top = corner + QPoint(0, depthOf(text, i, digits));
        for (int row = 0; row < kHeight; ++row) {
            const std::string_view ink = glyph->rows[static_cast<std::size_t>(row)];
            for (int column = 0; column < glyph->width(); ++column) {
                if (ink[static_cast<std::size_t>(column)] == '#') {
                    painter.drawPoint(top + QPoint(column, row));
                }
            }
        }
        corner.rx() += glyph->width() + gapBehind(text, i, digits);
    }
}

}  // namespace quillbar::PixelText
