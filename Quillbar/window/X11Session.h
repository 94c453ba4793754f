// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QtGlobal>

#include <optional>

class QWindow;
struct xcb_connection_t;

/// Functions of X11 that the panel needs and Qt does not offer. Under other window systems they do
/// nothing, and answer each question with no. For the main thread.
namespace quillbar::X11Session {

/// The program's connection to its X11 server; null elsewhere.
[[nodiscard]] xcb_connection_t* connection();

/// Whether the program's windows are windows of X11, including XWayland.
[[nodiscard]] bool isX11();

/// Whether a compositor blends windows, so that translucent pixels show what is below them.
[[nodiscard]] bool isComposited();

/// Whether a button of the pointer is held down, even where a window manager has the pointer, as
/// while it moves a window. False without an answer, and where the windows are not of X11.
[[nodiscard]] bool isButtonHeld();

/// The bar or dock whose window is seen at the position, both in the server's pixels; none where
/// there is another window, or no answer.
[[nodiscard]] std::optional<QRect> dockAt(QPoint position);

/// Tells window managers that a window is a utility, though Qt does not know it as a tool window.
/// Qt would make a tool window belong to a window that no window manager knows. Call it before the
/// window is first shown.
void beUtility(const QWindow& window);

/// Keeps the window out of task bars and pagers. Call it before each time the window is shown:
/// window managers forget it when a window is hidden. (Qt 6.4 never sets it.)
void skipTaskbar(const QWindow& window);

/// Gives the window the token with which the host announced the click, and ends the busy cursor
/// that some desktops show until then. Does nothing for an empty token.
void setStartupToken(const QWindow& window, const QString& token);

}  // namespace quillbar::X11Session
