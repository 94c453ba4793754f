// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Png.h"

namespace quillbar::simulator {

namespace {

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

}  // namespace

std::string pngOf(int size, const std::vector<Colour>& palette, std::string_view pixels) {
    std::string colours;
    std::string opacities;
    for (const Colour& each : palette) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            colours += static_cast<char>(each.at(channel));
        }
        opacities += static_cast<char>(each.at(3));
    }
    const auto width = static_cast<std::size_t>(size);
    std::string lines;
    for (std::size_t row = 0; row < width; ++row) {
        // Each line begins with its filter: none.
        lines += '\0';
        lines += pixels.substr(row * width, width);
    }
    const std::string side = bigEndian(static_cast<std::uint32_t>(size));
    // Eight bits a pixel, palette colours, no interlacing.
    const std::string header = side + side + std::string{"\x08\x03\x00\x00\x00", 5};
    return std::string{"\x89PNG\r\n\x1A\n", 8} + chunk("IHDR", header) + chunk("PLTE", colours)
           + chunk("tRNS", opacities) + chunk("IDAT", stored(lines)) + chunk("IEND", {});
}

}  // namespace quillbar::simulator
