// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QMargins>
#include <QRectF>
#include <QSize>

#include <functional>

class QLayout;
class QPainter;
class QWidget;

/// How views grow with the text size that the user has chosen. Every length and every size of a
/// font is written down as it is at 100 %, and a view multiplies it by the factor in its theme: for
/// its geometry by `length`, for what it paints itself by `enlarge`, for texts that Qt paints by
/// `font`. Hairlines, rings, shadows, the fade at the edge of a list and the corners of windows
/// keep their widths.
///
/// For the main thread.
namespace quillbar::TextScale {

/// The factor of the view's theme: 1 at 100 %.
[[nodiscard]] double of(const QWidget& view);

// What is so long at 100 %, at the view's size, in whole points.

[[nodiscard]] int length(const QWidget& view, double points);
[[nodiscard]] QSize size(const QWidget& view, const QSize& points);
[[nodiscard]] QMargins margins(const QWidget& view, const QMargins& points);

/// The system font that is so large at 100 %, at the view's size.
[[nodiscard]] QFont font(const QWidget& view, double points, QFont::Weight weight = QFont::Normal);
/// Another font that is right at 100 %, at the view's size.
[[nodiscard]] QFont font(const QWidget& view, QFont font);

/// Makes one unit of a painter that paints `view` as long as one point at 100 %. Returns the whole
/// view in these units. What is drawn then keeps its proportions at every size.
QRectF enlarge(QPainter& painter, const QWidget& view);

/// Calls `apply` at once, and again whenever the view's factor has changed, until the view is
/// destroyed. For a view that has something made of lengths, such as a fixed size.
void follow(QWidget& view, std::function<void()> apply);
/// Gives a layout of the view, which lives as long, these margins and this spacing at every size.
void followSpaces(QWidget& view, QLayout& layout, const QMargins& points, int spacing);
/// Gives the view itself these margins at every size.
void followMargins(QWidget& view, const QMargins& points);

}  // namespace quillbar::TextScale
