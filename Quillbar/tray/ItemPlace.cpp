// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ItemPlace.h"

#include "Quillbar/tray/ClickAnchor.h"

namespace quillbar {

void ItemPlace::setHost(TrayHost::ClickPosition host) {
    m_host = host;
    m_lastInBar.reset();
}

std::optional<QPoint> ItemPlace::ofClick(QPoint reported) {
    const QPoint position = m_environment.logicalPosition(reported);
    const auto anchor = clickAnchor(position,
                                    m_environment.isInBar(position),
                                    m_environment.pointer(),
                                    m_environment.pointerPosition,
                                    m_host);
    if (anchor && m_environment.isInBar(*anchor)) {
        m_lastInBar = anchor;
    }
    return anchor;
}

std::optional<QPoint> ItemPlace::ofUnreportedClick() const {
    return m_environment.pointerPosition == PointerPosition::current
               ? std::optional(m_environment.pointer())
               : m_lastInBar;
}

}  // namespace quillbar
