// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/catalog/CoinNames.h"

#include <QLineEdit>
#include <QString>

namespace quillbar {

/// A field for one line of text, in a rounded rectangle in the colours of the theme. Its outline
/// shows whether it has the focus.
///
/// While an input method composes text, Enter commits that text, Escape discards it, and the arrow
/// down does nothing. None of them does anything else then.
class SearchField final : public QLineEdit {
public:
    static constexpr double kCornerRadius = 6;
    static constexpr int kHorizontalPadding = 8;
    static constexpr int kVerticalPadding = 6;
    /// The greatest number of characters: one more than the bytes that are read of a list, so that
    /// the reader sees when a list was cut here.
    static constexpr int kMaximumLength = int{CoinNames::kMaximumBytes} + 1;

    explicit SearchField(const QString& placeholder, QWidget* parent = nullptr);

    /// Whether an input method is composing text that is not in the line yet.
    [[nodiscard]] bool isComposing() const noexcept { return !m_composed.isEmpty(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Ending { commits, givesUp };

    void fit();
    void applyTheme();
    void endComposing(Ending ending);

    // The text that the input method is composing.
    QString m_composed;
};

}  // namespace quillbar
