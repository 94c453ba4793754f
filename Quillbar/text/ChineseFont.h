// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar::ChineseFont {

/// Whether some installed font can show the panel's Chinese texts. Reads the list of fonts. It
/// loads fonts only if none in the list is marked as one for Simplified Chinese. Needs a
/// QGuiApplication; for the main thread.
[[nodiscard]] bool isInstalled();

}  // namespace quillbar::ChineseFont
