// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowDetails.h"
#include "Quillbar/list/RowListContent.h"
#include "Quillbar/list/RowPlaces.h"
#include "Quillbar/list/RowScroll.h"
#include "Quillbar/list/RowWidgets.h"
#include "Quillbar/list/TableRow.h"

#include <QWidget>

#include <functional>

namespace quillbar {

/// The rows of a list as they stand in its view: what the list, its focus and its drag work on.
struct RowStage final {
    /// The list's widget.
    QWidget& view;
    RowListContent content;
    /// Brings the widgets to the rows that can be seen now. Called after rows got other places and
    /// after the list was scrolled.
    std::function<void()> update;
    RowWidgets widgets;
    RowDetails details;
    RowPlaces places{TableRow::kHeight};
    RowScroll scroll{view, places, update};

    /// Gives all rows and all details these heights, in points. What is at the upper edge stays
    /// there.
    void setHeights(int rowHeight, int detailHeight) {
        const int before = places.layout().rowHeight();
        if (rowHeight == before && detailHeight == details.fullHeight()) {
            return;
        }
        const int offset = scroll.offset() * rowHeight / before;
        places.setRowHeight(rowHeight);
        details.setFullHeight(detailHeight);
        scroll.scrollTo(offset);
    }

    /// The widget of this window, active or not, that has the focus. Null for none.
    [[nodiscard]] QWidget* focused() const { return view.window()->focusWidget(); }
    [[nodiscard]] bool isRowFocused() const { return widgets.find(focused()) != nullptr; }
};

}  // namespace quillbar
