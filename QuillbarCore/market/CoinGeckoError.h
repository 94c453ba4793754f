// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace quillbar {

/// An answer of the market-cap service whose status is not 200. Equality compares the status.
class CoinGeckoError final : public std::runtime_error {
public:
    explicit CoinGeckoError(int httpStatus);

    [[nodiscard]] int httpStatus() const noexcept { return m_httpStatus; }

    [[nodiscard]] friend bool operator==(const CoinGeckoError& left, const CoinGeckoError& right) {
        return left.m_httpStatus == right.m_httpStatus;
    }

private:
    int m_httpStatus;
};

}  // namespace quillbar
