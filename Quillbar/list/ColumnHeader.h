// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

#include <vector>

class QHBoxLayout;

namespace quillbar {

class SortableHeader;

/// The titles over a table's columns: 20 points high, spaced as the rows are, with a separator
/// along the bottom edge. All widths and heights are those at a text size of 100 %.
class ColumnHeader final : public QWidget {
public:
    static constexpr int kHeight = 20;

    explicit ColumnHeader(QWidget* parent = nullptr);

    /// Adds a title that takes the width that the others leave, at its left.
    void addFlexibleTitle(const QString& title);
    /// Adds a title at the right of a column of that width.
    void addTitle(const QString& title, int width);
    /// Adds a title that can be sorted by, at the right of a column of that width. The header owns
    /// it.
    SortableHeader* addSortable(const QString& title, int width);
    /// Adds a column without a title.
    void addGap(int width);

    /// What every title is written in, at 100 %.
    [[nodiscard]] static QFont titleFont();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_layout;
    // Children of the header.
    std::vector<SortableHeader*> m_sortable;
};

}  // namespace quillbar
