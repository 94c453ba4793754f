// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowLayout.h"
#include "Quillbar/list/RowStage.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

class QMouseEvent;
class QWidget;

namespace quillbar {

/// Drags a row of a list to another place.
///
/// A row that is pressed and pulled is lifted: it follows the pointer up and down, above the
/// others, which leave a gap where it would be dropped. Near the edges of the view the list
/// scrolls. Escape and another mouse button put the row back. So does the end of the drag's
/// conditions: the row is removed, the list is hidden, or rows can no longer be moved. While a row
/// is lifted, keys do nothing, and no menu opens until the button is released.
class RowDrag final : public QObject {
public:
    /// How near an edge of the view the pointer makes the list scroll, in points.
    static constexpr int kScrollZone = 24;
    /// The greatest distance that the list scrolls in one step, and the time between two steps.
    static constexpr int kGreatestStep = 40;
    static constexpr std::chrono::milliseconds kScrollInterval{16};

    /// The stage outlives the drag.
    explicit RowDrag(RowStage& stage);

    /// The row that is lifted; absent while none is.
    [[nodiscard]] const std::optional<std::string>& lifted() const noexcept { return m_lifted; }
    /// The upper edge of the lifted row, in the view.
    [[nodiscard]] int liftedTop() const;
    /// Whether the button is held, from its press on a row that can be moved until its release.
    [[nodiscard]] bool isHeld() const noexcept { return m_state != State::idle; }

    /// The place among the other rows, laid out as `others`, for a row whose upper edge is at
    /// `line`. Pure.
    [[nodiscard]] static std::size_t placeAmong(const RowLayout& others, int line);

    /// Handles an event of the row of this id; events that are not about the mouse are ignored.
    /// Returns whether the row must not get the event.
    bool follow(const std::string& id, const QEvent& event);
    /// The list has other ids, or another order.
    void followIds();
    /// Moves the gap to where the lifted row would be dropped, the list having scrolled or changed.
    void findPlace();
    /// Shows the lifted row above the others. Its geometry is set already.
    void raise();
    /// Puts the lifted row back and lets go of the pointer and the keys.
    void cancel();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// `pressed`: the pointer has not moved far enough yet. `spent`: the row was put back, but the
    /// button is still held.
    enum class State { idle, pressed, dragging, spent };
    /// Whether a row that cannot be moved is pressed, and whether the user has been told so.
    enum class Refusal { none, pressed, told };

    bool press(const std::string& id, const QMouseEvent& event);
    bool pull(const std::string& id, const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void lift();
    void drop();
    void putBack(State next);
    void putDown(State next);
    void refuse();
    [[nodiscard]] int pointerLine() const;
    [[nodiscard]] int scrollStep() const;

    RowStage& m_stage;
    State m_state = State::idle;
    Refusal m_refusal = Refusal::none;
    std::string m_pressed;
    std::optional<std::string> m_lifted;
    // In coordinates of the screen, because the list may move under the pointer.
    QPoint m_pressedAt;
    QPoint m_pointer;
    // From the upper edge of the row to the pointer that holds it.
    int m_grip = 0;
    QTimer m_scrolling;
    // What lies under the lifted row; a child of the list.
    QWidget* m_backdrop = nullptr;
};

}  // namespace quillbar
