// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowPlaces.h"
#include "Quillbar/list/ScreenHold.h"
#include "Quillbar/widgets/ScrollFade.h"

#include <functional>
#include <optional>
#include <string>

class QWheelEvent;
class QWidget;

namespace quillbar {

/// Where a list is scrolled to. Measures are points.
class RowScroll final {
public:
    /// `view` is the list's widget: the part of the list that is seen is as high as it. It and
    /// `places` outlive this object. `onScrolled` is called when the rows may have to move in the
    /// view.
    RowScroll(QWidget& view, const RowPlaces& places, std::function<void()> onScrolled);

    /// The line of the list at the upper edge of the view. Beyond the ends of the list only while
    /// the rows are held on the screen.
    [[nodiscard]] int offset() const noexcept { return m_offset; }
    /// The greatest offset while the rows are not held on the screen.
    [[nodiscard]] int end() const;
    /// At which edges of the view the list goes on.
    [[nodiscard]] ScrollFade::Further further() const {
        return {.upwards = m_offset > 0, .downwards = m_offset < end()};
    }
    /// Keeps the rows where they are on the screen while the pointer is over them.
    [[nodiscard]] ScreenHold& hold() noexcept { return m_hold; }
    [[nodiscard]] const ScreenHold& hold() const noexcept { return m_hold; }

    /// Scrolls there, as far as the list goes. The anchor is released.
    void scrollTo(int offset);
    /// Scrolls as little as it takes to see the lines between both.
    void reveal(int top, int bottom);
    /// Scrolls as far as the wheel has been turned.
    void turn(const QWheelEvent& event);

    /// Keeps the row of this id where it is in the view while details open and close, as far as its
    /// detail can be seen. The list has such a row.
    void anchor(const std::string& id);
    void releaseAnchor() { m_anchor.reset(); }

    /// The rows have changed: scrolls back where the list is shorter now.
    void followRows();
    /// The details have other heights.
    void followDetails();
    /// The view has another height.
    void followView();

    /// For tests: the first rule that does not hold, in words; empty when all hold.
    [[nodiscard]] std::string brokenRule() const;

private:
    /// A row that stays where it is in the view while details move.
    struct Anchor {
        std::string id;
        int y;
    };

    void setOffset(int offset);
    void shift(int distance);
    void endHold(int sum);

    const QWidget& m_view;
    const RowPlaces& m_places;
    std::function<void()> m_onScrolled;
    ScreenHold m_hold;
    int m_offset = 0;
    std::optional<Anchor> m_anchor;
    // What is left of the wheel's way: less than one point.
    double m_turned = 0;
};

}  // namespace quillbar
