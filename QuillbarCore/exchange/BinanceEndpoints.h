// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Where the exchange is reached, in the order in which the addresses are tried. The lists live as
/// long as the process.
namespace quillbar::BinanceEndpoints {

/// The bases of REST requests; each ends in "/api/v3", without a slash.
[[nodiscard]] const std::vector<std::string>& rest();

/// The bases of the price stream, without a path.
[[nodiscard]] const std::vector<std::string>& stream();

}  // namespace quillbar::BinanceEndpoints
