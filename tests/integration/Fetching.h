// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "tests/integration/EventLoop.h"

#include <optional>
#include <string>
#include <utility>

namespace quillbar {

/// Fetches to the end, one URL at a time.
class Fetching final {
public:
    explicit Fetching(TransferLimits limits = {})
        : m_fetcher(limits) {}

    [[nodiscard]] HTTPResponse get(std::string url) {
        return m_loop.run(m_fetcher.fetch(std::move(url)));
    }

    /// The transport error of a fetch, whose text is kept in `errorText`; nothing when it succeeds.
    [[nodiscard]] std::optional<URLError::Code> failure(std::string url) {
        try {
            m_loop.run(m_fetcher.fetch(std::move(url)));
            return std::nullopt;
        } catch (const URLError& error) {
            errorText = error.what();
            return error.code();
        }
    }

    [[nodiscard]] URLSessionFetcher& fetcher() { return m_fetcher; }
    [[nodiscard]] EventLoop& loop() { return m_loop; }

    std::string errorText;

private:
    URLSessionFetcher m_fetcher;
    EventLoop m_loop;
};

}  // namespace quillbar
