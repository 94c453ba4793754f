// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/SwitchingLabelSource.h"

#include <utility>

namespace quillbar {

SwitchingLabelSource::SwitchingLabelSource(MakeOwn makeOwn)
    : m_makeOwn(std::move(makeOwn)) {}

void SwitchingLabelSource::applicationTells(std::optional<LabelReport> report) {
    if (!report) {
        if (m_own) {
            return;
        }
        connectOnItsOwn();
    } else if (takesOver(*report)) {
        m_application = std::move(report);
        m_own.reset();
        m_bridge.reset();
    } else {
        return;
    }
    tell();
}

bool SwitchingLabelSource::takesOver(const LabelReport& report) const {
    return !m_own || !snapshot().quote.showsPrice() || isSettled(report.label, report.isStarted);
}

void SwitchingLabelSource::connectOnItsOwn() {
    if (m_application && m_application->label.quote.showsPrice()) {
        m_bridge = m_application->label;
        m_bridge->quote.connection = ConnectionState::connecting;
        m_bridge->quote.freshness = PriceFreshness::stale;
    }
    m_application.reset();
    m_own = m_makeOwn();
    m_own->observe([this] { ownChanged(); });
}

void SwitchingLabelSource::ownChanged() {
    if (m_bridge && isSettled(m_own->snapshot(), m_own->isStarted())) {
        m_bridge.reset();
    }
    tell();
}

void SwitchingLabelSource::tell() const {
    if (m_onChange) {
        m_onChange();
    }
}

LabelSnapshot SwitchingLabelSource::snapshot() const {
    if (m_application) {
        return m_application->label;
    }
    if (m_bridge) {
        return *m_bridge;
    }
    return m_own ? m_own->snapshot() : LabelSnapshot();
}

bool SwitchingLabelSource::isStarted() const {
    return m_application ? m_application->isStarted : m_own && m_own->isStarted();
}

void SwitchingLabelSource::observe(std::function<void()> onChange) {
    m_onChange = std::move(onChange);
}

}  // namespace quillbar
