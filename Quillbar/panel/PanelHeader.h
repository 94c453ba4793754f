// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"

#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace quillbar {

class AddCoinButton;
class GlyphButton;
class SettingsButton;
class SettingsMenu;
class ThemedLabel;

/// The top of the panel: its name, the plus and the gear; while a page covers the rest of the
/// panel, an arrow that goes back and the page's name. If the panel is a window by itself, dragging
/// the header moves the window, and a mark at its end closes it.
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
    /// As `SettingsButton::onPreferences`.
    std::function<void(Qt::FocusReason reason)> onPreferences;
    /// Called when the arrow that goes back is clicked.
    std::function<void()> onBack;
    /// Called when the mark that closes the panel is clicked. Set it before `setStandalone`.
    std::function<void()> onClose;

    /// Whether the panel is a window by itself. The default is that it is not.
    void setStandalone(bool isStandalone);
    /// Shows the name of a page; an empty one ends that.
    void setPage(const QString& title);

    /// The gear, from which pages are opened.
    [[nodiscard]] QWidget& settingsButton() const noexcept;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void fit();

    // Children, owned by Qt.
    GlyphButton* m_back;
    ThemedLabel* m_title;
    AddCoinButton* m_plus;
    SettingsButton* m_gear;
    GlyphButton* m_close;
    bool m_isStandalone = false;
    // From the window's corner to the pointer that drags it. Used where no window manager moves the
    // window.
    std::optional<QPoint> m_grip;
};

}  // namespace quillbar
