// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace quillbar {

/// Decides what a click on the item means, because one click reaches the panel twice: as a press
/// outside it, which closes it, and as the host's word that the item was clicked. A plain object of
/// the main thread.
class ToggleGuard final {
public:
    /// The longest that a host takes to report a click, and that the two clicks of a double click
    /// are apart.
    static constexpr std::chrono::milliseconds kGrace{400};

    /// A clock that never goes back; its origin does not matter.
    using Elapsed = std::function<std::chrono::milliseconds()>;

    explicit ToggleGuard(Elapsed elapsed);

    enum class Action { open, close, nothing };

    /// What a click on the item asks for: the second click of a double click changes nothing, nor
    /// does the very click whose press closed the panel, however long it is held.
    [[nodiscard]] Action clicked() const;

    /// What a command asks for, which a key or a click somewhere has sent: a click whose press closed
    /// the panel does not open it again.
    [[nodiscard]] Action commanded() const;

    /// Whether a press outside closes the panel: not the second one of the double click that opened
    /// it.
    [[nodiscard]] bool closesAtPress() const;

    // What happens to the panel.

    void shown();
    /// What made the panel go.
    enum class HiddenBy {
        /// A click, on the item or elsewhere, or the focus that went with one.
        pointer,
        /// The keyboard, or the program itself: the item opens the panel again at once.
        other,
    };
    void hidden(HiddenBy cause);
    /// A press outside is about to close the panel.
    void pressedOutside() { m_isPressHeld = true; }
    /// A button was released, wherever.
    void released();

    /// Whether the press that closed the panel still lasts.
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
