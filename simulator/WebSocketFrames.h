// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The server's half of the WebSocket framing (RFC 6455), without extensions.
namespace quillbar::simulator::WebSocketFrames {

enum class Opcode : std::uint8_t {
    continuation = 0,
    text = 1,
    binary = 2,
    close = 8,
    ping = 9,
    pong = 10,
};

struct Frame {
    Opcode opcode = Opcode::text;
    std::string payload;
    /// The bytes the frame took in the buffer.
    std::size_t length = 0;
};

/// The `Sec-WebSocket-Accept` that answers a client's key.
[[nodiscard]] std::string acceptKey(std::string_view clientKey);

/// A whole, final, unmasked frame.
[[nodiscard]] std::string encode(Opcode opcode, std::string_view payload);
/// A close frame.
[[nodiscard]] std::string encodeClose(std::uint16_t code);

/// The frame at the start of a buffer, unmasked; nothing while it is incomplete.
[[nodiscard]] std::optional<Frame> decode(std::string_view buffer);
/// The code of a close frame's payload; 1005 when it has none.
[[nodiscard]] int closeCode(std::string_view payload);

}  // namespace quillbar::simulator::WebSocketFrames
