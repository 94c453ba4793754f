// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar {

/// An override in the environment that cannot be used. `what()` is one line for the user; it names
/// the variable.
class EndpointError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where every service is reached: base URLs without a slash at their end, in order of preference.
struct ServiceEndpoints final {
    std::vector<std::string> rest;
    std::vector<std::string> stream;
    std::string marketCap;
    std::string icon;
    /// One more trusted certificate authority, as the path of a PEM file; absent for none.
    std::optional<std::string> certificateAuthorityFile = std::nullopt;

    /// The real services'.
    [[nodiscard]] static ServiceEndpoints production();

    /// The value of an environment variable; absent when it is not set.
    using Variables = std::function<std::optional<std::string>(const char* name)>;

    /// The real services', each replaced by what QUILLBAR_REST_ENDPOINTS,
    /// QUILLBAR_STREAM_ENDPOINTS (both lists with commas), QUILLBAR_MARKETCAP_ENDPOINT,
    /// QUILLBAR_ICON_ENDPOINT and QUILLBAR_CA_FILE say; an empty variable counts as not set.
    ///
    /// Throws `EndpointError` for what is not an absolute URL with a host and without credentials,
    /// query and fragment, and for `http` and `ws` to a host that is not a loopback address:
    /// elsewhere nothing is fetched without encryption.
    [[nodiscard]] static ServiceEndpoints fromEnvironment(const Variables& variables);
};

/// The process's own environment.
[[nodiscard]] ServiceEndpoints::Variables processEnvironment();

}  // namespace quillbar
