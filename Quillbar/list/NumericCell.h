// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ColorRole.h"

#include <QString>
#include <QWidget>

namespace quillbar {

/// A number at the right of a column, its digits in equal slots. A text that is wider than the
/// column is written smaller.
class NumericCell : public QWidget {
public:
    /// The column's width and the size of the font, in points at a text size of 100 %.
    NumericCell(int width, double size, QWidget* parent = nullptr);

    /// At 100 %.
    [[nodiscard]] double fontSize() const noexcept { return m_size; }

    /// Repaints only for another text.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const noexcept { return m_text; }

    /// Repaints only for another role. The default is secondaryText.
    void setColor(ColorRole role);
    [[nodiscard]] ColorRole color() const noexcept { return m_role; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_size;
    QString m_text;
    ColorRole m_role = &ThemeColors::Resolved::secondaryText;
};

}  // namespace quillbar
