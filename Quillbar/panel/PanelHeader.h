// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"

#include <QPoint>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace quillbar {

class GlyphButton;
class SettingsMenu;

/// The top of the panel: its name, the plus and the gear. If the panel is a window by itself,
/// dragging the header moves the window, and a mark at its end closes it.
class PanelHeader final : public QWidget {
public:
    /// The environment and the settings outlive the header. `quit` ends the application; it must
    /// not destroy the header before it returns.
    PanelHeader(const ViewEnvironment& environment,
                SettingsMenu& settings,
                std::function<void()> quit,
                QWidget* parent);

    /// As `AddCoinButton::onAdded`.
    std::function<void(const std::string& symbol, Qt::FocusReason reason)> onCoinAdded;
    /// Called when the mark that closes the panel is clicked. Set it before `setStandalone`.
    std::function<void()> onClose;

    /// Whether the panel is a window by itself. The default is that it is not.
    void setStandalone(bool isStandalone);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    GlyphButton* m_close;
    bool m_isStandalone = false;
    // From the window's corner to the pointer that drags it. Used where no window manager moves the
    // window.
    std::optional<QPoint> m_grip;
};

}  // namespace quillbar
