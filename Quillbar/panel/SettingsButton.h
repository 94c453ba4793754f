// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/SettingsMenu.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Observed.h"

#include <functional>

namespace quillbar {

class PanelMenu;

/// The gear at the right end of the panel's header. A click opens the menu of settings below it;
/// with the focus, Space, Enter and the arrow down do so too. A click while the menu is open closes
/// it. The menu shows the settings as they are when it opens. If a choice fails, the menu opens
/// again, because it shows the reason. For screen readers it is a button with a menu.
///
/// The menu also copies the watchlist to the clipboard, as a text that the search for coins reads
/// back. The status item's menu does not: the desktop shows that one, and Wayland lets only the
/// program that has the focus set the clipboard.
class SettingsButton final : public GlyphButton {
public:
    /// The settings and the watchlist outlive the button. `quit` ends the application; it may
    /// destroy the button only later, from the event loop.
    SettingsButton(SettingsMenu& settings,
                   const Observed<Watchlist>& watchlist,
                   std::function<void()> quit,
                   QWidget* parent = nullptr);

    /// Called when the user chooses the page of preferences. `reason` is by what the button had the
    /// focus, as `focusReason` tells.
    std::function<void(Qt::FocusReason reason)> onPreferences;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void openMenu();
    void choose(int id);
    void copyWatchlist();

    SettingsMenu& m_settings;
    const Observed<Watchlist>& m_watchlist;
    std::function<void()> m_quit;
    PanelMenu* m_menu;
    // By what the button had the focus when the menu opened. An open menu may take the focus.
    Qt::FocusReason m_reason = Qt::OtherFocusReason;
};

}  // namespace quillbar
