// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

namespace quillbar {

/// Keeps the rows of a list where they are on the screen while the pointer is over them, and for a
/// moment after that, although lines above the list come and go: a user who is about to click a row
/// clicks that row. Once the pointer has gone, the rows go back to their place in the list.
///
/// The rows are moved back by as much as the upper edge of the list has moved. There are two
/// exceptions. When the whole window is moved, its rows go with it. When the window grows upwards
/// because the list itself wants to be higher, the rows move too, as otherwise they would leave a
/// gap above them.
///
/// Used on the main thread alone.
class ScreenHold final {
public:
    /// How long the rows stay after the pointer has left.
    static constexpr std::chrono::milliseconds kAfterLeaving{300};

    /// The list outlives the hold; the height that it wants is that of its size hint. `follow`
    /// calls `moved` with the distance in points by which the list has moved, downwards positive.
    /// `ended` is called when the rows need not stay any longer, with the sum of these distances,
    /// which may be zero.
    ScreenHold(QWidget& list,
               std::function<void(int distance)> moved,
               std::function<void(int sum)> ended);

    /// Call it when the list is shown and when the pointer enters it. From here on the list is
    /// followed.
    void begin();
    /// Call it when the list, a widget above it or their window has moved or has another size.
    void follow();
    void pointerLeft();
    /// Call it when the list is hidden.
    void end();

    /// Whether the rows are to stay where they are on the screen. A press that began in the list
    /// counts as a pointer over it, wherever that goes.
    [[nodiscard]] bool isHeld() const;
    /// The sum of the distances by which the list has moved since the rows are held, in points.
    [[nodiscard]] int sum() const noexcept { return m_sum; }
    /// Sets what is left of the sum after the user has scrolled.
    void setSum(int sum) noexcept { m_sum = sum; }

private:
    /// Where the list is, as far as it matters.
    struct Place {
        int list;
        int window;
        int windowHeight;
    };

    [[nodiscard]] Place place() const;

    QWidget& m_list;
    std::function<void(int distance)> m_moved;
    std::function<void(int sum)> m_ended;
    Place m_place{};
    // The height that the list wanted when the window got its height.
    int m_wanted = 0;
    int m_sum = 0;
    QTimer m_afterLeaving;
};

}  // namespace quillbar
