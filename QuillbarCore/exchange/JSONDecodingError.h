// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace quillbar {

/// Bytes that are not JSON, or JSON that is not what was asked for: a key that is absent, a value
/// of another type. `what()` names the place and the reason, on one line.
class JSONDecodingError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace quillbar
