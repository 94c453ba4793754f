// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace quillbar {

/// A decimal text of the exchange that is not an acceptable number. Equal when the texts are.
class BinanceDecodingError final : public std::runtime_error {
public:
    /// `what()` quotes the text, shortened and on one line.
    explicit BinanceDecodingError(std::string invalidNumber);

    /// The offending text exactly as received.
    [[nodiscard]] const std::string& invalidNumber() const noexcept { return m_invalidNumber; }

    [[nodiscard]] bool operator==(const BinanceDecodingError& other) const noexcept {
        return m_invalidNumber == other.m_invalidNumber;
    }

private:
    std::string m_invalidNumber;
};

}  // namespace quillbar
