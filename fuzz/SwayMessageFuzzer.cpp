// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "Quillbar/window/SwayMessage.h"

namespace quillbar {

namespace {

const SwayWindowKey kKey{.pid = 4711, .title = QStringLiteral("Quillbar")};
constexpr int kLargest = 1'000'000;

void requireSound(const QRect& rectangle) {
    const QRect screens(QPoint(-kLargest, -kLargest), QSize(3 * kLargest, 3 * kLargest));
    require(rectangle.isValid() && screens.contains(rectangle), "a rectangle is near a screen");
}

void readAnswer(const QByteArray& answer) {
    if (const auto window = SwayWindow::findIn(answer, kKey)) {
        require(window->id > 0, "a window has an id");
        requireSound(window->rectangle);
        requireSound(window->output);
        requireSound(window->workspace);
    }
    require(SwayWindow::idIn(answer, kKey).value_or(1) > 0, "an event's window has an id");
    static_cast<void>(swayRefusal(answer));
}

}  // namespace

/// The input is what a socket delivers: messages, and perhaps the beginning of another.
void fuzz(std::string_view input) {
    const QByteArray all(input.data(), static_cast<qsizetype>(input.size()));
    QByteArray received = all;
    QByteArray read;
    while (const auto message = SwayMessage::takeFrom(received)) {
        require(!SwayMessage::isSpoilt(message->encoded()), "a message that was read is sound");
        read += message->encoded();
        readAnswer(message->payload);
    }
    require(read + received == all, "each byte is read once, and is written again as it was");
    readAnswer(all);
}

}  // namespace quillbar
