// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/PercentEncoding.h"

#include <fmt/format.h>

namespace quillbar {

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view kUnreserved =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (kUnreserved.find(character) != std::string_view::npos) {
            result += character;
        } else {
            result += fmt::format("%{:02X}", static_cast<unsigned char>(character));
        }
    }
    return result;
}

}  // namespace quillbar
