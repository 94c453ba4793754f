// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/widgets/MenuEntry.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/AppState.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillbar {

/// All settings of the application, as entries of a menu. The gear's menu and the status item's
/// show the same entries. For the main thread.
///
/// The status of the login item is read at the start, after a switch that failed, and in `refresh`.
/// The settings of the desktop may change it at any time without a signal.
class SettingsMenu final {
public:
    /// The ids of all entries. They are greater than the ids of the status item's own entries.
    static constexpr int kFirstId = 10;
    static constexpr int kLastId = 99;

    /// Both outlive the menu.
    SettingsMenu(AppState& appState, LaunchAtLogin& launchAtLogin);
    SettingsMenu(const SettingsMenu&) = delete;
    SettingsMenu& operator=(const SettingsMenu&) = delete;
    SettingsMenu(SettingsMenu&&) = delete;
    SettingsMenu& operator=(SettingsMenu&&) = delete;
    ~SettingsMenu() = default;

    /// All entries but the one that quits: each menu adds that at its end.
    [[nodiscard]] const Observed<std::vector<MenuEntry>>& entries() const noexcept {
        return m_entries;
    }
    /// Whether the switch for starting at login is on.
    [[nodiscard]] const Observed<bool>& launchAtLogin() const noexcept { return m_isLaunched; }
    /// Why switching it failed the last time; absent once it was switched with success.
    [[nodiscard]] const Observed<std::optional<QString>>& launchAtLoginError() const noexcept {
        return m_launchError;
    }

    /// What became of a choice.
    enum class Choice {
        done,
        /// The choice could not be carried out; the entries say why.
        failed,
        /// The user wants the page of preferences, which the caller opens.
        wantsPreferences,
    };

    /// Does what the entry of this id says. Does nothing for any other id.
    Choice choose(int id);
    /// Switches starting at login on or off. The switch changes at once, and changes back if that
    /// fails.
    void setLaunchAtLogin(bool enabled);
    /// Call it when the language of the texts has changed: the entries, and what says why a switch
    /// failed, then have theirs in the new one.
    void renewTexts();
    /// Call it when a menu opens: the switch then shows what the desktop has. An earlier failure
    /// stays to be read.
    void refresh();

private:
    void updateEntries();

    AppState& m_appState;
    LaunchAtLogin& m_launchAtLogin;
    Observed<bool> m_isLaunched;
    Observed<std::optional<QString>> m_launchError;
    /// What the switch that failed should have made of it.
    bool m_wantedLaunch = false;
    Observed<std::vector<MenuEntry>> m_entries;
    // Last, because they call functions of this object.
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
