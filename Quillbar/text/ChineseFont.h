// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar::ChineseFont {

/// Whether some installed font can show the panel's Chinese texts. Asks the list of fonts, and loads
/// fonts only where none there says that it is for Simplified Chinese. Needs a QGuiApplication; for
/// the main thread.
[[nodiscard]] bool isInstalled();

}  // namespace quillbar::ChineseFont
