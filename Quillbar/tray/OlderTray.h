// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/LabelPicture.h"

#include <QMenu>
#include <QObject>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>
#include <optional>

namespace quillbar {

/// The status item in a tray of the X Window System's older protocol, which embeds windows. Shows a
/// square picture. Its menu is the given one, drawn by Qt.
class OlderTray final : public QObject {
    Q_OBJECT

public:
    /// Called on the main thread for what the user does. All are set.
    struct Handlers final {
        std::function<void()> activate;
        std::function<void()> secondaryActivate;
        /// The wheel: 1 for towards the user, otherwise -1. Once or many times for one turn.
        std::function<void(int places)> scroll;
    };

    /// `menu` outlives this object.
    OlderTray(QMenu& menu, Handlers handlers);

    /// Draws the picture, unless it is shown already. The tooltip is plain text.
    void show(const LabelPicture& picture, const QString& tooltip);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handle(QSystemTrayIcon::ActivationReason reason);

    Handlers m_handlers;
    std::optional<LabelPicture> m_picture;
    QSystemTrayIcon* m_icon;
};

}  // namespace quillbar
