// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/tray/MenuEntry.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/AppState.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillbar {

/// Every setting that the application has, as entries of a menu: the gear's and the status item's
/// show the same ones. For the main thread.
///
/// What the login item's status is, is asked at the start, after a switch that failed, and in
/// `refresh`: the desktop's settings may change it at any time, and do not tell.
class SettingsMenu final {
public:
    /// The ids of the entries, all of them; greater than those of the status item's own.
    static constexpr int kFirstId = 10;
    static constexpr int kLastId = 99;

    /// Both outlive the menu.
    SettingsMenu(AppState& appState, LaunchAtLogin& launchAtLogin);
    SettingsMenu(const SettingsMenu&) = delete;
    SettingsMenu& operator=(const SettingsMenu&) = delete;
    SettingsMenu(SettingsMenu&&) = delete;
    SettingsMenu& operator=(SettingsMenu&&) = delete;
    ~SettingsMenu() = default;

    /// All but the command that quits, which each menu ends with by itself.
    [[nodiscard]] const Observed<std::vector<MenuEntry>>& entries() const noexcept {
        return m_entries;
    }
    /// Whether the switch for starting at login is on.
    [[nodiscard]] const Observed<bool>& launchAtLogin() const noexcept { return m_isLaunched; }
    /// What went wrong when it was last switched, until it is switched with success.
    [[nodiscard]] const Observed<std::optional<QString>>& launchAtLoginError() const noexcept {
        return m_launchError;
    }

    /// What became of a choice.
    enum class Choice {
        done,
        /// It could not be done; the entries tell why.
        failed,
    };

    /// Does what the entry of this id is for; nothing for any other id.
    Choice choose(int id);
    /// Switches starting at login on or off. The switch moves at once, and back when that failed.
    void setLaunchAtLogin(bool enabled);
    /// To be called when a menu opens: puts the switch where the desktop has it. What went wrong
    /// before stays to be read.
    void refresh();

private:
    void updateEntries();

    AppState& m_appState;
    LaunchAtLogin& m_launchAtLogin;
    Observed<bool> m_isLaunched;
    Observed<std::optional<QString>> m_launchError;
    Observed<std::vector<MenuEntry>> m_entries;
    // Last: they call back.
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
