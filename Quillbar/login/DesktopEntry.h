// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillbar {

/// The main group of a desktop entry, as the Desktop Entry Specification has it: what a desktop
/// reads to start a program. A plain value.
class DesktopEntry final {
public:
    /// Reads the text. Comments, other groups and translations are passed over; of a key that is
    /// there twice the last one holds, as desktops have it; lines may end as they do under Windows.
    /// Absent where desktops refuse the whole file: without the group, or with a line that is none
    /// of these, or with a null character.
    [[nodiscard]] static std::optional<DesktopEntry> parse(std::string_view text);

    /// Whether the key is there.
    [[nodiscard]] bool has(const std::string& key) const { return m_values.contains(key); }
    /// The value as text, its escapes resolved; absent when the key is not there.
    [[nodiscard]] std::optional<std::string> text(const std::string& key) const;
    /// The value as a truth; `otherwise` when the key is not there or says something else.
    [[nodiscard]] bool boolean(const std::string& key, bool otherwise) const;
    /// The value as a list of texts; empty when the key is not there.
    [[nodiscard]] std::vector<std::string> list(const std::string& key) const;
    /// What the key Exec starts: an absolute path or a name to look up, without its arguments.
    /// Absent when the key is not there, when its quoting is broken, and when a percent sign is in
    /// it, which desktops do not start.
    [[nodiscard]] std::optional<std::string> program() const;

    /// The value of an Exec key that starts the program at this path and hands it nothing. Absent
    /// for a path that no entry can hold so that every desktop starts it: one with an equals sign,
    /// a percent sign, a backslash or a control character, or that is not UTF-8.
    [[nodiscard]] static std::optional<std::string> execOf(std::string_view program);

private:
    std::unordered_map<std::string, std::string> m_values;
};

}  // namespace quillbar
