// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

namespace quillbar {

/// A line that stands in place of a table, such as that the list is empty: 10.5 points, in the
/// middle of the width, in secondaryText.
class CenteredText final : public QWidget {
public:
    /// `padding` is the space on all four sides, in points.
    CenteredText(const QString& text, int padding, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    int m_padding;
};

}  // namespace quillbar
