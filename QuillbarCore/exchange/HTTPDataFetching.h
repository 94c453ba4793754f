// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"

#include <optional>
#include <string>

namespace quillbar {

/// A complete HTTP answer.
struct HTTPResponse {
    /// The bytes, decompressed.
    std::string body;
    /// The HTTP status code; 0 when what answered does not speak HTTP.
    int status = 0;
    /// The Retry-After header as it came; absent when there was none.
    std::optional<std::string> retryAfter = std::nullopt;

    bool operator==(const HTTPResponse&) const = default;
};

/// All HTTP traffic of the core goes through this interface.
class HTTPDataFetching {
public:
    HTTPDataFetching() = default;
    HTTPDataFetching(const HTTPDataFetching&) = default;
    HTTPDataFetching& operator=(const HTTPDataFetching&) = default;
    HTTPDataFetching(HTTPDataFetching&&) = default;
    HTTPDataFetching& operator=(HTTPDataFetching&&) = default;
    virtual ~HTTPDataFetching() = default;

    /// GETs an absolute, percent-encoded URL. Any status is returned, 4xx and 5xx included. Throws
    /// `URLError` for transport errors alone, and `Cancelled` when the awaiting task is cancelled,
    /// which ends the transfer. Many fetches may run at once; the fetcher outlives them.
    virtual Task<HTTPResponse> fetch(std::string url) = 0;
};

}  // namespace quillbar
