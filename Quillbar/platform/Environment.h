// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quillbar {

/// The value of an environment variable; absent when it is not set.
using EnvironmentVariables = std::function<std::optional<std::string>(const char* name)>;

}  // namespace quillbar
