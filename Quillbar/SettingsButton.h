// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/GlyphButton.h"
#include "Quillbar/SettingsMenu.h"

#include <functional>

namespace quillbar {

class PanelMenu;

/// The gear at the right end of the panel's header: it opens the menu of settings below itself, by a
/// click or, with the focus, by Space, Enter or the arrow down; a click while that is open closes it.
/// The menu shows the settings as they stand when it opens. A choice that failed opens it again, for
/// it is the menu that tells why. A screen reader hears of a button with a menu.
class SettingsButton final : public GlyphButton {
public:
    /// The settings outlive the button. `quit` ends the application; it may destroy the button only
    /// later, from the event loop.
    SettingsButton(SettingsMenu& settings, std::function<void()> quit, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void openMenu();
    void choose(int id);

    SettingsMenu& m_settings;
    std::function<void()> m_quit;
    PanelMenu* m_menu;
};

}  // namespace quillbar
