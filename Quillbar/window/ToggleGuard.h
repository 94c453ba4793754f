// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace quillbar {

/// Decides what a click on the item means. One click reaches the panel twice: as a press outside,
/// which closes the panel, and as the host's message that the item was clicked. A plain object of
/// the main thread.
class ToggleGuard final {
public:
    /// The longest time that a host takes to report a click, and also the longest time between the
    /// two clicks of a double click.
    static constexpr std::chrono::milliseconds kGrace{400};

    /// A clock that never goes backwards; its start does not matter.
    using Elapsed = std::function<std::chrono::milliseconds()>;

    explicit ToggleGuard(Elapsed elapsed);

    enum class Action { open, close, nothing };

    /// What to do for a click on the item. Nothing for the second click of a double click, and for
    /// the click whose press has closed the panel, however long the button is held.
    [[nodiscard]] Action clicked() const;

    /// What to do for a command, which may come from a key or from a click somewhere. A click whose
    /// press has closed the panel does not open it again.
    [[nodiscard]] Action commanded() const;

    /// Whether the panel opened so recently that it may not be on the screen yet.
    [[nodiscard]] bool hasJustOpened() const;

    /// Whether a press outside closes the panel. The second press of the double click that opened
    /// it does not.
    [[nodiscard]] bool closesAtPress() const;

    // What happens to the panel.

    void shown();
    /// By what the panel was hidden.
    enum class HiddenBy {
        /// A click on the item or elsewhere, or the loss of the focus by a click.
        pointer,
        /// The keyboard, or the program itself: the item opens the panel again at once.
        other,
    };
    void hidden(HiddenBy cause);
    /// Call it when a press outside is about to close the panel.
    void pressedOutside() { m_isPressHeld = true; }
    /// Call it when a button is released, anywhere.
    void released();

    /// Whether the button whose press closed the panel is still held.
    [[nodiscard]] bool isPressHeld() const noexcept { return m_isPressHeld; }

private:
    [[nodiscard]] bool isRecent(const std::optional<std::chrono::milliseconds>& moment) const;

    Elapsed m_elapsed;
    bool m_isShown = false;
    bool m_isPressHeld = false;
    std::optional<std::chrono::milliseconds> m_shownAt;
    std::optional<std::chrono::milliseconds> m_hiddenAt;
};

}  // namespace quillbar
