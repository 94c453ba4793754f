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
/// tells none where the pointer is. It works from the event loop, and nothing waits for it. A
/// failure is logged once, and the window stays where sway has put it. For the main thread.
///
/// Only the window with the title is moved, so no other window of the program may have it.
class SwayPlacement final {
public:
    /// By what the user opened a window.
    enum class OpenedBy {
        /// A click, so the window is put beside the pointer.
        pointer,
        /// Something else, so the window is put where it was last, or to the end of the bar.
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

    /// Call it when the window appears, or is about to: it is then placed. Does nothing while it is
    /// being placed or is in its place.
    void shown(OpenedBy openedBy);
    /// Whether the window, once placed, stays where the user drags it, and is shown there again on
    /// the same screen. By default the window is put beside the bar.
    void setKeepsPlace(bool keepsPlace);
    /// Call it when the size of a shown window has changed: keeps it beside the bar, or inside the
    /// work area.
    void resized(QSize size);
    /// Call it when the window is hidden: ends what is under way.
    void hidden();

    /// The point on the screen's edge, or inside, that the window belongs to, when sway has put the
    /// window's middle on the pointer and then pushed it into the output. Pure.
    [[nodiscard]] static QPoint anchorOf(const SwayWindow& atPointer);

private:
    /// The answer or the event that it waits for.
    enum class Step {
        nothing,
        connection,
        subscription,
        window,
        floating,
        measure,
        placed,
        /// Where a placed window has been dragged to.
        dragged,
        /// Where the window was when it closed.
        closing,
    };

    void handleConnection();
    void handleBytes();
    void handleMessage(const SwayMessage& message);
    void handleWindow(qint64 id);
    void handleMeasure(const QByteArray& tree);
    void handleClosing(const QByteArray& event);
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
    bool m_keepsPlace = false;
    /// Where the window was last, while it keeps its place.
    std::optional<QPoint> m_kept;
    /// Whether the window was shown again before sway told that it had closed.
    bool m_isShownAgain = false;
    SwayWindow m_window;
    /// A size that came before the window could be placed.
    std::optional<QSize> m_size;
    QByteArray m_received;
    // Last, so that it is gone before what its signals use.
    QLocalSocket m_socket;
};

}  // namespace quillbar
