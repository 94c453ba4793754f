// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace quillbar {

/// Trusts the certificate authorities of a PEM file in addition to the system's, for all TLS
/// connections that the process makes from now on. For the main thread, before the first request.
/// Returns a text for the user, which names the variable that the file comes from
/// (QUILLBAR_CA_FILE) and the file, when it cannot be read or holds no certificate; nothing has
/// changed then.
[[nodiscard]] std::optional<std::string> trustAuthorities(const std::filesystem::path& pemFile);

}  // namespace quillbar
