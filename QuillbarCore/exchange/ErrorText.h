// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>

namespace quillbar {

/// What the log says of an error (not null): its `what()`, or "cancelled" for `Cancelled`.
[[nodiscard]] std::string errorText(const std::exception_ptr& error);

}  // namespace quillbar
