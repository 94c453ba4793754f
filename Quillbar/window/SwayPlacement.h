// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/window/SwayMessage.h"
#include "QuillbarCore/runtime/Logger.h"

#include <QByteArray>
#include <QLocalSocket>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>
#include <string_view>

namespace quillbar {

/// Puts a window beside sway's bar, through sway's IPC: sway lets no window choose its place, and
/// tells none where the pointer is. All of it happens while the event loop runs, and nothing waits
/// for it. What fails is logged, once, and leaves the window where sway had put it. For the main
/// thread.
///
/// Only the one window is touched that sway knows by the key, so the title belongs to no other
/// window of the program.
class SwayPlacement final {
public:
    /// What a window was opened by.
    enum class OpenedBy {
        /// A click, so it belongs beside the pointer.
        pointer,
        /// Something else, so it goes where it was last, or to the end of the bar.
        other,
    };

    /// The placement of this program's window of that title, in a session of sway; null elsewhere.
    [[nodiscard]] static std::unique_ptr<SwayPlacement> ofSession(const QString& title);

    /// `socketPath` is where sway listens. Nothing is asked of it until a window is shown.
    SwayPlacement(QString socketPath, SwayWindowKey key);
    SwayPlacement(const SwayPlacement&) = delete;
    SwayPlacement& operator=(const SwayPlacement&) = delete;
    SwayPlacement(SwayPlacement&&) = delete;
    SwayPlacement& operator=(SwayPlacement&&) = delete;
    ~SwayPlacement();

    /// The window appears, or will in a moment; places it. Does nothing while it is being placed or
    /// stands in its place.
    void shown(OpenedBy openedBy);
    /// The window, shown, has another size: keeps it beside the bar.
    void resized(QSize size);
    /// The window is gone; ends what is under way.
    void hidden();

    /// The point on the screen's edge, or inside, that the window belongs to, when sway has put the
    /// window's middle on the pointer and then pushed it into the output. Pure.
    [[nodiscard]] static QPoint anchorOf(const SwayWindow& atPointer);

private:
    /// What is waited for.
    enum class Step { nothing, connection, subscription, window, floating, measure, placed };

    void handleConnection();
    void handleBytes();
    void handleMessage(const SwayMessage& message);
    void handleWindow(qint64 id);
    void handleMeasure(const QByteArray& tree);
    /// Moves the window to where it belongs at that size.
    void place(QSize size);
    void send(SwayMessage::Type type, const QByteArray& payload = {});
    void run(const QString& commands);
    void end();
    void fail(std::string_view reason);

    QString m_path;
    SwayWindowKey m_key;
    Logger m_logger{"SwayPlacement"};
    bool m_hasLogged = false;

    Step m_step = Step::nothing;
    OpenedBy m_openedBy = OpenedBy::other;
    /// Where the last click was.
    std::optional<QPoint> m_anchor;
    SwayWindow m_window;
    /// A size that came before the window could be placed.
    std::optional<QSize> m_size;
    QByteArray m_received;
    // Last, so that it is gone before what its signals use.
    QLocalSocket m_socket;
};

}  // namespace quillbar
