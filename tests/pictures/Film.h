// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/Screen.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace quillbar {

/// What the words beside a film are written in.
enum class Language { english, chinese };

/// A part of a film: what is done in it, and what that is good for, in each language. A line feed
/// begins a line.
struct Chapter final {
    struct Words final {
        QString title;
        QString text;
    };
    Words english;
    Words chinese;
};

/// Records a part of the screen, with a pointer that goes straight to where it is sent. The
/// chapters are listed over the left half, which has to stay empty. Needs a QGuiApplication.
class Film final {
public:
    /// The screen outlives the film. The area is in pixels of the screen.
    Film(Screen& screen, QRect area, std::vector<Chapter> chapters);

    /// Goes on to the next chapter; the first has begun.
    void nextChapter();
    /// Records what changes by itself, for as long.
    void watch(std::chrono::milliseconds duration);
    /// Shows this part of the screen also enlarged, below the words, while it is watched for as
    /// long.
    void magnify(QRect part, std::chrono::milliseconds duration);
    /// Takes the pointer to this place of the screen.
    void movePointer(QPoint to);
    /// Shows that a button is pressed; presses none.
    void showPress();

    /// Makes the folder anew, and writes into it the pictures and `frames`: the arguments with
    /// which img2webp, started there, makes of them one moving picture, `moving.webp`. False when
    /// that cannot be written.
    [[nodiscard]] bool save(const QString& folder, Language language) const;

private:
    struct Frame final {
        QImage picture;
        QPoint pointer;
        std::size_t chapter = 0;
        std::chrono::milliseconds duration{};
        bool isPressed = false;
        /// What is enlarged, within the picture.
        std::optional<QRect> magnified;

        [[nodiscard]] bool looksLike(const Frame& other) const;
    };

    void take(std::chrono::milliseconds duration, bool isPressed = false);
    [[nodiscard]] QImage drawn(const Frame& frame, Language language) const;

    Screen& m_screen;
    QRect m_area;
    std::vector<Chapter> m_chapters;
    std::vector<Frame> m_frames;
    std::size_t m_chapter = 0;
    QPoint m_pointer;
    std::optional<QRect> m_magnified;
};

}  // namespace quillbar
