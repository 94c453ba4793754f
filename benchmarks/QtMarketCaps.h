// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapEntry.h"

#include <string>
#include <vector>

namespace quillbar::benchmarks {

/// What `CoinGeckoDecoder` does, on QJsonDocument. Throws std::runtime_error for malformed JSON;
/// passes over what the service does not send.
[[nodiscard]] std::vector<MarketCapEntry> decodeMarketsWithQt(const std::string& bytes);

}  // namespace quillbar::benchmarks
