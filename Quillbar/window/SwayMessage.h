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
    /// The types that are used here. An answer has the type of its question. Messages of other
    /// types may arrive too.
    enum class Type : quint32 {
        runCommand = 0,
        subscribe = 2,
        getTree = 4,
        windowEvent = 0x80000003
    };

    /// Sway sends no longer payload: its tree of a thousand windows has two million bytes.
    static constexpr quint32 kLongestPayload = 32U << 20U;

    Type type = Type::runCommand;
    QByteArray payload;

    bool operator==(const SwayMessage&) const = default;

    /// The bytes that are sent.
    [[nodiscard]] QByteArray encoded() const;

    /// Takes the first message out of the bytes that were received. Absent while it is incomplete,
    /// or if the bytes are no message.
    [[nodiscard]] static std::optional<SwayMessage> takeFrom(QByteArray& received);

    /// Whether the bytes received cannot be the beginning of a message, whatever follows.
    [[nodiscard]] static bool isSpoilt(const QByteArray& received);
};

/// The window that is meant, among all of sway's windows.
struct SwayWindowKey {
    qint64 pid = 0;
    /// The whole title.
    QString title;
};

/// Where sway has a window; the rectangles are in its logical pixels.
struct SwayWindow {
    /// The name of the window in sway's commands, valid while it is shown.
    qint64 id = 0;
    QRect rectangle;
    QRect output;
    /// The part of the output that bars leave free.
    QRect workspace;

    bool operator==(const SwayWindow&) const = default;

    /// The window in the answer to `getTree`. Absent if it is not there, or if its description is
    /// incomplete.
    [[nodiscard]] static std::optional<SwayWindow> findIn(const QByteArray& tree,
                                                          const SwayWindowKey& key);

    /// The id of the window that a `windowEvent` is about, if it is this one.
    [[nodiscard]] static std::optional<qint64> idIn(const QByteArray& event,
                                                    const SwayWindowKey& key);

    /// Where the window was, if this `windowEvent` says that it has closed.
    [[nodiscard]] static std::optional<QRect> closedIn(const QByteArray& event,
                                                       const SwayWindowKey& key);
};

/// Why sway refused the command or the subscription of this answer. Absent if it did not refuse.
[[nodiscard]] std::optional<QString> swayRefusal(const QByteArray& answer);

}  // namespace quillbar
