// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

namespace quillbar {

/// A row that warns: 20 points high, a text at its left over a tint of the warning colour that
/// spans the whole width. Screen readers read it aloud when it appears.
class BannerRow : public QWidget {
public:
    static constexpr int kHeight = 20;
    /// The space that is left free at both edges.
    static constexpr int kPadding = 12;

    explicit BannerRow(QWidget* parent = nullptr);

    /// The text, which is its accessible name too. Repaints only for another text.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const noexcept { return m_text; }

protected:
    /// Leaves this much space before the text, in points.
    void setTextIndent(int indent);

    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    int m_indent = 0;
};

}  // namespace quillbar
