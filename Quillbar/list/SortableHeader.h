// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/PlainButton.h"

#include <QString>

#include <optional>

namespace quillbar {

/// Which way the arrow of a sorted column points.
enum class SortDirection { descending, ascending };

/// The title of a column that can be sorted by: a button as wide as the column, with a slot for the
/// arrow after the title. The arrow fills its slot, so the header around draws the ring.
class SortableHeader final : public PlainButton {
public:
    /// The width of the arrow's slot.
    static constexpr int kSortIndicatorWidth = 8;

    /// The parent is a `ColumnHeader`.
    SortableHeader(const QString& title, int width, QWidget* parent = nullptr);

    /// Shows an arrow in that direction, or none. The accessible name says so too.
    void setDirection(std::optional<SortDirection> direction);
    [[nodiscard]] std::optional<SortDirection> direction() const noexcept { return m_direction; }

protected:
    void drawContent(QPainter& painter) override;

private:
    std::optional<SortDirection> m_direction;
};

}  // namespace quillbar
