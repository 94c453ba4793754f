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

/// What stands in the place of a board's rows while there are none: in its middle a spinner, or
/// that loading failed with a button to try again, or that there is nothing to show. It keeps the
/// focus of the button, and gives it back when loading has failed again.
class BoardPlaceholder final : public QWidget {
public:
    enum class Content : std::uint8_t { loading, failed, empty };

    /// Between the lines of a content, in points.
    static constexpr int kSpacing = 6;

    /// It shows that it is loading. `height` is what it asks a layout for, in points; it never gets
    /// more.
    explicit BoardPlaceholder(int height, QWidget* parent = nullptr);

    void setContent(Content content);
    [[nodiscard]] Content content() const noexcept { return m_content; }

    /// Whether the focus of its window is in it.
    [[nodiscard]] bool holdsFocus() const;

    /// The user wants to try again. Not empty when that can be.
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
