// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace quillbar {

/// The desktop's font at a size in points, which are logical pixels and may be fractions. Needs a
/// QGuiApplication; for the main thread.
[[nodiscard]] QFont systemFont(double points, QFont::Weight weight = QFont::Normal);

}  // namespace quillbar
