// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/Desktop.h"

#include <QMap>
#include <QString>
#include <QVariantMap>

namespace quillbar {

/// The menu of the single item in the status area, as a bar reads it and chooses from it.
class ItemMenu final {
public:
    /// The desktop outlives the menu.
    explicit ItemMenu(const Desktop& desktop)
        : m_desktop(desktop) {}

    /// Whether an entry with this text is there and marked.
    [[nodiscard]] bool isOn(const QString& text) const;
    /// Clicks the entry with this text. Fails the test when there is none.
    void choose(const QString& text) const;

private:
    [[nodiscard]] QString service() const;
    /// What is known of each entry, by its number.
    [[nodiscard]] QMap<int, QVariantMap> entries() const;

    const Desktop& m_desktop;
};

}  // namespace quillbar
