// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// Widgets that a screen reader reads aloud when they appear, wherever the focus is.
namespace quillbar::Announcement {

/// Makes the widget one, under its accessible name. Call it when the widget is constructed: later a
/// screen reader may have asked for its role already.
void mark(QWidget& widget);

}  // namespace quillbar::Announcement
