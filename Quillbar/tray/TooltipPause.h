// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>

namespace quillbar {

/// Decides when the item has no tooltip: while the panel or a menu is open, and for a short time
/// after each click. The pointer is on the item then, and the tooltip would cover what the click
/// has opened. If several of these are true, the pause ends with the last one.
///
/// Main thread.
class TooltipPause final {
public:
    /// How long there is no tooltip after a click, and after the panel or a menu has closed.
    static constexpr Seconds kAfterClick{3};
    /// A menu counts as closed after this time, because not every host reports that its menu has
    /// closed.
    static constexpr Seconds kLongestMenu{60};

    /// `onChange` is called whenever a pause begins or ends. The executor outlives the pause.
    TooltipPause(Executor& executor, Sleeper sleeper, std::function<void()> onChange);

    [[nodiscard]] bool isPaused() const noexcept {
        return m_isPanelOpen || m_isOwnMenuOpen || m_hostMenu.isRunning || m_click.isRunning;
    }

    void clicked();
    /// The menu that the host draws.
    void hostMenuOpened();
    void hostMenuClosed();
    /// The menu that the application draws itself, whose closing is always known.
    void setOwnMenuOpen(bool isOpen) { setOpen(m_isOwnMenuOpen, isOpen); }
    void setPanelOpen(bool isOpen) { setOpen(m_isPanelOpen, isOpen); }

private:
    struct Wait final {
        bool isRunning = false;
        TaskScope::Handle task;
    };

    void setOpen(bool& what, bool isOpen);
    void start(Wait& wait, Seconds span);
    Task<void> endAfter(Wait& wait, Seconds span);

    Sleeper m_sleeper;
    std::function<void()> m_onChange;
    bool m_isPanelOpen = false;
    bool m_isOwnMenuOpen = false;
    Wait m_hostMenu;
    Wait m_click;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
