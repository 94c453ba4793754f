// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quillbar {

/// Percent-encodes every byte but RFC 3986's unreserved characters. Pure.
[[nodiscard]] std::string percentEncoded(std::string_view text);

}  // namespace quillbar
