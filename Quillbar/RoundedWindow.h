// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QColor;
class QPainter;
class QWidget;

/// The shape of our windows without a frame: a rectangle with round corners.
namespace quillbar::RoundedWindow {

/// Cuts the corners off, as they are at the window's size, for where nobody blends windows.
void cutCorners(QWidget& window, double radius);

/// Fills the window. Corners that are cut are filled too: pixels on the edge of the cut would let
/// something else through.
void fill(QPainter& painter, const QWidget& window, double radius, const QColor& color);

/// Draws the hairline inside the edge of a widget that covers the window.
void drawEdge(QPainter& painter, const QWidget& widget, double radius, const QColor& color);

}  // namespace quillbar::RoundedWindow
