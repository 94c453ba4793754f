// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace quillbar {

/// A REST answer whose HTTP status is outside 200–299. Equal when the statuses are.
class BinanceError final : public std::runtime_error {
public:
    /// `httpStatus` is the answer's status; 0 for an answer without a status, and for a request
    /// when no endpoint is left to try.
    explicit BinanceError(int httpStatus);

    [[nodiscard]] int httpStatus() const noexcept { return m_httpStatus; }

    [[nodiscard]] bool operator==(const BinanceError& other) const noexcept {
        return m_httpStatus == other.m_httpStatus;
    }

private:
    int m_httpStatus;
};

}  // namespace quillbar
