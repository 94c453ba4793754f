// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionState.h"

#include <string_view>

namespace quillbar {

/// The connection's state in the words that the label's tooltips use.
[[nodiscard]] std::string_view displayName(ConnectionState connection);

}  // namespace quillbar
