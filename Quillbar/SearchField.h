// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace quillbar {

/// A line to type into, over a rounded rectangle in the colours of the theme; the outline shows
/// that it has the focus.
class SearchField final : public QLineEdit {
public:
    static constexpr double kCornerRadius = 6;
    static constexpr int kHorizontalPadding = 8;
    static constexpr int kVerticalPadding = 6;
    /// The most characters that it takes.
    static constexpr int kMaximumLength = 32;

    explicit SearchField(const QString& placeholder, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void applyTheme();
};

}  // namespace quillbar
