// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Icon.h"

#include "simulator/Noise.h"

#include <cstdint>

namespace quillbar::simulator {

namespace {

constexpr int kSize = 32;

std::string bigEndian(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((value >> shift) & 0xFFU);
    }
    return bytes;
}

std::uint32_t crc32(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~crc;
}

std::uint32_t adler32(std::string_view bytes) {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<unsigned char>(byte)) % kModulus;
        high = (high + low) % kModulus;
    }
    return (high << 16U) | low;
}

std::string chunk(std::string_view type, std::string_view data) {
    const std::string body = std::string{type} + std::string{data};
    return bigEndian(static_cast<std::uint32_t>(data.size())) + body + bigEndian(crc32(body));
}

// A zlib stream of one stored block: nothing is compressed. At most 65,535 bytes.
std::string stored(std::string_view bytes) {
    const auto length = static_cast<std::uint32_t>(bytes.size());
    std::string stream{"\x78\x01\x01", 3};
    for (const std::uint32_t field : {length, ~length}) {
        stream += static_cast<char>(field & 0xFFU);
        stream += static_cast<char>((field >> 8U) & 0xFFU);
    }
    stream += bytes;
    return stream + bigEndian(adler32(bytes));
}

// One palette index a pixel: 0 outside the disc, 1 inside. Each line begins with its filter, none.
std::string discPixels() {
    std::string pixels;
    for (int y = 0; y < kSize; ++y) {
        pixels += '\0';
        for (int x = 0; x < kSize; ++x) {
            // Twice the distance from the centre, which lies between pixels.
            const int dx = 2 * x + 1 - kSize;
            const int dy = 2 * y + 1 - kSize;
            pixels += dx * dx + dy * dy <= kSize * kSize ? '\1' : '\0';
        }
    }
    return pixels;
}

}  // namespace

std::string makeIcon(std::string_view baseAsset) {
    std::uint64_t hash = 0;
    for (const char c : baseAsset) {
        hash = mixed(hash ^ static_cast<unsigned char>(c));
    }
    std::string palette(3, '\0');
    for (int shift = 0; shift < 24; shift += 8) {
        palette += static_cast<char>(64 + ((hash >> shift) & 0x7FU));
    }
    // Eight bits a pixel, palette colours, no interlacing.
    const std::string header =
        bigEndian(kSize) + bigEndian(kSize) + std::string{"\x08\x03\x00\x00\x00", 5};
    return std::string{"\x89PNG\r\n\x1A\n", 8} + chunk("IHDR", header) + chunk("PLTE", palette)
           + chunk("tRNS", std::string{"\x00\xFF", 2}) + chunk("IDAT", stored(discPixels()))
           + chunk("IEND", {});
}

}  // namespace quillbar::simulator
