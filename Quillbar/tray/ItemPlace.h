// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/StatusItemEnvironment.h"
#include "Quillbar/tray/TrayHost.h"

#include <QPoint>

#include <optional>

namespace quillbar {

/// Where on the screen the status item is, as far as clicks on it show; in logical pixels. For the
/// main thread.
class ItemPlace final {
public:
    /// The environment outlives this.
    explicit ItemPlace(const StatusItemEnvironment& environment)
        : m_environment(environment) {}

    /// Call it when another host has the item: earlier clicks say nothing about its place then.
    void setHost(TrayHost::ClickPosition host);

    /// The anchor of a click for which the host has reported this position, which is remembered.
    /// Absent when the place of the item is unknown.
    [[nodiscard]] std::optional<QPoint> ofClick(QPoint reported);

    /// The anchor of a click without a reported position: that of the pointer, or else of the last
    /// click in a bar.
    [[nodiscard]] std::optional<QPoint> ofUnreportedClick() const;

private:
    const StatusItemEnvironment& m_environment;
    TrayHost::ClickPosition m_host = TrayHost::ClickPosition::onScreen;
    std::optional<QPoint> m_lastInBar;
};

}  // namespace quillbar
