// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/RowLayout.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

class QMouseEvent;
class QWidget;

namespace quillbar {

class RowList;

/// Drags a row of a list to another place.
///
/// A row that is pressed and pulled is lifted: it follows the pointer up and down, above the
/// others, which leave a gap where it would be dropped. Near the edges of the view the list
/// scrolls. The row is put back by Escape or another button, and by whatever takes it, its list or
/// the choice of its place away. While a row is lifted no key gets through, and no menu until the
/// button is let go.
class RowDrag final : public QObject {
public:
    /// How near an edge of the view the pointer makes the list scroll, in points.
    static constexpr int kScrollZone = 24;
    /// The furthest that the list scrolls in one step, and the time between two of them.
    static constexpr int kGreatestStep = 40;
    static constexpr std::chrono::milliseconds kScrollInterval{16};

    /// What is dragged for. Both may be empty in a list whose rows stay where they are.
    struct Purpose final {
        /// Whether the row of an id can be moved.
        std::function<bool(const std::string& id)> canMove = nullptr;
        /// The user has put the row of an id in front of the one at `before`, counted with the row
        /// still in its place; at the end when `before` is the number of rows. Never where it is.
        /// Called within the event that ends the drag: an order that is set by then is seen next.
        std::function<void(const std::string& id, std::size_t before)> moved = nullptr;
    };

    /// The list outlives the drag. `onChanged` is called when rows stand in other places.
    RowDrag(RowList& list, Purpose purpose, std::function<void()> onChanged);

    [[nodiscard]] bool canMove(const std::string& id) const {
        return m_purpose.canMove && m_purpose.canMove(id);
    }
    /// Moves a row without a drag, as `Purpose::moved` has it.
    void move(const std::string& id, std::size_t before) const { m_purpose.moved(id, before); }

    /// The row that is lifted; absent while none is.
    [[nodiscard]] const std::optional<std::string>& lifted() const noexcept { return m_lifted; }
    /// Its upper edge in the view.
    [[nodiscard]] int liftedTop() const;
    /// Whether a button is held that drags a row, may come to, or has.
    [[nodiscard]] bool isHeld() const noexcept { return m_state != State::idle; }

    /// The place at which the item of an index is shown, and the other way round.
    [[nodiscard]] std::size_t positionOf(std::size_t index) const;
    [[nodiscard]] std::size_t indexAt(std::size_t position) const;
    /// The place of a row whose upper edge is at `line`, among others laid out as these are. Pure.
    [[nodiscard]] static std::size_t placeAmong(const RowLayout& others, int line);

    /// Follows what the pointer does to the row of an id; any event may be shown. Whether the row
    /// is to hear nothing of it.
    bool follow(const std::string& id, const QEvent& event);
    /// The list has other ids, or another order. The caller lays them out.
    void followIds();
    /// Looks where the lifted row would be dropped, the list having scrolled or changed. Whether
    /// that is another place.
    bool findPlace();
    /// Shows the lifted row above the others. It has its place.
    void raise();
    /// Puts the lifted row back and lets go of the pointer and the keys.
    void cancel();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// `pressed` is before the pointer has come far enough, `spent` after the row was put down.
    enum class State { idle, pressed, dragging, spent };

    bool press(const std::string& id, const QMouseEvent& event);
    bool pull(const std::string& id, const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void lift();
    void drop();
    void putBack(State next);
    void putDown(State next);
    [[nodiscard]] int pointerLine() const;
    [[nodiscard]] int scrollStep() const;

    RowList& m_list;
    Purpose m_purpose;
    std::function<void()> m_onChanged;
    State m_state = State::idle;
    std::string m_pressed;
    std::optional<std::string> m_lifted;
    // On the screen: the list may move under the pointer.
    QPoint m_pressedAt;
    QPoint m_pointer;
    // From the upper edge of the row to the pointer that holds it.
    int m_grip = 0;
    // The lifted row's index, and the place where it would be dropped; the same without one.
    std::size_t m_from = 0;
    std::size_t m_to = 0;
    QTimer m_scrolling;
    // What lies under the lifted row; a child of the list.
    QWidget* m_backdrop = nullptr;
};

}  // namespace quillbar
