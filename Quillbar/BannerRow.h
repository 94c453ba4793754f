// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

namespace quillbar {

/// A row that warns: 20 points high, a text at its left over a tint of the warning colour that
/// spans the whole width.
class BannerRow : public QWidget {
public:
    static constexpr int kHeight = 20;
    /// What is left free at either edge.
    static constexpr int kPadding = 12;

    explicit BannerRow(QWidget* parent = nullptr);

    /// What it says, which is its accessible name too. Repaints only for another text.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const noexcept { return m_text; }

protected:
    /// Keeps so much free before the text, in points.
    void setTextIndent(int indent);

    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    int m_indent = 0;
};

}  // namespace quillbar
