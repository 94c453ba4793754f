// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/WebSocketFrames.h"

#include <QByteArray>
#include <QCryptographicHash>

namespace quillbar::simulator::WebSocketFrames {

namespace {

constexpr std::uint8_t kFinal = 0x80;
constexpr std::uint8_t kMasked = 0x80;
constexpr std::uint8_t kLengthBits = 0x7F;
constexpr std::uint8_t kLength16 = 126;
constexpr std::uint8_t kLength64 = 127;
constexpr int kNoCode = 1005;

void appendBigEndian(std::string& bytes, std::uint64_t value, int count) {
    for (int shift = (count - 1) * 8; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((value >> shift) & 0xFFU);
    }
}

std::uint8_t byteAt(std::string_view buffer, std::size_t position) {
    return static_cast<std::uint8_t>(buffer[position]);
}

std::uint64_t bigEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        value = (value << 8U) | byteAt(bytes, i);
    }
    return value;
}

}  // namespace

std::string acceptKey(std::string_view clientKey) {
    const std::string text = std::string{clientKey} + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    return hash.result().toBase64().toStdString();
}

std::string encode(Opcode opcode, std::string_view payload) {
    std::string frame;
    frame += static_cast<char>(kFinal | static_cast<std::uint8_t>(opcode));
    if (payload.size() < kLength16) {
        frame += static_cast<char>(payload.size());
    } else if (payload.size() <= 0xFFFF) {
        frame += static_cast<char>(kLength16);
        appendBigEndian(frame, payload.size(), 2);
    } else {
        frame += static_cast<char>(kLength64);
        appendBigEndian(frame, payload.size(), 8);
    }
    return frame.append(payload);
}

std::string encodeClose(std::uint16_t code) {
    std::string payload;
    appendBigEndian(payload, code, 2);
    return encode(Opcode::close, payload);
}

std::optional<Frame> decode(std::string_view buffer) {
    if (buffer.size() < 2) {
        return std::nullopt;
    }
    const std::uint8_t shortLength = byteAt(buffer, 1) & kLengthBits;
    const bool isMasked = (byteAt(buffer, 1) & kMasked) != 0;
    const std::size_t lengthBytes =
        shortLength == kLength64 ? 8 : (shortLength == kLength16 ? 2 : 0);
    const std::size_t head = 2 + lengthBytes + (isMasked ? 4 : 0);
    if (buffer.size() < head) {
        return std::nullopt;
    }
    const std::uint64_t length =
        lengthBytes == 0 ? shortLength : bigEndian(buffer.substr(2, lengthBytes));
    if (buffer.size() - head < length) {
        return std::nullopt;
    }
    Frame frame;
    frame.opcode = static_cast<Opcode>(byteAt(buffer, 0) & 0x0FU);
    frame.length = head + length;
    frame.payload = buffer.substr(head, length);
    if (isMasked) {
        const std::string_view mask = buffer.substr(head - 4, 4);
        for (std::size_t i = 0; i < frame.payload.size(); ++i) {
            frame.payload[i] = static_cast<char>(byteAt(frame.payload, i) ^ byteAt(mask, i % 4));
        }
    }
    return frame;
}

int closeCode(std::string_view payload) {
    return payload.size() < 2 ? kNoCode : static_cast<int>(bigEndian(payload.substr(0, 2)));
}

}  // namespace quillbar::simulator::WebSocketFrames
