// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace quillbar {

/// The font of the panel at a size in points, which are logical pixels and may be fractions: that
/// of `withChineseFamilies` for the desktop's font. Semibold is Medium where the family has no
/// semibold. Needs a QGuiApplication; for the main thread.
[[nodiscard]] QFont systemFont(double points, QFont::Weight weight = QFont::Normal);

/// `font` in one family for Chinese, as it is written in mainland China, and for letters and
/// digits: in its own where that can write Chinese, like Noto Sans CJK JP in its sibling for
/// mainland China; else in the first that is installed of those that the most people have. Then "24
/// 小时" has one weight, and looks alike in every locale. The other families follow, for what the
/// first cannot draw. With no Chinese family installed `font` stays as it is. Needs a
/// QGuiApplication; for the main thread.
[[nodiscard]] QFont withChineseFamilies(QFont font);

}  // namespace quillbar
