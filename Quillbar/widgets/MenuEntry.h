// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace quillbar {

/// One entry of the status item's menu, or of the panel's. A plain value.
struct MenuEntry final {
    enum class Kind {
        /// An entry that can be chosen unless it is disabled.
        action,
        separator,
        submenu,
        /// The title of the entries below it.
        header,
        /// A remark about the entry above it.
        notice,
    };
    /// The mark of an entry that can be on or off.
    enum class Mark { none, check, radio };

    /// The id with which a click is reported. It is greater than 0, and unique in the whole menu.
    int id = 0;
    /// Shown as it is; an ampersand makes no mnemonic.
    QString label = {};
    Kind kind = Kind::action;
    bool isEnabled = true;
    Mark mark = Mark::none;
    /// For entries with a mark.
    bool isOn = false;
    /// For submenus.
    std::vector<MenuEntry> children = {};

    /// Whether the user can choose or open it.
    [[nodiscard]] bool isUsable() const {
        return isEnabled && (kind == Kind::action || kind == Kind::submenu);
    }

    [[nodiscard]] bool operator==(const MenuEntry&) const = default;
};

}  // namespace quillbar
