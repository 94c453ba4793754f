// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace quillbar {

/// One of our own JSON documents cannot be read or written: it is not JSON, a key is missing or of
/// another type, a value is out of its range, or a text to write is not UTF-8. what() says which,
/// in English, for the log.
class DocumentError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace quillbar
