// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar::simulator {

/// The text with %XX turned into bytes. A `%` that no two hexadecimal digits follow stays.
[[nodiscard]] std::string percentDecoded(std::string_view text);

/// A request's head, read.
struct HttpRequest {
    std::string method;
    std::string target;
    /// Decoded, without the query.
    std::string path;
    /// Decoded names and values, in the order sent; a `+` stands for itself.
    std::vector<std::pair<std::string, std::string>> query;
    /// Names in lower case.
    std::vector<std::pair<std::string, std::string>> headers;

    /// The first of that name, or nothing.
    [[nodiscard]] std::optional<std::string> parameter(std::string_view name) const;
    /// The first of that lower-case name; empty when there is none.
    [[nodiscard]] std::string header(std::string_view name) const;
    [[nodiscard]] bool isUpgrade() const;
    /// Whether the client wants the connection closed after the answer.
    [[nodiscard]] bool wantsClose() const;
};

/// What came of looking for a request at the start of a buffer.
struct HttpParse {
    enum class State { incomplete, complete, malformed };
    State state = State::incomplete;
    HttpRequest request;
    /// The bytes of head and body together, when complete.
    std::size_t length = 0;
};

/// Looks for one whole request, its body (which is passed over) included. A head of more than
/// 64 KiB, a line that makes no sense, or a body of unknown length is malformed.
[[nodiscard]] HttpParse parseRequest(std::string_view buffer);

/// An answer to be sent.
struct HttpResponse {
    int status = 200;
    std::string contentType = "application/json;charset=UTF-8";
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;
};

/// The head as sent, with the length of the body.
[[nodiscard]] std::string headText(const HttpResponse& response);

}  // namespace quillbar::simulator
