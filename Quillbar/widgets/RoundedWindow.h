// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QColor;
class QPainter;
class QWidget;

/// The shape of our windows without a frame: a rectangle with round corners.
namespace quillbar::RoundedWindow {

/// Cuts the corners off, for the window's present size. For sessions in which no compositor blends
/// windows.
void cutCorners(QWidget& window, double radius);

/// Fills the window. Corners that are cut off are filled too, because what is behind the window
/// would shine through pixels on the edge of the cut.
void fill(QPainter& painter, const QWidget& window, double radius, const QColor& color);

/// Draws the hairline inside the edge of a widget that covers the window.
void drawEdge(QPainter& painter, const QWidget& widget, double radius, const QColor& color);

}  // namespace quillbar::RoundedWindow
