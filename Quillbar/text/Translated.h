// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quillbar {

/// A text for users in the language that they have chosen, which is Chinese unless they did. Both
/// arguments are literals in UTF-8, so that the translators' tools find them: `context` is the name
/// of the room, and `chinese` is the text as the sources have it, which is what comes back where no
/// translation is loaded. Callable from any thread; without an application object it is Chinese.
[[nodiscard]] QString translated(const char* context, const char* chinese);

}  // namespace quillbar
