// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionFailure.h"
#include "QuillbarCore/exchange/ConnectionState.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillbar {

/// The connection's state in the words that the label's tooltips use, in the user's language.
[[nodiscard]] std::string displayName(ConnectionState connection);

/// The words for a stream that is connected but has delivered nothing for long.
[[nodiscard]] std::string silentConnectionName();

/// Why there is no connection, in a few words in the user's language, on one line and without a
/// full stop.
[[nodiscard]] std::string displayName(const ConnectionFailure& failure);

/// The name of the connection's state for other programs. It never changes.
[[nodiscard]] std::string_view rawValue(ConnectionState connection);

/// The state of exactly this raw text; absent for any other text.
[[nodiscard]] std::optional<ConnectionState> connectionFromRawValue(std::string_view rawText);

}  // namespace quillbar
