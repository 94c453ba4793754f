// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/DocumentStore.h"

#include <cstddef>

namespace quillbar {

namespace {

constexpr std::size_t kMaximumReasonLength = 300;

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string shortenedReason(std::string_view reason) {
    if (reason.size() <= kMaximumReasonLength) {
        return std::string(reason);
    }
    std::size_t length = kMaximumReasonLength;
    while (length > 0 && continuesCharacter(reason[length])) {
        --length;
    }
    return std::string(reason.substr(0, length)) + "…";
}

}  // namespace quillbar
