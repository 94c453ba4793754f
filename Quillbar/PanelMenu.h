// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace quillbar {

/// A menu that looks like the panel it opens over, whatever the desktop's style: it draws in the
/// theme of the widget that is its parent, a shade lighter or darker than the panel, so that it stands
/// out. Texts that are too wide are broken into lines. Entries that were made by `fillMenu` are drawn
/// by their kind; the keyboard passes over headers, notices and what is disabled.
class PanelMenu final : public QMenu {
public:
    /// The parent is not null.
    explicit PanelMenu(QWidget* parent);

    /// Opens the menu below `button`, with their right edges in line; above it where there is no
    /// room. Returns at once.
    void openBelow(const QWidget& button);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void hideEvent(QHideEvent* event) override;
};

}  // namespace quillbar
