// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/HttpMessage.h"

#include "simulator/AsciiText.h"

#include <fmt/format.h>

#include <charconv>
#include <iterator>

namespace quillbar::simulator {

namespace {

constexpr std::size_t kLargestHead = std::size_t{64} * 1024;

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The text up to the separator, which is removed along with it; all of it when there is none.
std::string_view takeUntil(std::string_view& text, std::string_view separator) {
    const std::size_t at = text.find(separator);
    const std::string_view head = text.substr(0, at);
    text = at == std::string_view::npos ? std::string_view{} : text.substr(at + separator.size());
    return head;
}

bool readRequestLine(std::string_view line, HttpRequest& request) {
    request.method = takeUntil(line, " ");
    request.target = takeUntil(line, " ");
    if (request.method.empty() || !request.target.starts_with('/')
        || !line.starts_with("HTTP/1.")) {
        return false;
    }
    std::string_view rest = request.target;
    request.path = percentDecoded(takeUntil(rest, "?"));
    while (!rest.empty()) {
        std::string_view value = takeUntil(rest, "&");
        const std::string_view name = takeUntil(value, "=");
        request.query.emplace_back(percentDecoded(name), percentDecoded(value));
    }
    return true;
}

bool readHeaders(std::string_view head, HttpRequest& request) {
    while (!head.empty()) {
        std::string_view value = takeUntil(head, "\r\n");
        const std::size_t colon = value.find(':');
        if (colon == std::string_view::npos || colon == 0) {
            return false;
        }
        const std::string_view name = takeUntil(value, ":");
        request.headers.emplace_back(lowerCased(name), trimmed(value));
    }
    return true;
}

// The body's length; nothing when it cannot be told.
std::optional<std::size_t> bodyLength(const HttpRequest& request) {
    if (!request.header("transfer-encoding").empty()) {
        return std::nullopt;
    }
    const std::string text = request.header("content-length");
    if (text.empty()) {
        return 0;
    }
    std::size_t length = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, length);
    if (error != std::errc{} || stop != end || length > kLargestHead) {
        return std::nullopt;
    }
    return length;
}

std::string_view reason(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 302:
        return "Found";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 429:
        return "Too Many Requests";
    case 503:
        return "Service Unavailable";
    default:
        return "Status";
    }
}

}  // namespace

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned int byte = 0;
        if (text[i] == '%' && i + 2 < text.size()) {
            const char* first = text.data() + i + 1;
            const auto [stop, error] = std::from_chars(first, first + 2, byte, 16);
            if (error == std::errc{} && stop == first + 2) {
                decoded += static_cast<char>(byte);
                i += 2;
                continue;
            }
        }
        decoded += text[i];
    }
    return decoded;
}

std::optional<std::string> HttpRequest::parameter(std::string_view name) const {
    for (const auto& [key, value] : query) {
        if (key == name) {
            return value;
        }
    }
    return std::nullopt;
}

std::string HttpRequest::header(std::string_view name) const {
    for (const auto& [key, value] : headers) {
        if (key == name) {
            return value;
        }
    }
    return {};
}

bool HttpRequest::isUpgrade() const {
    return lowerCased(header("upgrade")) == "websocket";
}

bool HttpRequest::wantsClose() const {
    return lowerCased(header("connection")) == "close";
}

HttpParse parseRequest(std::string_view buffer) {
    HttpParse parse;
    const std::size_t headLength = buffer.find("\r\n\r\n");
    // Not found is the largest number of all.
    if (headLength > kLargestHead) {
        parse.state = buffer.size() > kLargestHead ? HttpParse::State::malformed
                                                   : HttpParse::State::incomplete;
        return parse;
    }
    parse.state = HttpParse::State::malformed;
    std::string_view head = buffer.substr(0, headLength);
    const std::string_view line = takeUntil(head, "\r\n");
    if (!readRequestLine(line, parse.request) || !readHeaders(head, parse.request)) {
        return parse;
    }
    const std::optional<std::size_t> body = bodyLength(parse.request);
    if (!body) {
        return parse;
    }
    parse.length = headLength + 4 + *body;
    parse.state =
        buffer.size() < parse.length ? HttpParse::State::incomplete : HttpParse::State::complete;
    return parse;
}

std::string headText(const HttpResponse& response) {
    std::string head = fmt::format("HTTP/1.1 {} {}\r\nContent-Type: {}\r\nContent-Length: {}\r\n",
                                   response.status,
                                   reason(response.status),
                                   response.contentType,
                                   response.body.size());
    for (const auto& [name, value] : response.headers) {
        fmt::format_to(std::back_inserter(head), "{}: {}\r\n", name, value);
    }
    return head + "\r\n";
}

}  // namespace quillbar::simulator
