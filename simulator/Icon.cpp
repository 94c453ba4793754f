// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Icon.h"

#include "simulator/Noise.h"
#include "simulator/Png.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillbar::simulator {

namespace {

constexpr int kSize = 64;

// In pixels, from the centre.
constexpr double kDiscRadius = 31.5;
constexpr double kRingRadius = 26.5;
constexpr double kRingWidth = 1.75;
constexpr double kStrokeWidth = 5;
// The side of a square of the letters' grid.
constexpr double kGrid = 4.5;

// The strokes of A to Z on a grid four wide and six high: a point is two digits, x and y from the
// top left; a blank ends a stroke.
constexpr std::array<std::string_view, 26> kLetters{"062046 1434",
                                                    "06003041423303 3344453606",
                                                    "4130100105163645",
                                                    "06002042442606",
                                                    "40000646 0333",
                                                    "400006 0333",
                                                    "41301001051636454323",
                                                    "0006 4046 0343",
                                                    "2026",
                                                    "4045361605",
                                                    "0006 400346",
                                                    "000646",
                                                    "0600234046",
                                                    "06004640",
                                                    "103041453616050110",
                                                    "06003041423303",
                                                    "103041453616050110 2446",
                                                    "06003041423303 2346",
                                                    "413010010213334445361605",
                                                    "0040 2026",
                                                    "000516364540",
                                                    "002640",
                                                    "0016233640",
                                                    "0046 4006",
                                                    "002340 2326",
                                                    "00400646"};
constexpr std::string_view kLozenge = "2043260320";

struct KnownColour {
    std::string_view asset;
    std::uint32_t colour;
};

constexpr std::array<KnownColour, 16> kColours{{{"BTC", 0xF7931A},
                                                {"ETH", 0x627EEA},
                                                {"SOL", 0x8A4FE8},
                                                {"BNB", 0xE0A50E},
                                                {"XRP", 0x3A4652},
                                                {"USDC", 0x2775CA},
                                                {"DOGE", 0xB99A2E},
                                                {"PEPE", 0x3D8C40},
                                                {"SUI", 0x4DA2FF},
                                                {"ADA", 0x1C4DB8},
                                                {"AVAX", 0xE84142},
                                                {"LINK", 0x2A5ADA},
                                                {"TRX", 0xD9262E},
                                                {"TON", 0x0098EA},
                                                {"SHIB", 0xE8541D},
                                                {"LTC", 0x345D9D}}};

struct Point {
    double x = 0;
    double y = 0;
};

struct Segment {
    Point from;
    Point to;
};

std::string_view strokesOf(std::string_view asset) {
    const auto* const letter =
        std::find_if(asset.begin(), asset.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
    return letter == asset.end() ? kLozenge : kLetters.at(static_cast<std::size_t>(*letter - 'A'));
}

std::vector<Segment> segmentsOf(std::string_view strokes) {
    std::vector<Segment> segments;
    const auto pointAt = [strokes](std::size_t at) {
        return Point{kGrid * (strokes[at] - '2'), kGrid * (strokes[at + 1] - '3')};
    };
    for (std::size_t at = 0; at + 3 < strokes.size(); at += 2) {
        if (strokes[at + 2] == ' ') {
            // On to the first point after the blank.
            ++at;
        } else {
            segments.push_back({pointAt(at), pointAt(at + 2)});
        }
    }
    return segments;
}

double distance(Point point, const Segment& segment) {
    const double dx = segment.to.x - segment.from.x;
    const double dy = segment.to.y - segment.from.y;
    const double along =
        ((point.x - segment.from.x) * dx + (point.y - segment.from.y) * dy) / (dx * dx + dy * dy);
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(point.x - segment.from.x - t * dx, point.y - segment.from.y - t * dy);
}

// From the nearest one; never more than the disc's radius.
double distance(Point point, const std::vector<Segment>& segments) {
    double least = kDiscRadius;
    for (const Segment& each : segments) {
        least = std::min(least, distance(point, each));
    }
    return least;
}

Colour colourOf(std::string_view asset) {
    const auto* const known =
        std::find_if(kColours.begin(), kColours.end(), [asset](const KnownColour& each) {
            return each.asset == asset;
        });
    if (known != kColours.end()) {
        return {static_cast<std::uint8_t>(known->colour >> 16U),
                static_cast<std::uint8_t>((known->colour >> 8U) & 0xFFU),
                static_cast<std::uint8_t>(known->colour & 0xFFU),
                255};
    }
    std::uint64_t hash = 0;
    for (const char c : asset) {
        hash = mixed(hash ^ static_cast<unsigned char>(c));
    }
    // Somewhere on the wheel of hues, none of the three channels at its end.
    Colour colour{0, 0, 0, 255};
    for (std::size_t channel = 0; channel < 3; ++channel) {
        constexpr double kTurn = 2 * 3.14159265358979;
        const double angle = kTurn * (unitInterval(hash) + static_cast<double>(channel) / 3);
        colour.at(channel) = static_cast<std::uint8_t>(std::lround(115 + 80 * std::cos(angle)));
    }
    return colour;
}

Colour between(const Colour& from, const Colour& to, double part) {
    Colour mix{};
    for (std::size_t channel = 0; channel < mix.size(); ++channel) {
        mix.at(channel) = static_cast<std::uint8_t>(
            std::lround(from.at(channel) + (to.at(channel) - from.at(channel)) * part));
    }
    return mix;
}

// The palette is three ramps of so many steps: from nothing to the disc, from the disc to the ring,
// from the disc to the letter.
constexpr int kSteps = 16;
constexpr int kRing = kSteps + 1;
constexpr int kLetter = 2 * (kSteps + 1);

std::vector<Colour> paletteOf(const Colour& disc) {
    constexpr Colour kWhite{255, 255, 255, 255};
    const Colour nothing{disc[0], disc[1], disc[2], 0};
    const Colour ring = between(disc, kWhite, 0.45);
    std::vector<Colour> palette;
    for (const auto& [from, to] : {std::pair{nothing, disc}, {disc, ring}, {disc, kWhite}}) {
        for (int step = 0; step <= kSteps; ++step) {
            palette.push_back(between(from, to, static_cast<double>(step) / kSteps));
        }
    }
    return palette;
}

// How much of a pixel a shape covers, in steps, when its edge is so far outside the pixel's centre.
int covered(double outside) {
    return static_cast<int>(std::lround(std::clamp(0.5 - outside, 0.0, 1.0) * kSteps));
}

}  // namespace

std::string makeIcon(std::string_view baseAsset) {
    const std::vector<Segment> strokes = segmentsOf(strokesOf(baseAsset));
    std::string pixels;
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            const Point point{x + 0.5 - kSize / 2.0, y + 0.5 - kSize / 2.0};
            const double radius = std::hypot(point.x, point.y);
            const int ring = covered(std::abs(radius - kRingRadius) - kRingWidth / 2);
            // The letters keep well clear of the ring.
            const int letter = ring > 0 || radius > kRingRadius
                                   ? 0
                                   : covered(distance(point, strokes) - kStrokeWidth / 2);
            int colour = covered(radius - kDiscRadius);
            if (letter > 0) {
                colour = kLetter + letter;
            } else if (ring > 0) {
                colour = kRing + ring;
            }
            pixels += static_cast<char>(colour);
        }
    }
    return pngOf(kSize, paletteOf(colourOf(baseAsset)), pixels);
}

}  // namespace quillbar::simulator
