// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/PinAnnouncement.h"

#include <utility>

namespace quillbar {

PinAnnouncement::PinAnnouncement(Executor& executor, Sleeper sleeper, std::function<void()> onEnd)
    : m_sleeper(std::move(sleeper))
    , m_onEnd(std::move(onEnd))
    , m_scope(executor) {}

void PinAnnouncement::pinnedIs(const QString& symbol) {
    if (m_symbol == symbol) {
        return;
    }
    m_end.cancel();
    m_isOn = m_symbol && !symbol.isEmpty();
    m_symbol = symbol;
    if (m_isOn) {
        m_end = m_scope.spawn(endLater());
    }
}

Task<void> PinAnnouncement::endLater() {
    co_await m_sleeper(kSpan);
    m_isOn = false;
    m_onEnd();
}

}  // namespace quillbar
