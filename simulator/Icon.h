// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar::simulator {

/// The bytes of a PNG image for a coin: a disc of a colour that depends on the ticker, on nothing,
/// 32 pixels square. Always the same for the same ticker.
[[nodiscard]] std::string makeIcon(std::string_view baseAsset);

}  // namespace quillbar::simulator
