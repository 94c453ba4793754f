// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "Quillbar/login/DesktopEntry.h"

#include <optional>
#include <string>

namespace quillbar {

namespace {

void quote(std::string_view program) {
    const auto exec = DesktopEntry::execOf(program);
    if (!exec || program.empty()) {
        return;
    }
    const auto entry = DesktopEntry::parse("[Desktop Entry]\nExec=" + *exec + "\n");
    require(entry.has_value(), "an entry of a quoted path is an entry");
    require(entry->program() == program, "a quoted path is read back as it was");
}

void read(std::string_view text) {
    const auto entry = DesktopEntry::parse(text);
    if (!entry) {
        return;
    }
    require(!entry->program().value_or("x").empty(), "a program has a name");
    for (const std::string& desktop : entry->list("OnlyShowIn")) {
        require(!desktop.empty(), "a desktop has a name");
    }
    if (!entry->has("Hidden")) {
        require(entry->boolean("Hidden", true), "a key that is not there says nothing");
        require(!entry->text("Hidden"), "a key that is not there has no text");
    }
}

}  // namespace

/// The input is a desktop entry, and the path of a program.
void fuzz(std::string_view input) {
    read(input);
    quote(input);
}

}  // namespace quillbar
