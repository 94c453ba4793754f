// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/ToggleGuard.h"

#include <utility>

namespace quillbar {

ToggleGuard::ToggleGuard(Elapsed elapsed)
    : m_elapsed(std::move(elapsed)) {}

ToggleGuard::Action ToggleGuard::clicked() const {
    return hasJustOpened() ? Action::nothing : commanded();
}

ToggleGuard::Action ToggleGuard::commanded() const {
    if (m_isShown) {
        return Action::close;
    }
    return m_isPressHeld || isRecent(m_hiddenAt) ? Action::nothing : Action::open;
}

bool ToggleGuard::hasJustOpened() const {
    return m_isShown && isRecent(m_shownAt);
}

bool ToggleGuard::closesAtPress() const {
    return m_isShown && !isRecent(m_shownAt);
}

void ToggleGuard::shown() {
    m_isShown = true;
    m_isPressHeld = false;
    m_shownAt = m_elapsed();
}

void ToggleGuard::hidden(HiddenBy cause) {
    m_isShown = false;
    m_hiddenAt = cause == HiddenBy::pointer ? std::optional(m_elapsed()) : std::nullopt;
}

void ToggleGuard::released() {
    if (m_isPressHeld) {
        m_isPressHeld = false;
        m_hiddenAt = m_elapsed();
    }
}

bool ToggleGuard::isRecent(const std::optional<std::chrono::milliseconds>& moment) const {
    return moment && m_elapsed() - *moment < kGrace;
}

}  // namespace quillbar
