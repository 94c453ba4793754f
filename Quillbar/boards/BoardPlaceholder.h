// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace quillbar {

class CenteredText;
class Spinner;
class TextButton;

/// What a board shows in place of rows while it has none: in the middle a spinner, or a message
/// that loading failed and a button to try again, or a message that there is nothing to show. If
/// the button had the focus when it was hidden, it gets it back when loading fails again.
class BoardPlaceholder final : public QWidget {
public:
    enum class Content : std::uint8_t { loading, failed, empty };

    /// The space between two lines of the content, in points.
    static constexpr int kSpacing = 6;

    /// At first it shows the spinner. `height`, in points, is what it asks its layout for, and its
    /// greatest height.
    explicit BoardPlaceholder(int height, QWidget* parent = nullptr);

    void setContent(Content content);
    [[nodiscard]] Content content() const noexcept { return m_content; }

    /// Whether one of its widgets has the focus of the window.
    [[nodiscard]] bool holdsFocus() const;

    /// Called when the user wants to try again. Set it before the button can be clicked.
    std::function<void()> onRetry;

    [[nodiscard]] QSize sizeHint() const override;

private:
    void showContent();

    int m_height;
    Content m_content = Content::loading;
    // Children, owned by Qt.
    Spinner* m_spinner;
    CenteredText* m_failure;
    TextButton* m_retry;
    CenteredText* m_empty;
};

}  // namespace quillbar
