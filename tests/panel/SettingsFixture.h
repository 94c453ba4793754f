// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/panel/SettingsMenu.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/support/FakeLoginItem.h"

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

/// The settings over a real AppState and a login item that does what the test says.
struct SettingsFixture : ViewFixture {
    /// Makes the settings, over a state with the stored documents, as a start does.
    SettingsMenu& makeSettings() {
        start();
        settings = std::make_unique<SettingsMenu>(*state, launch);
        return *settings;
    }

    /// The entries from above: "-" for a divider, "[title]" for a header, "<text>" for a notice, a
    /// "*" behind what is on.
    [[nodiscard]] static std::vector<std::string> read(const std::vector<MenuEntry>& entries) {
        std::vector<std::string> lines;
        for (const MenuEntry& entry : entries) {
            const std::string label = entry.label.toStdString();
            switch (entry.kind) {
            case MenuEntry::Kind::separator:
                lines.emplace_back("-");
                break;
            case MenuEntry::Kind::header:
                lines.push_back("[" + label + "]");
                break;
            case MenuEntry::Kind::notice:
                lines.push_back("<" + label + ">");
                break;
            case MenuEntry::Kind::action:
            case MenuEntry::Kind::submenu:
                lines.push_back(entry.isOn ? label + "*" : label);
                break;
            }
        }
        return lines;
    }
    [[nodiscard]] std::vector<std::string> entries() const { return read(*settings->entries()); }

    /// Chooses the entry of this label.
    void choose(const std::string& label) {
        for (const MenuEntry& entry : *settings->entries()) {
            if (entry.label.toStdString() == label) {
                // A copy, because the choice replaces the entries.
                const int id = entry.id;
                settings->choose(id);
                return;
            }
        }
        ADD_FAILURE() << "no entry " << label;
    }

    FakeLoginItem item;
    LaunchAtLogin launch{item};
    std::unique_ptr<SettingsMenu> settings;
};

}  // namespace quillbar
