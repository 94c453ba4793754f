// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

class QWindow;
struct xcb_connection_t;

/// What the panel needs of X11 and Qt does not offer. Everywhere else each function does nothing,
/// and each question is answered with no. For the main thread.
namespace quillbar::X11Session {

/// The program's connection to its X11 server; null elsewhere.
[[nodiscard]] xcb_connection_t* connection();

/// Whether the program's windows are X11's, XWayland's included.
[[nodiscard]] bool isX11();

/// Whether somebody blends windows, so that translucent pixels show what lies beneath.
[[nodiscard]] bool isComposited();

/// Keeps the window out of task bars and pagers. Before every showing: window managers forget it
/// when a window is hidden. (Qt 6.4 sets it for no kind of window.)
void skipTaskbar(const QWindow& window);

/// Hands the window the token with which the host announced the click, and ends the busy cursor
/// that some desktops show until then.
void setStartupToken(const QWindow& window, const QString& token);

}  // namespace quillbar::X11Session
