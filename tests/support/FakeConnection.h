// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/exchange/WebSocketConnecting.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A WebSocket connection whose server is the test.
class FakeConnection final : public WebSocketConnecting {
public:
    AsyncStream<std::string> connect(const std::string& url) override;
    void cancel() override;

    /// A message from the server.
    void message(std::string bytes);
    /// The mini ticker of a pair, with prices as the exchange writes them.
    void frame(const std::string& symbol, const std::string& lastPrice);
    /// The server's farewell.
    void closeByServer();
    /// The connection breaks.
    void fail(const std::string& text = "the connection broke",
              URLError::Code code = URLError::Code::connectionLost);

    /// Whether somebody reads the messages.
    [[nodiscard]] bool isRead() const;
    /// Whether `cancel` was called after `connect`.
    [[nodiscard]] bool isCancelled() const noexcept { return cancelCount > 0; }

    // What was asked.
    std::vector<std::string> urls;
    int cancelCount = 0;

private:
    std::optional<StreamSource<std::string>> m_source;
};

/// Makes the connections of a stream client, and keeps them all.
class FakeConnections {
public:
    /// What a stream client takes. Refers to this object.
    [[nodiscard]] std::function<std::shared_ptr<WebSocketConnecting>()> factory();

    /// The connections, in the order in which they were made.
    std::vector<std::shared_ptr<FakeConnection>> made;

    /// The connection that was made last.
    [[nodiscard]] FakeConnection& last() const { return *made.back(); }
};

/// The bytes of a mini ticker's frame.
[[nodiscard]] std::string miniTickerFrame(const std::string& symbol, const std::string& lastPrice);

}  // namespace quillbar
