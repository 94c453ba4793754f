// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace quillbar {

/// One entry of the status item's menu. A plain value.
struct MenuEntry final {
    enum class Kind { action, separator, submenu };
    /// How an entry that can be on is marked.
    enum class Mark { none, check, radio };

    /// What a click is reported as: greater than 0, and unique in the whole menu.
    int id = 0;
    /// Shown as it is: no character is a mnemonic.
    QString label = {};
    Kind kind = Kind::action;
    bool isEnabled = true;
    Mark mark = Mark::none;
    /// For entries with a mark.
    bool isOn = false;
    /// For submenus.
    std::vector<MenuEntry> children = {};

    [[nodiscard]] bool operator==(const MenuEntry&) const = default;
};

}  // namespace quillbar
