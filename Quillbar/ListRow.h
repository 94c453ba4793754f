// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/TableRow.h"

#include <cstddef>
#include <string>

namespace quillbar {

/// A row of a `RowList`. The list keeps about as many as can be seen and has each show many items
/// in its time.
///
/// A click gives it the focus, unless it has Qt::NoFocus for its policy; the list's keys do in any
/// case.
class ListRow : public TableRow {
public:
    explicit ListRow(QWidget* parent = nullptr)
        : TableRow(parent) {
        setFocusPolicy(Qt::ClickFocus);
    }

    /// Shows the item of this id, which stands at `index`, from zero, in the list. Called whenever
    /// any of it may have changed: repaint only what has.
    virtual void present(const std::string& id, std::size_t index) = 0;
};

}  // namespace quillbar
