// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>

#include <optional>

namespace quillbar {

/// One message of sway's IPC, in either direction: a header of 14 bytes (a mark, the payload's
/// length and the type, both in the machine's byte order), then the payload. A value.
struct SwayMessage {
    /// The types that are used here. An answer has the type of its question; any other number may
    /// come, too.
    enum class Type : quint32 {
        runCommand = 0,
        subscribe = 2,
        getTree = 4,
        windowEvent = 0x80000003
    };

    /// A longer payload is not sway's: its tree of a thousand windows has two million bytes.
    static constexpr quint32 kLongestPayload = 32U << 20U;

    Type type = Type::runCommand;
    QByteArray payload;

    bool operator==(const SwayMessage&) const = default;

    /// The bytes that are sent.
    [[nodiscard]] QByteArray encoded() const;

    /// Takes the first message out of what was received; none while it is incomplete, nor from
    /// bytes that are no message.
    [[nodiscard]] static std::optional<SwayMessage> takeFrom(QByteArray& received);

    /// Whether the bytes received cannot be the beginning of a message, whatever follows.
    [[nodiscard]] static bool isSpoilt(const QByteArray& received);
};

/// Which of sway's windows is meant.
struct SwayWindowKey {
    qint64 pid = 0;
    /// The whole title.
    QString title;
};

/// Where sway has a window; the rectangles are in its logical pixels.
struct SwayWindow {
    /// Names the window in sway's commands, for as long as it is shown.
    qint64 id = 0;
    QRect rectangle;
    QRect output;
    /// What bars leave of the output.
    QRect workspace;

    bool operator==(const SwayWindow&) const = default;

    /// The window in the answer to `getTree`; none when it is not there, or not described in full.
    [[nodiscard]] static std::optional<SwayWindow> findIn(const QByteArray& tree,
                                                          const SwayWindowKey& key);

    /// The id of the window that a `windowEvent` is about, if it is this one.
    [[nodiscard]] static std::optional<qint64> idIn(const QByteArray& event,
                                                    const SwayWindowKey& key);
};

/// Why sway refused what an answer to `runCommand` or `subscribe` is about; none when it did not.
[[nodiscard]] std::optional<QString> swayRefusal(const QByteArray& answer);

}  // namespace quillbar
