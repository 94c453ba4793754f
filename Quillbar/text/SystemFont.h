// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace quillbar {

/// The desktop's font at a size in points, which are logical pixels and may be fractions. Chinese
/// that it has no shapes for is drawn as `withChineseFamilies` says. Needs a QGuiApplication; for the
/// main thread.
[[nodiscard]] QFont systemFont(double points, QFont::Weight weight = QFont::Normal);

/// `font` with the installed families behind its own that draw Chinese as it is written in mainland
/// China: outside a Chinese session the system would take any that has the characters, mostly one
/// with the Japanese shapes. A `font` that is itself of such a family, like Noto Sans CJK JP, gives
/// way to its sibling for mainland China. What else `font` can draw, letters and digits above all,
/// stays as it is. Needs a QGuiApplication; for the main thread.
[[nodiscard]] QFont withChineseFamilies(QFont font);

}  // namespace quillbar
