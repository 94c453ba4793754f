// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar::simulator {

/// The bytes of a PNG image for a coin, 64 pixels square: a disc of the coin's colour on nothing,
/// with a ring in it and the first letter of the ticker, or a lozenge for a ticker without a Latin
/// letter. The colour of a well-known coin is the one it is known by; any other coin's depends on
/// the ticker. Always the same for the same ticker.
[[nodiscard]] std::string makeIcon(std::string_view baseAsset);

}  // namespace quillbar::simulator
