// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/ListRow.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

class QObject;

namespace quillbar {

/// The widgets of the rows that have one. A widget whose row needs none any longer waits, hidden,
/// and shows another row when one does. They are children of the list, owned by Qt.
class RowWidgets final {
public:
    /// A row that has a widget.
    struct Slot {
        std::string id;
        std::size_t index;
        ListRow* widget;
    };

    /// `make` makes a row that shows nothing yet.
    explicit RowWidgets(std::function<ListRow*()> make)
        : m_make(std::move(make)) {}

    [[nodiscard]] const std::vector<Slot>& all() const noexcept { return m_slots; }
    /// Null when there is none. Valid until the next `assign`.
    [[nodiscard]] const Slot* find(const QObject* widget) const;
    [[nodiscard]] const Slot* find(const std::string& id) const;

    /// Gives the rows of these indexes a widget, and takes it from every other row. Calls `present`
    /// of each widget that got another row, or whose row got another index.
    void assign(const std::vector<std::size_t>& indexes, const std::vector<std::string>& ids);
    /// Hides the widgets that wait.
    void hideSpare() const;
    [[nodiscard]] bool isAnySpareShown() const;
    /// Shows that row, and no other, as the one under the pointer. Null for no row.
    void hoverOnly(const QObject* row) const;

private:
    std::function<ListRow*()> m_make;
    std::vector<Slot> m_slots;
    std::vector<ListRow*> m_spare;
};

}  // namespace quillbar
