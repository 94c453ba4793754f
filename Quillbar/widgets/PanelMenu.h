// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace quillbar {

/// A menu that looks like the panel, whatever the desktop's style is. It has the theme of its
/// parent, and is drawn on a `LiftedSurface`. Texts that are too wide are broken into lines.
/// Entries that were made by `fillMenu` are drawn by their kind. The keyboard skips headers,
/// notices and disabled entries.
class PanelMenu final : public QMenu {
public:
    /// The parent is not null.
    explicit PanelMenu(QWidget* parent);

    /// Draws the text of an entry that removes something in the colour of falling prices, while it
    /// can be chosen.
    static void setDestructive(QAction& action);

    /// Opens the menu below `button`, or above it if there is no room. Its right edge is on that of
    /// the button's window. Returns at once.
    void openBelow(const QWidget& button);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void hideEvent(QHideEvent* event) override;
};

}  // namespace quillbar
