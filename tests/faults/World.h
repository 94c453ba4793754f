// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/panel/PanelView.h"
#include "Quillbar/panel/SettingsMenu.h"
#include "Quillbar/services/AppServices.h"
#include "Quillbar/tray/LabelFace.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Worker.h"
#include "QuillbarCore/state/PreferencesState.h"
#include "simulator/Simulator.h"
#include "tests/faults/ProcessTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeLoginItem.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The application short of its item in the status area, with the production transports, timers and
/// limits, on three simulated exchanges whose markets move alike, second by second. What the item
/// would show is asked for instead. Time is the process's own.
class World final {
public:
    static constexpr std::size_t kHosts = 3;

    /// Nothing is started. The first world of a process has it trust the exchanges' authority.
    World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    World(World&&) = delete;
    World& operator=(World&&) = delete;
    ~World();

    [[nodiscard]] simulator::Simulator& host(std::size_t index) { return *m_hosts.at(index); }
    void onEachHost(const std::function<void(simulator::Simulator&)>& act);

    /// Starts the services and shows the panel, on the tab of last time.
    void start();
    /// Lets whole seconds pass, each with a step of every market.
    void pass(std::chrono::seconds span);
    /// The machine sleeps: the wall clock and the markets go on, but no timer does, and what was
    /// connected is dead afterwards.
    void sleepMachine(std::chrono::minutes span);
    /// What the system tells of a machine that woke up, or of a network that came back.
    void resume();

    // What the user does.

    void click(const char* accessibleName);
    void type(const char* text);
    /// Presses the button that offers it, or types the search's last letter once more.
    void tryAgain();

    // What the user sees.

    [[nodiscard]] LabelFace face() const;
    /// What the connection's banner says; empty while there is none.
    [[nodiscard]] std::string banner() const;
    /// The board: "rows", or what stands in their place, with its warning.
    [[nodiscard]] std::string board() const;
    /// The open chart, and what takes its place or goes with it.
    [[nodiscard]] std::string chart() const;
    /// What stands below the field of the search.
    [[nodiscard]] std::string search() const;

    /// Whether the label shows the present price of the first coin.
    [[nodiscard]] bool hasPresentPrice() const;
    /// Whether every coin of the list has its present price.
    [[nodiscard]] bool hasPresentPrices() const;

    [[nodiscard]] AppState& state() const { return m_services->appState(); }
    [[nodiscard]] const CapturedLog& log() const { return m_log; }
    void clearLog() { m_log.clear(); }

private:
    [[nodiscard]] bool isPresent(const std::string& symbol) const;
    void showPanel();

    CapturedLog m_log;
    TemporaryFolder m_folder;
    std::vector<std::unique_ptr<simulator::Simulator>> m_hosts;
    std::unique_ptr<Executor> m_executor;
    std::unique_ptr<Worker> m_worker;
    std::unique_ptr<AppServices> m_services;
    FakeLoginItem m_loginItem;
    LaunchAtLogin m_launchAtLogin{m_loginItem};
    Observed<ColorScheme> m_scheme{ColorScheme::light};
    std::unique_ptr<TaskScope> m_edits;
    std::optional<SettingsMenu> m_settings;
    PreferencesState m_preferences{PreferencesStore(m_folder.path())};
    std::optional<ViewEnvironment> m_environment;
    std::unique_ptr<PanelView> m_panel;
};

}  // namespace quillbar
