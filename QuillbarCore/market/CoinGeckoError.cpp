// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/CoinGeckoError.h"

#include <fmt/format.h>

namespace quillbar {

CoinGeckoError::CoinGeckoError(int httpStatus)
    : std::runtime_error(fmt::format("httpStatus({})", httpStatus))
    , m_httpStatus(httpStatus) {}

}  // namespace quillbar
