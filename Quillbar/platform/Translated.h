// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace quillbar {

/// A text for users in the language that they have chosen, which is Chinese unless they did. Both
/// arguments are literals in UTF-8, so that the translators' tools find them: `context` is the name
/// of the room, "app" above the rooms, and `chinese` is the text as the sources have it, which is
/// what comes back where it has no translation. The choice can change while the program runs
/// (`TextLanguages::use`), so nobody keeps a text for longer than the view that shows it. For the
/// main thread; needs no application object.
[[nodiscard]] QString translated(const char* context, const char* chinese);

/// The same for a text about a number of things, in which "%n" stands for `count`. A translation
/// has a form for each number that its language tells apart: "1 coin", "2 coins". `note` is for
/// translators, and tells apart two uses of one Chinese text; usually null. Their tools understand
/// a name or a call as `count`, and pass over a cast.
[[nodiscard]] QString translated(const char* context,
                                 const char* chinese,
                                 const char* note,
                                 int count);

/// The same for a text of the core that is marked with `userText`. What is not marked comes back as
/// it is.
[[nodiscard]] QString translatedFromCore(std::string_view chinese);

}  // namespace quillbar
