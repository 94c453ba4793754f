// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// A node of an intrusive doubly linked ring; a hook of its own serves as the list's head. A hook
/// unlinks itself when it is destroyed, so a list never points to freed memory. Not thread-safe.
class ListHook {
public:
    ListHook() = default;
    ListHook(const ListHook&) = delete;
    ListHook& operator=(const ListHook&) = delete;
    ListHook(ListHook&&) = delete;
    ListHook& operator=(ListHook&&) = delete;
    ~ListHook() { unlink(); }

    /// For a node: whether it is in a list. For a head: whether the list has nodes.
    [[nodiscard]] bool isLinked() const noexcept { return m_next != this; }

    /// The following node; the head itself at the end of the list.
    [[nodiscard]] ListHook* next() const noexcept { return m_next; }

    /// Takes the node out of its list; does nothing when it is in none.
    void unlink() noexcept {
        m_previous->m_next = m_next;
        m_next->m_previous = m_previous;
        m_previous = m_next = this;
    }

    /// Inserts a node that is in no list before `position`; before the head means at the end.
    void insertBefore(ListHook& position) noexcept {
        m_previous = position.m_previous;
        m_next = &position;
        m_previous->m_next = this;
        position.m_previous = this;
    }

private:
    ListHook* m_previous = this;
    ListHook* m_next = this;
};

}  // namespace quillbar
