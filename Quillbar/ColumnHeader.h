// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

class QHBoxLayout;

namespace quillbar {

/// The titles over a table's columns: 20 points high, spaced as the rows are, with a separator
/// along the bottom edge.
class ColumnHeader final : public QWidget {
public:
    static constexpr int kHeight = 20;

    explicit ColumnHeader(QWidget* parent = nullptr);

    /// Adds a title that takes the width that the others leave, at its left.
    void addFlexibleTitle(const QString& title);
    /// Adds a title at the right of a column of that width.
    void addTitle(const QString& title, int width);
    /// Adds a column of the caller's. The header owns it.
    void addColumn(QWidget* column);
    /// Adds a column without a title.
    void addGap(int width);

    /// What every title is written in.
    [[nodiscard]] static QFont titleFont();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_layout;
};

}  // namespace quillbar
