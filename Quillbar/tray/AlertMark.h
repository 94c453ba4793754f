// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QImage;

/// What is drawn into a picture of the status item to say that there is something to see in the
/// panel. Both scale with the picture's height. Needs a QGuiApplication; for the main thread.
namespace quillbar::AlertMark {

/// Apart from the colours of rising and falling prices in every palette.
inline constexpr QColor kColor{255, 214, 10};

/// A frame along the edges, in the column and the two rows that texts leave free.
void drawFrame(QImage& image);

/// A dot in the upper left corner, which the application's mark leaves free.
void drawDot(QImage& image);

}  // namespace quillbar::AlertMark
