// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

class QWidget;

namespace quillbar {

/// Says that a list goes on beyond an edge: what is near that edge fades into the surface. The
/// pointer and the keyboard pass through it, and it is painted only together with the rows below
/// it.
///
/// Used on the main thread alone.
class ScrollFade final {
public:
    /// How far it reaches into the list, in points.
    static constexpr int kHeight = 12;

    /// The list owns the widgets of the fade.
    explicit ScrollFade(QWidget& list);

    /// Where the list can be scrolled further.
    struct Further final {
        bool upwards;
        bool downwards;
    };
    /// Shows the fade at these edges, in front of all that the list has in it. Call it when the
    /// list has been scrolled, has another size, or has got another widget.
    void follow(Further further);

private:
    [[nodiscard]] bool isInFront() const;

    QWidget& m_list;
    // The upper edge, the lower edge.
    std::array<QWidget*, 2> m_edges;
};

}  // namespace quillbar
