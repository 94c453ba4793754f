// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/TooltipPause.h"

#include <utility>

namespace quillbar {

TooltipPause::TooltipPause(Executor& executor, Sleeper sleeper, std::function<void()> onChange)
    : m_sleeper(std::move(sleeper))
    , m_onChange(std::move(onChange))
    , m_scope(executor) {}

void TooltipPause::clicked() {
    start(m_click, kAfterClick);
}

void TooltipPause::hostMenuOpened() {
    start(m_hostMenu, kLongestMenu);
}

void TooltipPause::hostMenuClosed() {
    clicked();
    m_hostMenu.task.cancel();
    m_hostMenu.isRunning = false;
}

void TooltipPause::setOpen(bool& what, bool isOpen) {
    if (isOpen == what) {
        return;
    }
    // The panel or the menu may have been closed by a click on the item.
    clicked();
    what = isOpen;
}

void TooltipPause::start(Wait& wait, Seconds span) {
    const bool wasPaused = isPaused();
    wait.isRunning = true;
    wait.task.cancel();
    wait.task = m_scope.spawn(endAfter(wait, span));
    if (!wasPaused) {
        m_onChange();
    }
}

Task<void> TooltipPause::endAfter(Wait& wait, Seconds span) {
    co_await m_sleeper(span);
    wait.isRunning = false;
    if (!isPaused()) {
        m_onChange();
    }
}

}  // namespace quillbar
