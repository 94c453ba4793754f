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

constexpr int kGap = 1;

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
constexpr std::array kGlyphs{
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
    Glyph{u'.', {"."sv, "."sv, "."sv, "."sv, "."sv, "."sv, "."sv, "#"sv}},
    Glyph{u'+', {"..."sv, "..."sv, "..."sv, ".#."sv, "###"sv, ".#."sv, "..."sv, "..."sv}},
    Glyph{u'-', {"..."sv, "..."sv, "..."sv, "..."sv, "###"sv, "..."sv, "..."sv, "..."sv}},
    Glyph{u'%', {"##..#"sv, "##..#"sv, "...#."sv, "..#.."sv, "..#.."sv, ".#..."sv, "#..##"sv, "#..##"sv}},
    Glyph{u'k', {"#..."sv, "#..."sv, "#..#"sv, "#.#."sv, "##.."sv, "##.."sv, "#.#."sv, "#..#"sv}},
    Glyph{u'M', {"#...#"sv, "##.##"sv, "#.#.#"sv, "#.#.#"sv, "#...#"sv, "#...#"sv, "#...#"sv, "#...#"sv}},
    Glyph{u'B', {"###."sv, "#..#"sv, "#..#"sv, "###."sv, "#..#"sv, "#..#"sv, "#..#"sv, "###."sv}},
    Glyph{u'T', {"#####"sv, "..#.."sv, "..#.."sv, "..#.."sv, "..#.."sv, "..#.."sv, "..#.."sv, "..#.."sv}},
    Glyph{u'n', {"...."sv, "...."sv, "###."sv, "#..#"sv, "#..#"sv, "#..#"sv, "#..#"sv, "#..#"sv}},
    Glyph{u'µ', {"...."sv, "...."sv, "#..#"sv, "#..#"sv, "#..#"sv, "###."sv, "#..."sv, "#..."sv}},
    Glyph{u'>', {"..."sv, "..."sv, "#.."sv, ".#."sv, "..#"sv, ".#."sv, "#.."sv, "..."sv}},
    Glyph{u'—', {"....."sv, "....."sv, "....."sv, "....."sv, "#####"sv, "....."sv, "....."sv, "....."sv}},
    Glyph{u'…', {"....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "....."sv, "#.#.#"sv}},
};
// clang-format on

// A row that is too short would be read beyond its end.
static_assert(std::all_of(kGlyphs.begin(), kGlyphs.end(), [](const Glyph& glyph) {
    return glyph.isRectangular();
}));

const Glyph* glyphOf(QChar character) {
    const auto* const found =
        std::find_if(kGlyphs.begin(), kGlyphs.end(), [character](const Glyph& glyph) {
            return glyph.character == character;
        });
    return found == kGlyphs.end() ? nullptr : found;
}

}  // namespace

std::optional<int> width(const QString& text) {
    int sum = 0;
    for (const QChar character : text) {
        const Glyph* const glyph = glyphOf(character);
        if (glyph == nullptr) {
            return std::nullopt;
        }
        sum += glyph->width() + kGap;
    }
    return std::max(0, sum - kGap);
}

void draw(QPainter& painter, QPoint corner, const QString& text) {
    for (const QChar character : text) {
        const Glyph* const glyph = glyphOf(character);
        if (glyph == nullptr) {
            continue;
        }
        for (int row = 0; row < kHeight; ++row) {
            const std::string_view ink = glyph->rows[static_cast<std::size_t>(row)];
            for (int column = 0; column < glyph->width(); ++column) {
                if (ink[static_cast<std::size_t>(column)] == '#') {
                    painter.drawPoint(corner + QPoint(column, row));
                }
            }
        }
        corner.rx() += glyph->width() + kGap;
    }
}

}  // namespace quillbar::PixelText
