// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Where the exchange keeps its logos. Pure.
namespace quillbar::BinanceIconURL {

/// The URL of a base asset's logo below `base`, a URL without a slash at its end.
[[nodiscard]] std::string url(std::string_view base, std::string_view baseAsset);

}  // namespace quillbar::BinanceIconURL
