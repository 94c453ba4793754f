// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/ListRow.h"
#include "Quillbar/list/RowDetails.h"

#include <QPoint>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <string>

namespace quillbar {

/// What a list asks about rows that the user drags. All may be empty in a list whose rows stay
/// where they are.
struct RowDragContent final {
    /// Whether the row of an id can be moved.
    std::function<bool(const std::string& id)> canMove = nullptr;
    /// The user has put the row of an id in front of the one at `before`, counted with the row
    /// still in its place; at the end when `before` is the number of rows. Never where it is.
    /// Called within the event that ends the drag: an order that is set by then is seen next.
    std::function<void(const std::string& id, std::size_t before)> moved = nullptr;
    /// The user pulls the row of an id that cannot be moved, the pointer being there on the
    /// screen, and later lets it go. Called for both, so that what it shows outlives the release,
    /// of which the row is not told.
    std::function<void(const std::string& id, const QPoint& position)> refused = nullptr;
};

/// What a `RowList` asks of the view that shows it.
struct RowListContent final {
    /// Makes a row that shows nothing yet.
    std::function<ListRow*(QWidget* parent)> makeRow;
    /// Makes what unfolds under the row of an id. Empty for a list whose rows never unfold.
    RowDetails::Factory makeDetail = nullptr;
    /// The user chose a row by the keyboard.
    std::function<void(const std::string& id)> activate;
    /// The user asked for a row's menu, to open at that place on the screen. Empty for rows
    /// without.
    std::function<void(const std::string& id, const QPoint& position)> openMenu = nullptr;
    /// The user pressed Enter with Alt, for what belongs to a row besides its details. Empty for
    /// rows without.
    std::function<void(const std::string& id)> openForm = nullptr;
    /// All details are fully open or gone. May be empty.
    std::function<void()> settled = nullptr;
    /// For a list whose rows the user puts in order. Every other row of such a list is tinted.
    RowDragContent drag = {};

    [[nodiscard]] bool canMove(const std::string& id) const {
        return drag.canMove && drag.canMove(id);
    }
};

}  // namespace quillbar
